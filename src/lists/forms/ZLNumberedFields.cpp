#include "lists/forms/ZLNumberedFields.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"

#include <QCoreApplication>
#include <QMap>

using namespace Qt::StringLiterals;

namespace {

struct FieldsTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLNumberedFields)
};

/// "CHAPTER01NAME=Title" in its pieces.
struct NumberedField {
    int number;
    QString suffix;
    QStringView value;
};

struct NumberedChapter {
    qsizetype line = 0;
    std::optional<double> start {};
    QString title {};
    QString link {};
};

std::optional<NumberedField> fieldIn(QStringView line)
{
    constexpr auto prefix = "CHAPTER"_L1;
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0 || !line.startsWith(prefix, Qt::CaseInsensitive))
        return std::nullopt;
    const QStringView key = line.first(equals).sliced(prefix.size());
    qsizetype digits = 0;
    while (digits < key.size() && key.at(digits) >= u'0' && key.at(digits) <= u'9')
        ++digits;
    if (digits < 2 || digits > 3)
        return std::nullopt;
    return NumberedField { key.first(digits).toInt(), key.sliced(digits).toString().toUpper(),
        line.sliced(equals + 1) };
}

bool recognises(const ZLListSource& source)
{
    const auto& lines = source.lines();
    return std::any_of(lines.cbegin(), lines.cend(), [](QStringView line) { return fieldIn(line).has_value(); });
}

/// Takes the field over; says whether it was understood.
bool take(NumberedChapter& chapter, const NumberedField& field)
{
    if (field.suffix.isEmpty())
        chapter.start = ZLListTime::fromClock(field.value.trimmed());
    else if (field.suffix == "NAME"_L1)
        chapter.title = field.value.toString();
    else if (field.suffix == "URL"_L1)
        chapter.link = field.value.toString();
    else
        return false;
    return !field.suffix.isEmpty() || chapter.start;
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    ZLChapterList list;
    QMap<int, NumberedChapter> chapters;
    for (qsizetype i = 0; i < source.lines().size(); ++i) {
        const auto field = fieldIn(source.lines().at(i));
        if (field && !chapters.contains(field->number))
            chapters[field->number].line = i;
        if (field ? !take(chapters[field->number], *field) : !source.lines().at(i).trimmed().isEmpty())
            ZLListText::noteUnknownLine(list, i, source.lines().at(i));
    }
    for (const NumberedChapter& chapter : std::as_const(chapters)) {
        if (chapter.start)
            list.chapters.append({ *chapter.start, chapter.title, chapter.link });
        else
            list.remarks.append(
                ZLListText::remark(chapter.line, FieldsTexts::tr("This chapter has no time and was left out.")));
    }
    return QList { list };
}

}

ZLListForm ZLNumberedFields::form()
{
    return { .name = "OGM Chapters"_L1,
        .fileType = "txt"_L1,
        .unitsPerSecond = 1000.0,
        .limits = ZLListLimit::LineBreaks,
        .recognises = recognises,
        .read = read,
        .write = nullptr };
}
