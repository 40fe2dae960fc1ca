#include "export/lists/ZLListAdvice.h"

#include "export/formats/ZLExportFindings.h"
#include "export/formats/ZLNumberedChapters.h"
#include "lists/ZLListText.h"
#include "lists/forms/ZLCueSheet.h"
#include "lists/forms/ZLShowNotes.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

/// A finding and the sentence that tells it; %1 is the finding.
struct ToldFinding {
    ZLExportFinding finding;
    const char* text;
};

constexpr auto noChapters = QT_TRANSLATE_NOOP("ZLListAdvice", "No enabled chapters: the file will hold none.");
constexpr auto beforeStart = QT_TRANSLATE_NOOP("ZLListAdvice", "Chapters before the start are left out: see %1.");
constexpr auto pastEnd =
    QT_TRANSLATE_NOOP("ZLListAdvice", "Players never reach chapters after the end of the recording: see %1.");
constexpr auto sameTime = QT_TRANSLATE_NOOP("ZLListAdvice", "Players show one of two chapters with the same time: %1.");
constexpr auto noTitle = QT_TRANSLATE_NOOP("ZLListAdvice", "There is no title in %1.");
constexpr auto broken =
    QT_TRANSLATE_NOOP("ZLListAdvice", "A broken character is written as a replacement sign: there is one in %1.");
constexpr auto lateTrack =
    QT_TRANSLATE_NOOP("ZLListAdvice", "Many programs read a CUE sheet only up to 99 minutes: see %1.");

constexpr auto links = QT_TRANSLATE_NOOP("ZLListAdvice", "This format has no links: the link is left out in %1.");
constexpr auto lineBreaks = QT_TRANSLATE_NOOP("ZLListAdvice", "A line break becomes a blank: there is one in %1.");
constexpr auto controls = QT_TRANSLATE_NOOP("ZLListAdvice", "A control character becomes a blank: there is one in %1.");
constexpr auto brackets =
    QT_TRANSLATE_NOOP("ZLListAdvice", "Chapter readers misread < and > as a link: there is one in the title of %1.");
constexpr auto quotes = QT_TRANSLATE_NOOP("ZLListAdvice", "A double quote becomes a single one: there is one in %1.");
constexpr auto ninetyNine =
    QT_TRANSLATE_NOOP("ZLListAdvice", "A sheet holds 99 chapters at most; the others are left out, from %1 on.");

/// Chapters with something beyond `limit` in a text that the form holds.
ZLExportFinding beyond(const ZLListForm& form, const ZLExportInput& input, ZLListLimit limit)
{
    const bool hasLinks = !form.limits.testFlag(ZLListLimit::Links);
    return ZLNumberedChapters::that(input, [=](const ZLChapter& chapter) {
        return ZLListText::isBeyond(chapter.title(), limit)
            || (hasLinks && ZLListText::isBeyond(chapter.link(), limit));
    });
}

/// The first chapter that is left out.
ZLExportFinding beyondNinetyNine(const ZLExportInput& input)
{
    constexpr int most = 99;
    int count = 0;
    return ZLNumberedChapters::that(
        input, [&count](const ZLChapter& chapter) { return !(chapter.timeStamp() < 0.0) && ++count == most + 1; });
}

ZLExportFinding beyondNinetyNineMinutes(const ZLExportInput& input)
{
    constexpr double end = 100.0 * 60.0;
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) { return chapter.timeStamp() >= end; });
}

QList<ToldFinding> ofEveryList(const ZLExportInput& input)
{
    return { { ZLExportFindings::noEnabledChapter(input), noChapters },
        { ZLExportFindings::beforeTheStart(input), beforeStart }, { ZLExportFindings::emptyTitles(input), noTitle },
        { ZLExportFindings::brokenCharacters(input), broken } };
}

QList<ToldFinding> ofForm(const ZLListForm& form, const ZLExportInput& input)
{
    QList<ToldFinding> findings;
    // Notes are read by people.
    if (form.name != ZLShowNotes::form().name)
        findings += { { ZLExportFindings::afterTheEnd(input), pastEnd },
            { ZLExportFindings::inTheSameMillisecond(input), sameTime } };
    if (form.name == ZLCueSheet::form().name)
        findings += { beyondNinetyNineMinutes(input), lateTrack };
    return findings;
}

QList<ToldFinding> ofLimits(const ZLListForm& form, const ZLExportInput& input)
{
    QList<ToldFinding> findings;
    const auto add = [&](ZLListLimit limit, const ZLExportFinding& finding, const char* text) {
        if (form.limits.testFlag(limit))
            findings.append({ finding, text });
    };
    add(ZLListLimit::Links, ZLExportFindings::links(input), links);
    add(ZLListLimit::LineBreaks, beyond(form, input, ZLListLimit::LineBreaks), lineBreaks);
    add(ZLListLimit::ControlCharacters, beyond(form, input, ZLListLimit::ControlCharacters), controls);
    add(ZLListLimit::AngleBrackets, ZLExportFindings::angleBracketsInTitles(input), brackets);
    add(ZLListLimit::DoubleQuotes, beyond(form, input, ZLListLimit::DoubleQuotes), quotes);
    add(ZLListLimit::NinetyNineChapters, beyondNinetyNine(input), ninetyNine);
    return findings;
}

}

QStringList ZLListAdvice::lines(const ZLListForm& form, const ZLExportInput& input)
{
    QStringList lines;
    const QList<ToldFinding> findings = ofEveryList(input) + ofForm(form, input) + ofLimits(form, input);
    for (const ToldFinding& told : findings) {
        if (told.finding)
            lines += QCoreApplication::translate("ZLListAdvice", told.text).replace("%1"_L1, *told.finding);
    }
    return lines;
}
