#include "app/ZLChapterListing.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace {

struct ListingTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLChapterListing)
};

struct CodePointRange {
    char32_t first;
    char32_t last;
};

/// The blocks whose characters a terminal shows two cells wide: Hangul, CJK, full-width forms and emoji.
constexpr std::array<CodePointRange, 10> doubleWidthRanges { {
    { 0x1100, 0x115F },
    { 0x2E80, 0x303E },
    { 0x3041, 0xA4CF },
    { 0xAC00, 0xD7A3 },
    { 0xF900, 0xFAFF },
    { 0xFE30, 0xFE6F },
    { 0xFF00, 0xFF60 },
    { 0xFFE0, 0xFFE6 },
    { 0x1F300, 0x1FAFF },
    { 0x20000, 0x3FFFD },
} };

int cellsOf(char32_t character)
{
    constexpr char32_t endOfASCII = 0x80;
    if (character < endOfASCII)
        return 1;
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0;
    default:
        return std::ranges::any_of(doubleWidthRanges,
                   [=](const CodePointRange& range) { return range.first <= character && character <= range.last; })
            ? 2
            : 1;
    }
}

int cellsOf(const QString& text)
{
    int cells = 0;
    for (const char32_t character : text.toUcs4())
        cells += cellsOf(character);
    return cells;
}

QString onOneLine(QString text)
{
    for (QChar& character : text) {
        const auto category = character.category();
        if (character.isSpace())
            character = u' ';
        else if (category == QChar::Other_Control)
            character = QChar::ReplacementCharacter;
    }
    return text;
}

enum class Alignment { Left, Right };

/// One column of cells, each as wide as the widest; a very wide cell sticks out instead of moving all others.
void alignColumn(std::span<QStringList> rows, int column, Alignment alignment)
{
    constexpr int widestPadding = 60;
    int width = 0;
    for (const QStringList& row : rows)
        width = std::max(width, cellsOf(row.at(column)));
    width = std::min(width, widestPadding);
    for (QStringList& row : rows) {
        const QString padding(std::max(0, width - cellsOf(row.at(column))), u' ');
        row[column] = alignment == Alignment::Left ? row.at(column) + padding : padding + row.at(column);
    }
}

QList<QStringList> listingRows(const ZLChapterSequence& chapters)
{
    QList<QStringList> rows { { u"#"_s, ListingTexts::tr("Enabled"), ListingTexts::tr("Time"),
        ListingTexts::tr("Duration"), ListingTexts::tr("Title"), ListingTexts::tr("Link") } };
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const ZLChapter& chapter = *chapters.at(index);
        const bool isLast = index + 1 == chapters.size();
        rows.append(
            { QString::number(index + 1), chapter.isEnabled() ? ListingTexts::tr("yes") : ListingTexts::tr("no"),
                chapter.timeString(), isLast ? QString() : chapter.durationToNextChapter(*chapters.at(index + 1)),
                onOneLine(chapter.title()), onOneLine(chapter.link()) });
    }
    return rows;
}

QString withoutTrailingBlanks(QString line)
{
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}

QString recordedLine(double duration)
{
    ZLChapter end;
    end.setTimeStamp(duration);
    return ListingTexts::tr("Recorded: %1\n").arg(end.timeString());
}

QJsonValue textOrNull(const QString& text)
{
    return text.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(text);
}

QJsonValue dateOrNull(const QDateTime& date)
{
    if (!date.isValid() || date == ZLChapter::distantPast())
        return QJsonValue::Null;
    const QString text = date.toUTC().toString(Qt::ISODateWithMs);
    return text.isEmpty() ? QJsonValue(QJsonValue::Null) : QJsonValue(text);
}

QJsonArray chaptersAsJson(const ZLChapterSequence& chapters)
{
    QJsonArray array;
    for (const ZLChapterPointer& chapter : chapters) {
        array.append(QJsonObject {
            { u"timeStamp"_s, chapter->timeStamp() },
            { u"enabled"_s, chapter->isEnabled() },
            { u"title"_s, textOrNull(chapter->title()) },
            { u"link"_s, textOrNull(chapter->link()) },
            { u"tags"_s, textOrNull(chapter->tags()) },
            { u"date"_s, dateOrNull(chapter->realDate()) },
            { u"uuid"_s, textOrNull(chapter->uuid()) },
        });
    }
    return array;
}

}

QString ZLChapterListing::table(const ZLChapterSequence& chapters, double duration)
{
    if (chapters.isEmpty())
        return ListingTexts::tr("No chapters.\n") + recordedLine(duration);
    QList<QStringList> rows = listingRows(chapters);
    const qsizetype lastColumn = rows.constFirst().size() - 1;
    for (int column = 0; column < lastColumn; ++column)
        alignColumn(rows, column, column == 0 ? Alignment::Right : Alignment::Left);
    QString text;
    for (const QStringList& row : std::as_const(rows))
        text += withoutTrailingBlanks(row.join("  "_L1)) + u'\n';
    return text + u'\n' + recordedLine(duration);
}

QByteArray ZLChapterListing::json(
    const ZLChapterSequence& chapters, double duration, const ZLChapterSequence& templates)
{
    return QJsonDocument(QJsonObject {
                             { u"duration"_s, duration },
                             { u"chapters"_s, chaptersAsJson(chapters) },
                             { u"templates"_s, chaptersAsJson(templates) },
                         })
        .toJson();
}
