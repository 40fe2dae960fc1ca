#include "export/formats/ZLExportAdvice.h"

#include "export/ZLExportCase.h"
#include "export/formats/ZLRegisterExporters.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

ZLChapterPointer chapterAt(
    double seconds, const QString& title = u"Title"_s, const QString& link = {}, bool isEnabled = true)
{
    return ZLExportCase::chapter(seconds, title, link, isEnabled);
}

QStringList formatNames()
{
    ZLRegisterExporters();
    QStringList names;
    for (const ZLExporterClass& exporterClass : ZLExporter::allExporters())
        names += exporterClass.format().name;
    return names;
}

QStringList linesOf(const QString& format, const ZLExportInput& input)
{
    const qsizetype index = formatNames().indexOf(format);
    return ZLExportAdvice::lines(ZLExporter::allExporters().at(index), input);
}

const QString youTubeName = u"YouTube"_s;
const QString ignored = u"YouTube will ignore these chapters: "_s;

QStringList adviceFor(const QString& format, const ZLChapterSequence& chapters, double duration = 0)
{
    return linesOf(format, { .chapters = chapters, .duration = duration, .fileBaseName = u"Show"_s });
}

/// Three good chapters for every destination.
ZLChapterSequence goodChapters()
{
    return { chapterAt(0, u"Welcome"_s), chapterAt(60, u"News"_s), chapterAt(3600, u"Farewell"_s) };
}

}

TEST(ZLExportAdvice, EveryFormatHasRules)
{
    for (const QString& format : formatNames())
        EXPECT_FALSE(adviceFor(format, {}).isEmpty()) << qPrintable(format);
}

TEST(ZLExportAdvice, SaysNothingWhereAllIsWell)
{
    for (const QString& format : formatNames())
        EXPECT_EQ(adviceFor(format, goodChapters(), 4000), QStringList()) << qPrintable(format);
}

TEST(ZLExportAdvice, SaysWhereNothingWillBeWritten)
{
    const ZLChapterSequence disabled { chapterAt(1, u"A"_s, {}, false) };
    for (const QString& format : { u"Auphonic"_s, u"Markdown"_s, u"Titles as Tags"_s, youTubeName })
        EXPECT_EQ(adviceFor(format, disabled, 10), QStringList { u"No enabled chapters: the file will be empty."_s });
    for (const QString& format : { u"JSON"_s, u"Podlove Simple Chapters"_s })
        EXPECT_EQ(adviceFor(format, disabled, 10), QStringList { u"No enabled chapters: the file will hold none."_s });
    EXPECT_EQ(adviceFor(u"Hindenburg"_s, disabled, 10),
        QStringList { u"No enabled chapters: the session will get no markers."_s });
    EXPECT_EQ(adviceFor(u"Final Cut Pro X"_s, disabled, 10), QStringList()) << "disabled ones are written";
    EXPECT_EQ(adviceFor(u"Final Cut Pro X"_s, {}, 10),
        QStringList { u"No chapters at 00:00 or later: the project will have no markers."_s });
}

TEST(ZLExportAdvice, YouTubeNeedsThreeLongChaptersFromTheStart)
{
    EXPECT_EQ(adviceFor(youTubeName, { chapterAt(0), chapterAt(60), chapterAt(100), chapterAt(106), chapterAt(200) }),
        QStringList { ignored + u"chapter 3 is only 6 s long (10 s minimum)."_s });
    EXPECT_EQ(adviceFor(youTubeName, { chapterAt(75), chapterAt(90), chapterAt(100) }),
        QStringList { ignored + u"the first is at 01:15 (00:00 needed)."_s });
    EXPECT_EQ(adviceFor(youTubeName, { chapterAt(0), chapterAt(90) }),
        QStringList { ignored + u"there are only 2 (3 minimum)."_s });
    EXPECT_EQ(adviceFor(youTubeName, { chapterAt(3600) }),
        QStringList { ignored + u"the first is at 01:00:00 (00:00 needed); there is only 1 (3 minimum)."_s });
    EXPECT_EQ(adviceFor(youTubeName,
                  { chapterAt(0), chapterAt(5), chapterAt(9), chapterAt(30), chapterAt(32), chapterAt(35) }),
        QStringList { ignored + u"chapters 1, 2, 4 and 1 more are shorter than 10 s."_s });
    EXPECT_EQ(adviceFor(youTubeName, { chapterAt(0), chapterAt(9.99), chapterAt(19.999) }),
        QStringList { ignored + u"chapter 1 is only 9 s long (10 s minimum)."_s });
}

TEST(ZLExportAdvice, TheLastChapterEndsWithTheRecording)
{
    EXPECT_EQ(adviceFor(youTubeName, { chapterAt(0), chapterAt(60), chapterAt(100) }, 104),
        QStringList { ignored + u"chapter 3 is only 4 s long (10 s minimum)."_s });
    const ZLExportInput running {
        .chapters = { chapterAt(0), chapterAt(60), chapterAt(100) }, .duration = 104, .isRecording = true
    };
    EXPECT_EQ(linesOf(youTubeName, running), QStringList());
}

TEST(ZLExportAdvice, DisabledChaptersCountInTheNumbersOnly)
{
    EXPECT_EQ(adviceFor(youTubeName,
                  { chapterAt(0), chapterAt(20), chapterAt(21, u"off"_s, {}, false), chapterAt(40), chapterAt(44),
                      chapterAt(90) }),
        QStringList { ignored + u"chapter 4 is only 4 s long (10 s minimum)."_s });
}

TEST(ZLExportAdvice, TellsOfEqualTimes)
{
    const auto inSecond = [](const ZLChapterSequence& chapters) { return adviceFor(youTubeName, chapters).join(u'|'); };
    const QString start = u"YouTube needs rising times in whole seconds: "_s;
    EXPECT_EQ(inSecond({ chapterAt(0), chapterAt(20), chapterAt(20.9), chapterAt(40) }),
        start + u"chapters 2 and 3 fall into the same second."_s);
    EXPECT_EQ(inSecond({ chapterAt(0), chapterAt(20), chapterAt(20.9), chapterAt(40), chapterAt(40.1) }),
        start + u"chapters 3 and 5 (each with the one before) fall into the same second."_s);

    EXPECT_EQ(adviceFor(u"JSON"_s, { chapterAt(0), chapterAt(20), chapterAt(20.0004), chapterAt(20.5) }),
        QStringList { u"Players show one of two chapters with the same time: chapters 2 and 3."_s });
    EXPECT_EQ(adviceFor(u"JSON"_s, { chapterAt(1), chapterAt(1.9) }), QStringList());
    EXPECT_EQ(adviceFor(u"Markdown"_s, { chapterAt(1), chapterAt(1.9) }), QStringList()) << "no times are written";
    EXPECT_EQ(linesOf(u"Markdown"_s, { .chapters = { chapterAt(1), chapterAt(1.9) }, .option = ZLExportOption::On }),
        QStringList { u"Times are whole seconds: chapters 1 and 2 fall into the same second."_s });
}

TEST(ZLExportAdvice, TellsOfTimesOutsideOfTheRecording)
{
    const ZLChapterSequence chapters { chapterAt(-1, u"A"_s), chapterAt(0, u"B"_s), chapterAt(20, u"C"_s),
        chapterAt(40, u"D"_s) };
    EXPECT_EQ(adviceFor(u"Podlove Simple Chapters"_s, chapters, 30),
        (QStringList { u"Players do not support negative times: see chapter 1."_s,
            u"Players never reach chapters after the end of the recording: see chapter 4."_s }));
    EXPECT_EQ(adviceFor(u"Podlove Simple Chapters"_s, goodChapters(), 0), QStringList()) << "the end is not known";
    EXPECT_EQ(adviceFor(u"Final Cut Pro X"_s, chapters, 30),
        (QStringList { u"Markers with a negative time are left out: see chapter 1."_s,
            u"The clip ends with the recording, before chapter 4."_s }));
    EXPECT_TRUE(
        adviceFor(youTubeName, chapters).contains(u"A negative time is written without its sign: see chapter 1."_s));
    EXPECT_EQ(adviceFor(u"Final Cut Pro X"_s, { chapterAt(3e6) }, 4e6),
        QStringList { u"Marker times end after 596 hours, before chapter 1."_s });
}

TEST(ZLExportAdvice, TellsThatAClipEndsWhereTheRecordingWasLastStopped)
{
    const ZLExportInput running { .chapters = { chapterAt(1) }, .duration = 10, .isRecording = true };
    EXPECT_EQ(linesOf(u"Final Cut Pro X"_s, running),
        QStringList { u"The recording is still running: the clip will end where it was last paused."_s });
}

TEST(ZLExportAdvice, TellsOfCharactersThatTheDestinationMisreads)
{
    const auto linesFor = [](const QString& format, const QString& title, const QString& link = {}) {
        return adviceFor(format, { chapterAt(0, u"A"_s), chapterAt(20, title, link), chapterAt(40, u"C"_s) })
            .join(u'|');
    };
    EXPECT_EQ(linesFor(u"Auphonic"_s, u"a < b"_s),
        u"Chapter readers misread < and > as a link: there is one in the title of chapter 2."_s);
    EXPECT_EQ(linesFor(youTubeName, u"a > b"_s),
        u"YouTube takes no < or > in a description: there is one in the title of chapter 2."_s);
    EXPECT_EQ(linesFor(youTubeName, u"B"_s, u"https://x.example"_s),
        u"YouTube takes no < or > in a description: remove them around the link of chapter 2."_s);
    for (const QString& format : { u"Auphonic"_s, u"Markdown"_s, youTubeName })
        EXPECT_EQ(linesFor(format, u"a\nb"_s), u"A chapter is one line here: there is a line break in chapter 2."_s);
    EXPECT_EQ(
        linesFor(u"Titles as Tags"_s, u"a\nb"_s), u"All tags stand on one line: there is a line break in chapter 2."_s);
    EXPECT_EQ(
        linesFor(u"Titles as Tags"_s, u"a, b"_s), u"A comma makes two tags of one title: there is one in chapter 2."_s);
    EXPECT_EQ(linesFor(u"Titles as Tags"_s, u" "_s), u"A tag needs a text: there is no title in chapter 2."_s);
    EXPECT_EQ(linesFor(u"Markdown"_s, u"snake_case"_s),
        u"Markdown reads * _ ` [ ] < and \\ as formatting: there is one in the title of chapter 2."_s);
    EXPECT_EQ(linesFor(u"Markdown"_s, u"B"_s, u"https://x.example/a)"_s),
        u"Markdown links break at blanks, < or > and unpaired parentheses: see the link of chapter 2."_s);
    EXPECT_EQ(linesFor(u"Hindenburg"_s, u"the \"end\""_s),
        u"A session with < or \" in a text may not open again: there is one in chapter 2."_s);
    EXPECT_EQ(linesFor(u"JSON"_s, u"<\"&\n,"_s), QString());
}

TEST(ZLExportAdvice, TellsOfWhatXmlCannotHold)
{
    const QString line = u"XML allows no control characters, so the file will not open: there is one in chapter 1."_s;
    for (const QString& format : { u"Podlove Simple Chapters"_s, u"Final Cut Pro X"_s, u"Hindenburg"_s })
        EXPECT_EQ(adviceFor(format, { chapterAt(1, u"bell\a"_s) }, 10), QStringList { line }) << qPrintable(format);
    EXPECT_EQ(adviceFor(u"Podlove Simple Chapters"_s, { chapterAt(1, u"tab\tand\nline"_s) }, 10), QStringList());
}

TEST(ZLExportAdvice, TellsOfAFileNameThatBreaksTheProject)
{
    ZLExportInput input { .chapters = { chapterAt(1) }, .duration = 10, .fileBaseName = u"Q&A"_s };
    EXPECT_EQ(linesOf(u"Final Cut Pro X"_s, input).size(), 1);
    input.fileBaseName = u"Q and A"_s;
    EXPECT_EQ(linesOf(u"Final Cut Pro X"_s, input), QStringList());
}

TEST(ZLExportAdvice, TellsOfASessionWithoutAPlaceForMarkers)
{
    const QString line = u"The session has no </Session>: there is no place for the markers."_s;
    const auto linesFor = [](const QByteArray& session) {
        return linesOf(u"Hindenburg"_s, { .chapters = { chapterAt(1) }, .existingBytes = session });
    };
    EXPECT_EQ(linesFor("a shopping list"), QStringList { line });
    EXPECT_EQ(linesFor("<S><Markers></Markers>"), QStringList());
    EXPECT_EQ(linesFor("<S></Session>"), QStringList());
}

TEST(ZLExportAdvice, TellsOfChaptersThatASessionHasAlready)
{
    const QByteArray session = "<Session><Markers></Markers></Session>";
    ZLExportInput input { .chapters = { chapterAt(0, u"Welcome"_s), chapterAt(65.5004, u"News & \"more\""_s),
                              chapterAt(90, u"Off"_s, {}, false), chapterAt(100, u"Farewell"_s) },
        .existingBytes = session };
    const auto lines = [&input] { return linesOf(u"Hindenburg"_s, input).filter(u"already"_s); };
    EXPECT_EQ(lines(), QStringList());
    // As the editor may have written it meanwhile.
    input.existingBytes = "<Session><Markers><Marker Name=\"News &amp; &quot;more&quot;\" Time=\"65.5\"/>"
                          "<Marker Name=\"Farewell\" Time=\"100.001\"/></Markers></Session>";
    EXPECT_EQ(lines(),
        QStringList {
            u"The session already has markers with the same time and name, which will come twice: chapter 2."_s });
    input.existingBytes =
        ZLExportCase::exported(u"Hindenburg"_s, { .chapters = input.chapters, .existingBytes = session });
    EXPECT_EQ(lines(),
        QStringList { u"The session already has markers with the same time and name, which will come twice: chapters "
                      "1, 2 and 4."_s });
}

TEST(ZLExportAdvice, TellsOfChaptersWithoutATitleWhereOneIsNeeded)
{
    const ZLChapterSequence chapters { chapterAt(0, u"A"_s), chapterAt(20, u" "_s), chapterAt(40, u"C"_s) };
    for (const QString& format : { u"Auphonic"_s, u"JSON"_s, u"Podlove Simple Chapters"_s, youTubeName })
        EXPECT_EQ(adviceFor(format, chapters, 60),
            QStringList { u"Players show chapters by their titles: there is none in chapter 2."_s })
            << qPrintable(format);
    for (const QString& format : { u"Final Cut Pro X"_s, u"Hindenburg"_s, u"Markdown"_s })
        EXPECT_EQ(adviceFor(format, chapters, 60), QStringList()) << qPrintable(format);
}

TEST(ZLExportAdvice, TellsOfCharactersThatCannotBeSeenOrWritten)
{
    for (const QString& format : formatNames()) {
        const auto lineFor = [&format](const QString& title) {
            return adviceFor(format, { chapterAt(0, u"A"_s), chapterAt(20, title), chapterAt(40, u"C"_s) }, 60)
                .join(u'|');
        };
        EXPECT_EQ(lineFor(u"x\u0085y"_s),
            u"Control characters are shown as boxes or break the text: there is one in chapter 2."_s)
            << qPrintable(format);
        EXPECT_EQ(lineFor(u'x' + QString(QChar(0xD83D)) + u'y'),
            u"A broken character will not be written: there is one in chapter 2."_s)
            << qPrintable(format);
        EXPECT_EQ(lineFor(u"smile \U0001F600"_s), QString()) << qPrintable(format);
    }
    for (const QString& format : { u"Auphonic"_s, u"JSON"_s, u"Markdown"_s, u"Titles as Tags"_s, youTubeName })
        EXPECT_EQ(
            adviceFor(format, { chapterAt(0, u"A"_s), chapterAt(20, u"bell\a"_s), chapterAt(40, u"C"_s) }, 60).size(),
            1)
            << qPrintable(format);
}

TEST(ZLExportAdvice, TellsOfADescriptionThatIsTooLong)
{
    EXPECT_EQ(adviceFor(youTubeName, { chapterAt(0, QString(5000, u'a')), chapterAt(20), chapterAt(40) }),
        QStringList { u"A YouTube description holds 5000 bytes at most: this list has 5031."_s });
}

TEST(ZLExportAdvice, ChangesNoByteAndStandsEveryTime)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const ZLChapterSequence hostile { chapterAt(-infinity, {}), chapterAt(std::nan(""), u"\0"_s),
        chapterAt(infinity, {}), chapterAt(1e300, u"a"_s) };
    for (const QString& format : formatNames()) {
        const ZLExportInput input { .chapters = hostile, .duration = infinity, .existingBytes = "<S></Session>" };
        const QByteArray before = ZLExportCase::exported(format, input);
        EXPECT_FALSE(linesOf(format, input).join(u'\n').contains("%1"_L1));
        EXPECT_EQ(ZLExportCase::exported(format, input), before);
    }
}
