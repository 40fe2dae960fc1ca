#include "export/formats/ZLExportFindings.h"

#include "export/formats/ZLChapterText.h"
#include "export/formats/ZLHindenburgExporter.h"
#include "export/formats/ZLNumberedChapters.h"
#include "export/formats/ZLSessionMarkers.h"
#include "export/formats/ZLYouTubeExporter.h"
#include "model/ZLTimeText.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString somethingFound = u""_s;

struct FindingTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLExportFindings)
};

/// An enabled chapter with its number.
struct NumberedChapter {
    qsizetype number;
    const ZLChapter* chapter;
    [[nodiscard]] std::uint64_t seconds() const { return ZLChapterText::unsignedMilliseconds(*chapter) / 1000; }
};

QList<NumberedChapter> enabledChapters(const ZLExportInput& input)
{
    QList<NumberedChapter> enabled;
    for (qsizetype i = 0; i < input.chapters.size(); ++i) {
        if (input.chapters.at(i)->isEnabled())
            enabled.append({ i + 1, input.chapters.at(i).get() });
    }
    return enabled;
}

/// Pairs of neighbours with the same `time`, by the number of the second.
template <typename Time>
ZLExportFinding neighboursWithTheSame(const ZLExportInput& input, Time time)
{
    QList<qsizetype> numbers;
    qsizetype previousNumber = 0;
    const auto enabled = enabledChapters(input);
    for (qsizetype i = 1; i < enabled.size(); ++i) {
        if (time(*enabled.at(i).chapter) != time(*enabled.at(i - 1).chapter))
            continue;
        previousNumber = enabled.at(i - 1).number;
        numbers.append(enabled.at(i).number);
    }
    if (numbers.isEmpty())
        return std::nullopt;
    if (numbers.size() == 1)
        return FindingTexts::tr("chapters %1 and %2").arg(previousNumber).arg(numbers.constFirst());
    return FindingTexts::tr("%1 (each with the one before)").arg(ZLNumberedChapters::text(numbers));
}

bool isEndKnown(const ZLExportInput& input)
{
    return input.duration > 0.0 && !input.isRecording;
}

/// The enabled chapters that take from 1 to 9 seconds, as written; the last ends with the recording.
QStringList shortChapters(const ZLExportInput& input, const QList<NumberedChapter>& enabled)
{
    constexpr std::uint64_t leastSeconds = 10;
    QList<qsizetype> numbers;
    std::uint64_t lastLength = 0;
    for (qsizetype i = 0; i < enabled.size(); ++i) {
        const bool isLast = i + 1 == enabled.size();
        if (isLast && !isEndKnown(input))
            break;
        const std::uint64_t begin = enabled.at(i).seconds();
        const std::uint64_t end = isLast ? ZLTimeText::truncated(input.duration) : enabled.at(i + 1).seconds();
        if (end <= begin || end - begin >= leastSeconds)
            continue;
        numbers.append(enabled.at(i).number);
        lastLength = end - begin;
    }
    if (numbers.isEmpty())
        return {};
    if (numbers.size() == 1)
        return {
            FindingTexts::tr("chapter %1 is only %2 s long (10 s minimum)").arg(numbers.constFirst()).arg(lastLength)
        };
    return { FindingTexts::tr("%1 are shorter than 10 s").arg(ZLNumberedChapters::text(numbers)) };
}

bool holdsLineBreak(const QString& text)
{
    return text.contains(u'\n') || text.contains(u'\r') || text.contains(QChar::LineSeparator)
        || text.contains(QChar::ParagraphSeparator);
}

bool holdsAnyOf(const QString& text, QLatin1StringView characters)
{
    return std::any_of(text.cbegin(), text.cend(), [&](QChar character) { return characters.contains(character); });
}

bool holdsAny(const QString& text, bool (*isMeant)(QChar character))
{
    return std::any_of(text.cbegin(), text.cend(), isMeant);
}

bool isControlCharacter(QChar character)
{
    return character.category() == QChar::Other_Control && character != u'\t' && character != u'\n'
        && character != u'\r';
}

bool isForbiddenInXml(QChar character)
{
    constexpr char16_t firstPrintable = 0x20;
    return (isControlCharacter(character) && character.unicode() < firstPrintable) || character == QChar(0xFFFE)
        || character == QChar(0xFFFF);
}

bool isControlCharacterThatXmlTakes(QChar character)
{
    return isControlCharacter(character) && !isForbiddenInXml(character);
}

bool holdsForbiddenInXml(const QString& text)
{
    return holdsAny(text, isForbiddenInXml);
}

}

ZLExportFinding ZLExportFindings::noEnabledChapter(const ZLExportInput& input)
{
    return enabledChapters(input).isEmpty() ? ZLExportFinding(somethingFound) : std::nullopt;
}

ZLExportFinding ZLExportFindings::noChapterFromTheStartOn(const ZLExportInput& input)
{
    const auto isWritten = [](const ZLChapterPointer& chapter) { return !(chapter->timeStamp() < 0.0); };
    return std::ranges::any_of(input.chapters, isWritten) ? std::nullopt : ZLExportFinding(somethingFound);
}

ZLExportFinding ZLExportFindings::beforeTheStart(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) { return chapter.timeStamp() < 0.0; });
}

ZLExportFinding ZLExportFindings::anyBeforeTheStart(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return chapter.timeStamp() < 0.0; }, ZLNumberedChapters::Which::All);
}

ZLExportFinding ZLExportFindings::afterTheEnd(const ZLExportInput& input)
{
    if (!isEndKnown(input))
        return std::nullopt;
    return ZLNumberedChapters::that(
        input, [&](const ZLChapter& chapter) { return chapter.timeStamp() > input.duration; });
}

ZLExportFinding ZLExportFindings::anyAfterTheFinishedSpans(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [&](const ZLChapter& chapter) { return chapter.timeStamp() > input.duration; },
        ZLNumberedChapters::Which::All);
}

ZLExportFinding ZLExportFindings::beyond32Bits(const ZLExportInput& input)
{
    constexpr double lastMillisecond = std::numeric_limits<std::int32_t>::max();
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return chapter.timeStamp() * 1000.0 > lastMillisecond; },
        ZLNumberedChapters::Which::All);
}

ZLExportFinding ZLExportFindings::recordingGoesOn(const ZLExportInput& input)
{
    return input.isRecording ? ZLExportFinding(somethingFound) : std::nullopt;
}

ZLExportFinding ZLExportFindings::inTheSameSecond(const ZLExportInput& input)
{
    return neighboursWithTheSame(
        input, [](const ZLChapter& chapter) { return ZLChapterText::unsignedMilliseconds(chapter) / 1000; });
}

ZLExportFinding ZLExportFindings::inTheSameMillisecond(const ZLExportInput& input)
{
    return neighboursWithTheSame(input, [](const ZLChapter& chapter) {
        return std::pair(chapter.timeStamp() < 0.0, ZLChapterText::unsignedMilliseconds(chapter));
    });
}

ZLExportFinding ZLExportFindings::inTheSameSecondIfTimed(const ZLExportInput& input)
{
    return input.option == ZLExportOption::On ? inTheSameSecond(input) : std::nullopt;
}

ZLExportFinding ZLExportFindings::beforeTheStartIfTimed(const ZLExportInput& input)
{
    return input.option == ZLExportOption::On ? beforeTheStart(input) : std::nullopt;
}

ZLExportFinding ZLExportFindings::unfitForYouTube(const ZLExportInput& input)
{
    constexpr qsizetype leastChapters = 3;
    const auto enabled = enabledChapters(input);
    if (enabled.isEmpty())
        return std::nullopt;
    QStringList findings;
    if (enabled.constFirst().seconds() != 0)
        findings += FindingTexts::tr("the first is at %1 (00:00 needed)")
                        .arg(ZLYouTubeExporter::timeStringForChapter(*enabled.constFirst().chapter));
    if (enabled.size() < leastChapters)
        findings += enabled.size() == 1 ? FindingTexts::tr("there is only 1 (3 minimum)")
                                        : FindingTexts::tr("there are only %1 (3 minimum)").arg(enabled.size());
    findings += shortChapters(input, enabled);
    return findings.isEmpty() ? std::nullopt : ZLExportFinding(findings.join("; "_L1));
}

ZLExportFinding ZLExportFindings::tooLongForYouTube(const ZLExportInput& input)
{
    constexpr qsizetype mostBytes = 5000;
    const auto bytes = ZLYouTubeExporter().exportedBytes(input);
    if (!bytes || bytes.value().size() <= mostBytes)
        return std::nullopt;
    return QString::number(bytes.value().size());
}

ZLExportFinding ZLExportFindings::angleBracketsInTitles(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return holdsAnyOf(chapter.title(), "<>"_L1); });
}

ZLExportFinding ZLExportFindings::links(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) { return !chapter.link().isEmpty(); });
}

ZLExportFinding ZLExportFindings::lineBreaks(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input,
        [](const ZLChapter& chapter) { return holdsLineBreak(chapter.title()) || holdsLineBreak(chapter.link()); });
}

ZLExportFinding ZLExportFindings::lineBreaksInTitles(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) { return holdsLineBreak(chapter.title()); });
}

ZLExportFinding ZLExportFindings::commasInTitles(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) { return chapter.title().contains(u','); });
}

ZLExportFinding ZLExportFindings::emptyTitles(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return chapter.title().trimmed().isEmpty(); });
}

ZLExportFinding ZLExportFindings::markdownInTitles(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return holdsAnyOf(chapter.title(), "*_`[]<\\"_L1); });
}

ZLExportFinding ZLExportFindings::brokenMarkdownLinks(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) {
        return holdsAnyOf(chapter.link(), " \t<>"_L1) || chapter.link().count(u'(') != chapter.link().count(u')');
    });
}

ZLExportFinding ZLExportFindings::unescapedMarkup(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) {
        return holdsAnyOf(chapter.title(), "<\""_L1) || holdsAnyOf(chapter.link(), "<\""_L1);
    });
}

ZLExportFinding ZLExportFindings::forbiddenInXml(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) {
        return holdsForbiddenInXml(chapter.title()) || holdsForbiddenInXml(chapter.link());
    });
}

ZLExportFinding ZLExportFindings::anyTitleForbiddenInXml(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return holdsForbiddenInXml(chapter.title()); },
        ZLNumberedChapters::Which::All);
}

ZLExportFinding ZLExportFindings::controlCharacters(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) {
        return holdsAny(chapter.title(), isControlCharacter) || holdsAny(chapter.link(), isControlCharacter);
    });
}

ZLExportFinding ZLExportFindings::controlCharactersInTitles(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return holdsAny(chapter.title(), isControlCharacter); });
}

ZLExportFinding ZLExportFindings::controlCharactersThatXmlTakes(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) {
        return holdsAny(chapter.title(), isControlCharacterThatXmlTakes)
            || holdsAny(chapter.link(), isControlCharacterThatXmlTakes);
    });
}

ZLExportFinding ZLExportFindings::anyTitleWithControlCharactersThatXmlTakes(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return holdsAny(chapter.title(), isControlCharacterThatXmlTakes); },
        ZLNumberedChapters::Which::All);
}

ZLExportFinding ZLExportFindings::brokenCharacters(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input,
        [](const ZLChapter& chapter) { return !chapter.title().isValidUtf16() || !chapter.link().isValidUtf16(); });
}

ZLExportFinding ZLExportFindings::brokenCharactersInTitles(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) { return !chapter.title().isValidUtf16(); });
}

ZLExportFinding ZLExportFindings::anyTitleWithBrokenCharacters(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return !chapter.title().isValidUtf16(); },
        ZLNumberedChapters::Which::All);
}

ZLExportFinding ZLExportFindings::markupInFileName(const ZLExportInput& input)
{
    const bool isUnfit = holdsAnyOf(input.fileBaseName, "&<\""_L1) || holdsForbiddenInXml(input.fileBaseName);
    return isUnfit ? ZLExportFinding(somethingFound) : std::nullopt;
}

ZLExportFinding ZLExportFindings::sessionWithoutEnd(const ZLExportInput& input)
{
    const QByteArray& session = input.existingBytes;
    const bool isUnfit = !session.isEmpty() && !ZLHindenburgExporter::takesMarkers(session);
    return isUnfit ? ZLExportFinding(somethingFound) : std::nullopt;
}

ZLExportFinding ZLExportFindings::inTheSessionAlready(const ZLExportInput& input)
{
    const auto markers = ZLSessionMarkers::in(input.existingBytes);
    if (markers.isEmpty())
        return std::nullopt;
    return ZLNumberedChapters::that(input, [&markers](const ZLChapter& chapter) {
        const double milliseconds = ZLHindenburgExporter::markerTime(chapter).toDouble() * 1000.0;
        constexpr double longest = 1e15;
        return std::fabs(milliseconds) < longest && markers.contains({ std::llround(milliseconds), chapter.title() });
    });
}
