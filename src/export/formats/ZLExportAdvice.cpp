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

#define ZELTA_RULE_TEXT(text) QT_TRANSLATE_NOOP("ZLExportAdvice", text)

using namespace ZLExportFindings;

constexpr auto auphonic = "Auphonic"_L1;
constexpr auto finalCut = "Final Cut Pro X"_L1;
constexpr auto hindenburg = "Hindenburg"_L1;
constexpr auto json = "JSON"_L1;
constexpr auto markdown = "Markdown"_L1;
constexpr auto podlove = "Podlove Simple Chapters"_L1;
constexpr auto tags = "Titles as Tags"_L1;
constexpr auto youTube = "YouTube"_L1;

constexpr auto emptyFile = ZELTA_RULE_TEXT("No enabled chapters: the file will be empty.");
constexpr auto noChapters = ZELTA_RULE_TEXT("No enabled chapters: the file will hold none.");
constexpr auto beforeStart = ZELTA_RULE_TEXT("Players know no negative times: see %1.");
constexpr auto signDropped = ZELTA_RULE_TEXT("A negative time is written without its sign: see %1.");
constexpr auto pastEnd = ZELTA_RULE_TEXT("Players never get past the end of the recording: see %1.");
constexpr auto sameTime = ZELTA_RULE_TEXT("Players show one of two chapters with the same time: %1.");
constexpr auto oneLine = ZELTA_RULE_TEXT("A chapter is one line here: there is a line break in %1.");
constexpr auto notXml =
    ZELTA_RULE_TEXT("XML knows no control characters, so the file will not open: there is one in %1.");

constexpr std::array exportRules {
    ExportRule { auphonic, noEnabledChapter, emptyFile },
    ExportRule { auphonic, beforeTheStart, beforeStart },
    ExportRule { auphonic, afterTheEnd, pastEnd },
    ExportRule { auphonic, inTheSameMillisecond, sameTime },
    ExportRule { auphonic, angleBracketsInTitles,
        ZELTA_RULE_TEXT("Chapter readers misread < and > as a link: there is one in the title of %1.") },
    ExportRule { auphonic, lineBreaks, oneLine },

    ExportRule { finalCut, noChapterFromTheStartOn,
        ZELTA_RULE_TEXT("No chapters from the start on: the project will have no markers.") },
    ExportRule { finalCut, anyBeforeTheStart, ZELTA_RULE_TEXT("Markers with a negative time are left out: see %1.") },
    ExportRule { finalCut, recordingGoesOn,
        ZELTA_RULE_TEXT("The recording goes on: the clip will end where it was last stopped.") },
    ExportRule { finalCut, anyAfterTheFinishedSpans, ZELTA_RULE_TEXT("The clip ends with the recording, before %1.") },
    ExportRule { finalCut, beyond32Bits, ZELTA_RULE_TEXT("Marker times end after 596 hours, before %1.") },
    ExportRule { finalCut, anyTitleForbiddenInXml, notXml },
    ExportRule { finalCut, markupInFileName,
        ZELTA_RULE_TEXT("The project gets the name of the file as it is: with &, < or \" in it, Final Cut Pro will "
                        "not open the file.") },

    ExportRule {
        hindenburg, noEnabledChapter, ZELTA_RULE_TEXT("No enabled chapters: the session will get no markers.") },
    ExportRule { hindenburg, sessionWithoutEnd,
        ZELTA_RULE_TEXT("The session has no </Session>: there is no place for the markers.") },
    ExportRule { hindenburg, beforeTheStart, ZELTA_RULE_TEXT("A session knows no negative times: see %1.") },
    ExportRule { hindenburg, unescapedMarkup,
        ZELTA_RULE_TEXT("A session with < or \" in a text may not open again: there is one in %1.") },
    ExportRule { hindenburg, forbiddenInXml, notXml },

    ExportRule { json, noEnabledChapter, noChapters },
    ExportRule { json, beforeTheStart, beforeStart },
    ExportRule { json, afterTheEnd, pastEnd },
    ExportRule { json, inTheSameMillisecond, sameTime },

    ExportRule { markdown, noEnabledChapter, emptyFile },
    ExportRule { markdown, beforeTheStartIfTimed, signDropped },
    ExportRule {
        markdown, inTheSameSecondIfTimed, ZELTA_RULE_TEXT("Times are whole seconds: %1 fall into the same second.") },
    ExportRule { markdown, markdownInTitles,
        ZELTA_RULE_TEXT("Markdown reads * _ ` [ ] < and \\ as formatting: there is one in the title of %1.") },
    ExportRule { markdown, brokenMarkdownLinks,
        ZELTA_RULE_TEXT("Markdown links break at blanks, < or > and unpaired parentheses: see the link of %1.") },
    ExportRule { markdown, lineBreaks, oneLine },

    ExportRule { podlove, noEnabledChapter, noChapters },
    ExportRule { podlove, beforeTheStart, beforeStart },
    ExportRule { podlove, afterTheEnd, pastEnd },
    ExportRule { podlove, inTheSameMillisecond, sameTime },
    ExportRule { podlove, forbiddenInXml, notXml },

    ExportRule { tags, noEnabledChapter, emptyFile },
    ExportRule { tags, emptyTitles, ZELTA_RULE_TEXT("A tag needs a text: there is no title in %1.") },
    ExportRule { tags, commasInTitles,
        ZELTA_RULE_TEXT("Tags end at a comma, so that one title becomes two: there is one in %1.") },
    ExportRule {
        tags, lineBreaksInTitles, ZELTA_RULE_TEXT("All tags stand on one line: there is a line break in %1.") },

    // https://support.google.com/youtube/answer/9884579 and the "description" of
    // https://developers.google.com/youtube/v3/docs/videos
    ExportRule { youTube, noEnabledChapter, emptyFile },
    ExportRule { youTube, unfitForYouTube,
        ZELTA_RULE_TEXT("YouTube needs a first chapter at 00:00, at least three, each ten seconds or longer: %1.") },
    ExportRule { youTube, inTheSameSecond,
        ZELTA_RULE_TEXT("Times are whole seconds, and YouTube wants them to rise: %1 fall into the same second.") },
    ExportRule { youTube, beforeTheStart, signDropped },
    ExportRule { youTube, afterTheEnd, pastEnd },
    ExportRule { youTube, angleBracketsInTitles,
        ZELTA_RULE_TEXT("YouTube takes no < or > in a description: there is one in the title of %1.") },
    ExportRule { youTube, links,
        ZELTA_RULE_TEXT("YouTube takes no < or > in a description: remove them around the link of %1.") },
    ExportRule { youTube, lineBreaks, oneLine },
    ExportRule { youTube, tooLongForYouTube, ZELTA_RULE_TEXT("A YouTube description holds 5000 bytes: these are %1.") },
};

#undef ZELTA_RULE_TEXT

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

QStringList ZLExportAdvice::formatsWithRules()
{
    QStringList names;
    for (const ExportRule& rule : exportRules) {
        if (!names.contains(rule.format))
            names += rule.format;
    }
    return names;
}
