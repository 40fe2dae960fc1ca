#include "export/formats/ZLExportAdvice.h"

#include "export/formats/ZLExportFindings.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// What a destination asks for, how it is checked, and what the user is told with the reason; %1 is the finding.
struct ExportRule {
    QLatin1StringView format;
    ZLExportFinding (*check)(const ZLExportInput&);
    const char* text;
};

using namespace ZLExportFindings;

constexpr auto auphonic = "Auphonic"_L1;
constexpr auto finalCut = "Final Cut Pro X"_L1;
constexpr auto hindenburg = "Hindenburg"_L1;
constexpr auto json = "JSON"_L1;
constexpr auto markdown = "Markdown"_L1;
constexpr auto podlove = "Podlove Simple Chapters"_L1;
constexpr auto tags = "Titles as Tags"_L1;
constexpr auto youTube = "YouTube"_L1;

constexpr auto emptyFile = QT_TRANSLATE_NOOP("ZLExportAdvice", "No enabled chapters: the file will be empty.");
constexpr auto noChapters = QT_TRANSLATE_NOOP("ZLExportAdvice", "No enabled chapters: the file will hold none.");
constexpr auto beforeStart = QT_TRANSLATE_NOOP("ZLExportAdvice", "Players do not support negative times: see %1.");
constexpr auto signDropped =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "A negative time is written without its sign: see %1.");
constexpr auto pastEnd =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "Players never reach chapters after the end of the recording: see %1.");
constexpr auto sameTime =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "Players show one of two chapters with the same time: %1.");
constexpr auto oneLine =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "A chapter is one line here: there is a line break in %1.");
constexpr auto notXml = QT_TRANSLATE_NOOP(
    "ZLExportAdvice", "XML allows no control characters, so the file will not open: there is one in %1.");

constexpr auto noTitle =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "Players show chapters by their titles: there is none in %1.");
constexpr auto hidden =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "Control characters are shown as boxes or break the text: there is one in %1.");
constexpr auto unwritable =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "A broken character will not be written: there is one in %1.");

constexpr std::array exportRules {
    ExportRule { auphonic, noEnabledChapter, emptyFile },
    ExportRule { auphonic, beforeTheStart, beforeStart },
    ExportRule { auphonic, afterTheEnd, pastEnd },
    ExportRule { auphonic, inTheSameMillisecond, sameTime },
    ExportRule { auphonic, angleBracketsInTitles,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "Chapter readers misread < and > as a link: there is one in the title of %1.") },
    ExportRule { auphonic, lineBreaks, oneLine },
    ExportRule { auphonic, emptyTitles, noTitle },
    ExportRule { auphonic, controlCharacters, hidden },
    ExportRule { auphonic, brokenCharacters, unwritable },

    ExportRule { finalCut, noChapterFromTheStartOn,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "No chapters at 00:00 or later: the project will have no markers.") },
    ExportRule { finalCut, anyBeforeTheStart,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "Markers with a negative time are left out: see %1.") },
    ExportRule { finalCut, recordingGoesOn,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "The recording is still running: the clip will end where it was last paused.") },
    ExportRule { finalCut, anyAfterTheFinishedSpans,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "The clip ends with the recording, before %1.") },
    ExportRule {
        finalCut, beyond32Bits, QT_TRANSLATE_NOOP("ZLExportAdvice", "Marker times end after 596 hours, before %1.") },
    ExportRule { finalCut, anyTitleForbiddenInXml, notXml },
    ExportRule { finalCut, anyTitleWithControlCharactersThatXmlTakes, hidden },
    ExportRule { finalCut, anyTitleWithBrokenCharacters, unwritable },
    ExportRule { finalCut, markupInFileName,
        QT_TRANSLATE_NOOP("ZLExportAdvice",
            "The project gets the name of the file as it is: with &, < or \" in it, Final Cut Pro will "
            "not open the file.") },

    ExportRule { hindenburg, noEnabledChapter,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "No enabled chapters: the session will get no markers.") },
    ExportRule { hindenburg, sessionWithoutEnd,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "The session has no </Session>: there is no place for the markers.") },
    ExportRule { hindenburg, beforeTheStart,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "Hindenburg does not support negative times: see %1.") },
    ExportRule { hindenburg, unescapedMarkup,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "A session with < or \" in a text may not open again: there is one in %1.") },
    ExportRule { hindenburg, forbiddenInXml, notXml },
    ExportRule { hindenburg, controlCharactersThatXmlTakes, hidden },
    ExportRule { hindenburg, brokenCharacters, unwritable },
    ExportRule { hindenburg, inTheSessionAlready,
        QT_TRANSLATE_NOOP("ZLExportAdvice",
            "The session already has markers with the same time and name, which will come twice: %1.") },

    ExportRule { json, noEnabledChapter, noChapters },
    ExportRule { json, beforeTheStart, beforeStart },
    ExportRule { json, afterTheEnd, pastEnd },
    ExportRule { json, inTheSameMillisecond, sameTime },
    ExportRule { json, emptyTitles, noTitle },
    ExportRule { json, controlCharactersInTitles, hidden },
    ExportRule { json, brokenCharactersInTitles, unwritable },

    ExportRule { markdown, noEnabledChapter, emptyFile },
    ExportRule { markdown, beforeTheStartIfTimed, signDropped },
    ExportRule { markdown, inTheSameSecondIfTimed,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "Times are whole seconds: %1 fall into the same second.") },
    ExportRule { markdown, markdownInTitles,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "Markdown reads * _ ` [ ] < and \\ as formatting: there is one in the title of %1.") },
    ExportRule { markdown, brokenMarkdownLinks,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "Markdown links break at blanks, < or > and unpaired parentheses: see the link of %1.") },
    ExportRule { markdown, lineBreaks, oneLine },
    ExportRule { markdown, controlCharacters, hidden },
    ExportRule { markdown, brokenCharacters, unwritable },

    ExportRule { podlove, noEnabledChapter, noChapters },
    ExportRule { podlove, beforeTheStart, beforeStart },
    ExportRule { podlove, afterTheEnd, pastEnd },
    ExportRule { podlove, inTheSameMillisecond, sameTime },
    ExportRule { podlove, forbiddenInXml, notXml },
    ExportRule { podlove, emptyTitles, noTitle },
    ExportRule { podlove, controlCharactersThatXmlTakes, hidden },
    ExportRule { podlove, brokenCharacters, unwritable },

    ExportRule { tags, noEnabledChapter, emptyFile },
    ExportRule {
        tags, emptyTitles, QT_TRANSLATE_NOOP("ZLExportAdvice", "A tag needs a text: there is no title in %1.") },
    ExportRule { tags, commasInTitles,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "A comma makes two tags of one title: there is one in %1.") },
    ExportRule { tags, lineBreaksInTitles,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "All tags stand on one line: there is a line break in %1.") },
    ExportRule { tags, controlCharactersInTitles, hidden },
    ExportRule { tags, brokenCharactersInTitles, unwritable },

    // https://support.google.com/youtube/answer/9884579 and the "description" of
    // https://developers.google.com/youtube/v3/docs/videos
    ExportRule { youTube, noEnabledChapter, emptyFile },
    ExportRule {
        youTube, unfitForYouTube, QT_TRANSLATE_NOOP("ZLExportAdvice", "YouTube will ignore these chapters: %1.") },
    ExportRule { youTube, inTheSameSecond,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "YouTube needs rising times in whole seconds: %1 fall into the same second.") },
    ExportRule { youTube, beforeTheStart, signDropped },
    ExportRule { youTube, afterTheEnd, pastEnd },
    ExportRule { youTube, angleBracketsInTitles,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "YouTube takes no < or > in a description: there is one in the title of %1.") },
    ExportRule { youTube, links,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "YouTube takes no < or > in a description: remove them around the link of %1.") },
    ExportRule { youTube, emptyTitles, noTitle },
    ExportRule { youTube, lineBreaks, oneLine },
    ExportRule { youTube, controlCharacters, hidden },
    ExportRule { youTube, brokenCharacters, unwritable },
    ExportRule { youTube, tooLongForYouTube,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "A YouTube description holds 5000 bytes at most: this list has %1.") },
};

}

QStringList ZLExportAdvice::lines(const QString& formatName, const ZLExportInput& input)
{
    QStringList lines;
    for (const ExportRule& rule : exportRules) {
        if (rule.format != formatName)
            continue;
        const ZLExportFinding finding = rule.check(input);
        if (!finding)
            continue;
        const QString text = QCoreApplication::translate("ZLExportAdvice", rule.text);
        lines += finding->isEmpty() ? text : text.arg(*finding);
    }
    return lines;
}

QStringList ZLExportAdvice::lines(const ZLExporterClass& exporterClass, const ZLExportInput& input)
{
    return lines(exporterClass.format().name, input) + exporterClass.create()->advice(input);
}

QStringList ZLExportAdvice::formatsWithRules()
{
    QStringList names;
    for (const ExportRule& rule : exportRules) {
        if (!names.contains(rule.format))
            names += rule.format;
    }
    return names;
}
