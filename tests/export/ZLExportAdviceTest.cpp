#include "export/formats/ZLExportAdvice.h"

#include "export/ZLExportCase.h"
#include "export/formats/ZLRegisterExporters.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;
using ZLExportCase::chapter;

namespace {

const QString youTubeName = u"YouTube"_s;
const QString needs = u"YouTube needs a first chapter at 00:00, at least three, each ten seconds or longer: "_s;

QStringList adviceFor(const QString& format, const ZLChapterSequence& chapters, double duration = 0)
{
    return ZLExportAdvice::lines(format, { .chapters = chapters, .duration = duration, .fileBaseName = u"Show"_s });
}

/// Three good chapters for every destination.
ZLChapterSequence goodChapters()
{
    return { chapter(0, u"Welcome"_s), chapter(60, u"News"_s), chapter(3600, u"Farewell"_s) };
}

}

TEST(ZLExportAdvice, EveryFormatHasRulesAndEveryRuleAFormat)
{
    ZLRegisterExporters();
    QStringList names;
    for (const ZLExporterClass& exporterClass : ZLExporter::allExporters())
        names += exporterClass.format().name;
    EXPECT_EQ(ZLExportAdvice::formatsWithRules(), names);
}

TEST(ZLExportAdvice, SaysNothingWhereAllIsWell)
{
    for (const QString& format : ZLExportAdvice::formatsWithRules())
        EXPECT_EQ(adviceFor(format, goodChapters(), 4000), QStringList()) << qPrintable(format);
    EXPECT_EQ(adviceFor(u"No such format"_s, {}), QStringList());
}

TEST(ZLExportAdvice, SaysWhereNothingWillBeWritten)
{
    const ZLChapterSequence disabled { chapter(1, u"A"_s, {}, false) };
    for (const QString& format : { u"Auphonic"_s, u"Markdown"_s, u"Titles as Tags"_s, youTubeName })
        EXPECT_EQ(adviceFor(format, disabled, 10), QStringList { u"No enabled chapters: the file will be empty."_s });
    for (const QString& format : { u"JSON"_s, u"Podlove Simple Chapters"_s })
        EXPECT_EQ(adviceFor(format, disabled, 10), QStringList { u"No enabled chapters: the file will hold none."_s });
    EXPECT_EQ(adviceFor(u"Hindenburg"_s, disabled, 10),
        QStringList { u"No enabled chapters: the session will get no markers."_s });
    EXPECT_EQ(adviceFor(u"Final Cut Pro X"_s, disabled, 10), QStringList()) << "disabled ones are written";
    EXPECT_EQ(adviceFor(u"Final Cut Pro X"_s, {}, 10),
        QStringList { u"No chapters from the start on: the project will have no markers."_s });
}

TEST(ZLExportAdvice, YouTubeNeedsThreeLongChaptersFromTheStart)
{
    EXPECT_EQ(adviceFor(youTubeName, { chapter(0), chapter(60), chapter(100), chapter(106), chapter(200) }),
        QStringList { needs + u"chapter 3 is 6 s long."_s });
    EXPECT_EQ(adviceFor(youTubeName, { chapter(75), chapter(90), chapter(100) }),
        QStringList { needs + u"the first is at 01:15."_s });
    EXPECT_EQ(adviceFor(youTubeName, { chapter(0), chapter(90) }), QStringList { needs + u"there are only 2."_s });
    EXPECT_EQ(adviceFor(youTubeName, { chapter(3600) }),
        QStringList { needs + u"the first is at 01:00:00; there is only one."_s });
    EXPECT_EQ(adviceFor(youTubeName, { chapter(0), chapter(5), chapter(9), chapter(30), chapter(32), chapter(35) }),
        QStringList { needs + u"chapters 1, 2, 4 and 1 more are shorter."_s });
    EXPECT_EQ(adviceFor(youTubeName, { chapter(0), chapter(9.99), chapter(19.999) }),
        QStringList { needs + u"chapter 1 is 9 s long."_s });
}

TEST(ZLExportAdvice, TheLastChapterEndsWithTheRecording)
{
    EXPECT_EQ(adviceFor(youTubeName, { chapter(0), chapter(60), chapter(100) }, 104),
        QStringList { needs + u"chapter 3 is 4 s long."_s });
    const ZLExportInput running {
        .chapters = { chapter(0), chapter(60), chapter(100) }, .duration = 104, .isRecording = true
    };
    EXPECT_EQ(ZLExportAdvice::lines(youTubeName, running), QStringList());
}

TEST(ZLExportAdvice, DisabledChaptersCountInTheNumbersOnly)
{
    EXPECT_EQ(adviceFor(youTubeName,
                  { chapter(0), chapter(20), chapter(21, u"off"_s, {}, false), chapter(40), chapter(44), chapter(90) }),
        QStringList { needs + u"chapter 4 is 4 s long."_s });
}

TEST(ZLExportAdvice, TellsOfEqualTimes)
{
    const auto inSecond = [](const ZLChapterSequence& chapters) { return adviceFor(youTubeName, chapters).join(u'|'); };
    const QString start = u"Times are whole seconds, and YouTube wants them to rise: "_s;
    EXPECT_EQ(inSecond({ chapter(0), chapter(20), chapter(20.9), chapter(40) }),
        start + u"chapters 2 and 3 fall into the same second."_s);
    EXPECT_EQ(inSecond({ chapter(0), chapter(20), chapter(20.9), chapter(40), chapter(40.1) }),
        start + u"chapters 3 and 5 (each with the one before) fall into the same second."_s);

    EXPECT_EQ(adviceFor(u"JSON"_s, { chapter(0), chapter(20), chapter(20.0004), chapter(20.5) }),
        QStringList { u"Players show one of two chapters with the same time: chapters 2 and 3."_s });
    EXPECT_EQ(adviceFor(u"JSON"_s, { chapter(1), chapter(1.9) }), QStringList());
    EXPECT_EQ(adviceFor(u"Markdown"_s, { chapter(1), chapter(1.9) }), QStringList()) << "no times are written";
    EXPECT_EQ(ZLExportAdvice::lines(
                  u"Markdown"_s, { .chapters = { chapter(1), chapter(1.9) }, .option = ZLExportOption::On }),
        QStringList { u"Times are whole seconds: chapters 1 and 2 fall into the same second."_s });
}

TEST(ZLExportAdvice, TellsOfTimesOutsideOfTheRecording)
{
    const ZLChapterSequence chapters { chapter(-1, u"A"_s), chapter(0, u"B"_s), chapter(20, u"C"_s),
        chapter(40, u"D"_s) };
    EXPECT_EQ(adviceFor(u"Podlove Simple Chapters"_s, chapters, 30),
        (QStringList { u"Players know no negative times: see chapter 1."_s,
            u"Players never get past the end of the recording: see chapter 4."_s }));
    EXPECT_EQ(adviceFor(u"Podlove Simple Chapters"_s, goodChapters(), 0), QStringList()) << "the end is not known";
    EXPECT_EQ(adviceFor(u"Final Cut Pro X"_s, chapters, 30),
        (QStringList { u"Markers with a negative time are left out: see chapter 1."_s,
            u"The clip ends with the recording, before chapter 4."_s }));
    EXPECT_TRUE(
        adviceFor(youTubeName, chapters).contains(u"A negative time is written without its sign: see chapter 1."_s));
    EXPECT_EQ(adviceFor(u"Final Cut Pro X"_s, { chapter(3e6) }, 4e6),
        QStringList { u"Marker times end after 596 hours, before chapter 1."_s });
}

TEST(ZLExportAdvice, TellsThatAClipEndsWhereTheRecordingWasLastStopped)
{
    const ZLExportInput running { .chapters = { chapter(1) }, .duration = 10, .isRecording = true };
    EXPECT_EQ(ZLExportAdvice::lines(u"Final Cut Pro X"_s, running),
        QStringList { u"The recording goes on: the clip will end where it was last stopped."_s });
}

TEST(ZLExportAdvice, TellsOfCharactersThatTheDestinationMisreads)
{
    const auto linesFor = [](const QString& format, const QString& title, const QString& link = {}) {
        return adviceFor(format, { chapter(0, u"A"_s), chapter(20, title, link), chapter(40, u"C"_s) }).join(u'|');
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
    EXPECT_EQ(linesFor(u"Titles as Tags"_s, u"a, b"_s),
        u"Tags end at a comma, so that one title becomes two: there is one in chapter 2."_s);
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
    const QString line = u"XML knows no control characters, so the file will not open: there is one in chapter 1."_s;
    for (const QString& format : { u"Podlove Simple Chapters"_s, u"Final Cut Pro X"_s, u"Hindenburg"_s })
        EXPECT_EQ(adviceFor(format, { chapter(1, u"bell\a"_s) }, 10), QStringList { line }) << qPrintable(format);
    EXPECT_EQ(adviceFor(u"Podlove Simple Chapters"_s, { chapter(1, u"tab\tand\nline"_s) }, 10), QStringList());
}

TEST(ZLExportAdvice, TellsOfAFileNameThatBreaksTheProject)
{
    ZLExportInput input { .chapters = { chapter(1) }, .duration = 10, .fileBaseName = u"Q&A"_s };
    EXPECT_EQ(ZLExportAdvice::lines(u"Final Cut Pro X"_s, input).size(), 1);
    input.fileBaseName = u"Q and A"_s;
    EXPECT_EQ(ZLExportAdvice::lines(u"Final Cut Pro X"_s, input), QStringList());
}

TEST(ZLExportAdvice, TellsOfASessionWithoutAPlaceForMarkers)
{
    const QString line = u"The session has no </Session>: there is no place for the markers."_s;
    const auto linesFor = [](const QByteArray& session) {
        return ZLExportAdvice::lines(u"Hindenburg"_s, { .chapters = { chapter(1) }, .existingBytes = session });
    };
    EXPECT_EQ(linesFor("a shopping list"), QStringList { line });
    EXPECT_EQ(linesFor("<S><Markers></Markers>"), QStringList());
    EXPECT_EQ(linesFor("<S></Session>"), QStringList());
}

TEST(ZLExportAdvice, TellsOfADescriptionThatIsTooLong)
{
    EXPECT_EQ(adviceFor(youTubeName, { chapter(0, QString(5000, u'a')), chapter(20), chapter(40) }),
        QStringList { u"A YouTube description holds 5000 bytes: these are 5021."_s });
}

TEST(ZLExportAdvice, ChangesNoByteAndStandsEveryTime)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const ZLChapterSequence hostile { chapter(-infinity, {}), chapter(std::nan(""), u"\0"_s), chapter(infinity, {}),
        chapter(1e300, u"a"_s) };
    for (const QString& format : ZLExportAdvice::formatsWithRules()) {
        ZLExportInput input { .chapters = hostile, .duration = infinity, .existingBytes = "<S></Session>" };
        const QByteArray before = ZLExportCase::exported(format, input);
        EXPECT_FALSE(ZLExportAdvice::lines(format, input).join(u'\n').contains("%1"_L1));
        EXPECT_EQ(ZLExportCase::exported(format, input), before);
    }
}
