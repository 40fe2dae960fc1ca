#include "lists/forms/ZLReaperMarkers.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"

#include <QCoreApplication>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

struct ReaperTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLReaperMarkers)
};

/// The fields of one line: a field in double quotes may hold commas, and doubled quotes stand for one.
QStringList fieldsOf(QStringView line)
{
    QStringList fields { QString() };
    bool isQuoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar character = line.at(i);
        if (character == u'"' && isQuoted && i + 1 < line.size() && line.at(i + 1) == u'"')
            fields.last() += line.at(++i);
        else if (character == u'"' && (isQuoted || fields.constLast().isEmpty()))
            isQuoted = !isQuoted;
        else if (character == u',' && !isQuoted)
            fields.append(QString());
        else
            fields.last() += character;
    }
    return fields;
}

QString fieldWith(const QString& text)
{
    if (!text.contains(u',') && !text.contains(u'"'))
        return text;
    return u'"' + QString(text).replace(u'"', "\"\""_L1) + u'"';
}

/// In which column a heading stands.
struct Columns {
    qsizetype name;
    qsizetype start;
};

std::optional<Columns> columnsIn(QStringView heading)
{
    const QStringList headings = fieldsOf(heading);
    const Columns columns { headings.indexOf("Name"_L1), headings.indexOf("Start"_L1) };
    if (headings.constFirst() != "#"_L1 || columns.name < 0 || columns.start < 0)
        return std::nullopt;
    return columns;
}

/// "12.3.00": measure, beat and hundredths. They are no time without the project's tempo.
bool isBeats(const QString& time)
{
    return time.count(u'.') == 2 && !time.contains(u':');
}

bool recognises(const ZLListSource& source)
{
    return columnsIn(source.firstFullLine().trimmed()).has_value();
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    const Columns columns = *columnsIn(source.firstFullLine().trimmed());
    ZLChapterList list;
    bool isBelowHeading = false;
    for (qsizetype i = 0; i < source.lines().size(); ++i) {
        const QStringView line = source.lines().at(i);
        if (line.trimmed().isEmpty() || !std::exchange(isBelowHeading, true))
            continue;
        const QStringList fields = fieldsOf(line);
        const QString time = fields.value(columns.start).trimmed();
        if (isBeats(time))
            return ZLError { ReaperTexts::tr(
                "The times are in beats. Set REAPER's ruler to minutes and seconds and export the markers again.") };
        if (const auto start = ZLListTime::fromClock(time, 1))
            list.chapters.append({ *start, fields.value(columns.name) });
        else
            ZLListText::noteUnknownLine(list, i, source.lines().at(i));
    }
    return QList { list };
}

QByteArray write(const ZLListToWrite& list)
{
    QString text = u"#,Name,Start,End,Length\n"_s;
    for (qsizetype i = 0; i < list.chapters.size(); ++i) {
        const ZLListedChapter& chapter = list.chapters.at(i);
        text += u'M' + QString::number(i + 1) + u',' + fieldWith(chapter.title) + u','
            + ZLListTime::clock(chapter.start) + ",,\n"_L1;
    }
    return text.toUtf8();
}

}

ZLListForm ZLReaperMarkers::form()
{
    return { .name = "REAPER Markers"_L1,
        .fileType = "csv"_L1,
        .unitsPerSecond = 1000.0,
        .limits = ZLListLimit::Links | ZLListLimit::LineBreaks | ZLListLimit::ControlCharacters,
        .recognises = recognises,
        .read = read,
        .write = write };
}
