#include "lists/forms/ZLAudacityLabels.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"

using namespace Qt::StringLiterals;

namespace {

std::optional<ZLListedChapter> labelIn(QStringView line)
{
    const qsizetype firstTab = line.indexOf(u'\t');
    if (firstTab < 0)
        return std::nullopt;
    qsizetype secondTab = line.indexOf(u'\t', firstTab + 1);
    if (secondTab < 0)
        secondTab = line.size();
    const auto start = ZLListTime::fromNumber(line.first(firstTab));
    if (!start || !ZLListTime::fromNumber(line.sliced(firstTab + 1, secondTab - firstTab - 1)))
        return std::nullopt;
    return ZLListedChapter { *start, line.sliced(std::min(secondTab + 1, line.size())).toString() };
}

bool recognises(const ZLListSource& source)
{
    return labelIn(source.firstFullLine()).has_value();
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    ZLChapterList list;
    for (qsizetype i = 0; i < source.lines().size(); ++i) {
        const QStringView line = source.lines().at(i);
        if (const auto label = labelIn(line))
            list.chapters.append(*label);
        else if (!line.trimmed().isEmpty() && !line.startsWith(u'\\'))
            ZLListText::noteUnknownLine(list, i, source.lines().at(i));
    }
    return QList { list };
}

QByteArray write(const ZLListToWrite& list)
{
    constexpr int decimals = 6;
    QString text;
    for (const ZLListedChapter& chapter : list.chapters) {
        const QString time = ZLListTime::number(chapter.start, decimals);
        text += time + u'\t' + time + u'\t' + chapter.title + u'\n';
    }
    return text.toUtf8();
}

}

ZLListForm ZLAudacityLabels::form()
{
    return { .name = "Audacity Labels"_L1,
        .fileType = "txt"_L1,
        .unitsPerSecond = 1e6,
        .limits = ZLListLimit::Links | ZLListLimit::LineBreaks | ZLListLimit::ControlCharacters,
        .recognises = recognises,
        .read = read,
        .write = write };
}
