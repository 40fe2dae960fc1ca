#include "lists/forms/ZLShowNotes.h"

#include "lists/ZLListTime.h"

using namespace Qt::StringLiterals;

namespace {

/// What stands in the place of `{name}`; absent for a name that is none.
std::optional<QString> valueOf(QStringView name, const ZLListedChapter& chapter, qsizetype number)
{
    if (name == "time"_L1)
        return ZLListTime::shortClock(chapter.start);
    if (name == "title"_L1)
        return chapter.title;
    if (name == "link"_L1)
        return chapter.link;
    if (name == "number"_L1)
        return QString::number(number);
    return std::nullopt;
}

/// One pass over the pattern, so that a title which holds a place mark stays as it is.
QString lineFor(QStringView pattern, const ZLListedChapter& chapter, qsizetype number)
{
    QString line;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const qsizetype end = pattern.at(i) == u'{' ? pattern.indexOf(u'}', i) : -1;
        const auto value = end < 0 ? std::nullopt : valueOf(pattern.sliced(i + 1, end - i - 1), chapter, number);
        if (value)
            i = end;
        line += value ? *value : QString(pattern.at(i));
    }
    while (!line.isEmpty() && line.back().isSpace())
        line.chop(1);
    return line;
}

QByteArray write(const ZLListToWrite& list)
{
    const QString pattern = list.linePattern.isEmpty() ? ZLShowNotes::usualPattern() : list.linePattern;
    QString text;
    for (qsizetype i = 0; i < list.chapters.size(); ++i)
        text += lineFor(pattern, list.chapters.at(i), i + 1) + u'\n';
    return text.toUtf8();
}

}

ZLListForm ZLShowNotes::form()
{
    return { .name = "Show Notes"_L1,
        .fileType = "txt"_L1,
        .unitsPerSecond = 1.0,
        .limits = ZLListLimit::LineBreaks | ZLListLimit::ControlCharacters,
        .recognises = nullptr,
        .read = nullptr,
        .write = write };
}

QString ZLShowNotes::usualPattern()
{
    return u"({time}) {title} {link}"_s;
}
