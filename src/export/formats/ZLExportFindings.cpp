#include "export/formats/ZLExportFindings.h"

#include "export/formats/ZLChapterText.h"
#include "export/formats/ZLNumberedChapters.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using namespace ZLExportFindings;

struct FindingTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLExportFindings)
};

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

}

QList<ZLExportFindings::NumberedChapter> ZLExportFindings::enabledChapters(const ZLExportInput& input)
{
    QList<NumberedChapter> enabled;
    for (qsizetype i = 0; i < input.chapters.size(); ++i) {
        if (input.chapters.at(i)->isEnabled())
            enabled.append({ i + 1, input.chapters.at(i).get() });
    }
    return enabled;
}

bool ZLExportFindings::isEndKnown(const ZLExportInput& input)
{
    return input.duration > 0.0 && !input.isRecording;
}

bool ZLExportFindings::holdsLineBreak(const QString& text)
{
    return text.contains(u'\n') || text.contains(u'\r') || text.contains(QChar::LineSeparator)
        || text.contains(QChar::ParagraphSeparator);
}

bool ZLExportFindings::holdsAnyOf(const QString& text, QLatin1StringView characters)
{
    return std::any_of(text.cbegin(), text.cend(), [&](QChar character) { return characters.contains(character); });
}

bool ZLExportFindings::holdsForbiddenInXml(const QString& text)
{
    return holdsAny(text, isForbiddenInXml);
}

bool ZLExportFindings::holdsControlCharacterThatXmlTakes(const QString& text)
{
    return holdsAny(text, isControlCharacterThatXmlTakes);
}

ZLExportFinding ZLExportFindings::noEnabledChapter(const ZLExportInput& input)
{
    return enabledChapters(input).isEmpty() ? ZLExportFinding(somethingFound) : std::nullopt;
}

ZLExportFinding ZLExportFindings::beforeTheStart(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) { return chapter.timeStamp() < 0.0; });
}

ZLExportFinding ZLExportFindings::afterTheEnd(const ZLExportInput& input)
{
    if (!isEndKnown(input))
        return std::nullopt;
    return ZLNumberedChapters::that(
        input, [&](const ZLChapter& chapter) { return chapter.timeStamp() > input.duration; });
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

ZLExportFinding ZLExportFindings::emptyTitles(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return chapter.title().trimmed().isEmpty(); });
}

ZLExportFinding ZLExportFindings::forbiddenInXml(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) {
        return holdsForbiddenInXml(chapter.title()) || holdsForbiddenInXml(chapter.link());
    });
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
        return holdsControlCharacterThatXmlTakes(chapter.title()) || holdsControlCharacterThatXmlTakes(chapter.link());
    });
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
