#include "lists/forms/ZLMP4ChapsText.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"

using namespace Qt::StringLiterals;

namespace {

/// Hours of two digits at least and a fraction tell the form from what people write.
bool isFullTime(QStringView text)
{
    constexpr qsizetype shortest = 12;
    return text.size() >= shortest && text.count(u':') == 2 && text.at(text.size() - 4) == u'.'
        && ZLListTime::fromClock(text, 3);
}

std::optional<ZLListedChapter> chapterIn(QStringView line)
{
    qsizetype blank = line.indexOf(u' ');
    if (blank < 0)
        blank = line.size();
    const QStringView time = line.first(blank);
    if (!isFullTime(time))
        return std::nullopt;
    // A link may follow an empty title, with the one blank between.
    QStringView rest = line.sliced(blank);
    const QString link = ZLListText::takeBracketedLink(rest);
    return ZLListedChapter { *ZLListTime::fromClock(time, 3),
        rest.sliced(std::min<qsizetype>(1, rest.size())).toString(), link };
}

bool recognises(const ZLListSource& source)
{
    return chapterIn(source.firstFullLine()).has_value();
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    return QList { ZLListText::chaptersInLines(source, chapterIn) };
}

QByteArray write(const ZLListToWrite& list)
{
    QString text;
    for (const ZLListedChapter& chapter : list.chapters)
        text += ZLListTime::clock(chapter.start) + u' ' + chapter.title + u'\n';
    return text.toUtf8();
}

}

ZLListForm ZLMP4ChapsText::form()
{
    return { .name = "mp4chaps"_L1,
        .fileType = "txt"_L1,
        .unitsPerSecond = 1000.0,
        .limits =
            ZLListLimit::Links | ZLListLimit::LineBreaks | ZLListLimit::ControlCharacters | ZLListLimit::AngleBrackets,
        .recognises = recognises,
        .read = read,
        .write = write };
}
