#include "export/formats/ZLChapterText.h"

#include "model/ZLTimeText.h"

#include <cmath>

using namespace Qt::StringLiterals;

std::uint64_t ZLChapterText::unsignedMilliseconds(const ZLChapter& chapter)
{
    return ZLTimeText::truncated(std::fabs(chapter.timeStamp()) * 1000.0);
}

QString ZLChapterText::hoursMinutesSeconds(std::uint64_t milliseconds)
{
    return ZLTimeText::hoursMinutesSeconds(milliseconds / 1000);
}

// Pieces are joined rather than filled into a pattern: a title may hold anything, a pattern's place marks included.
void ZLChapterText::appendListLine(QString& text, const QString& time, const ZLChapter& chapter)
{
    text += time;
    text += u' ';
    text += chapter.title();
    if (!chapter.link().isEmpty()) {
        text += " <"_L1;
        text += chapter.link();
        text += u'>';
    }
    text += u'\n';
}
