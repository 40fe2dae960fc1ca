#include "document/ZLChapterInsertion.h"

#include "document/ZLChapterDocument.h"

namespace {

bool hasKnownDate(const ZLChapter& chapter)
{
    return chapter.realDate().isValid() && chapter.realDate() != ZLChapter::distantPast();
}

/// Null when no chapter has a known date.
ZLChapterPointer nearestWithKnownDate(double seconds, const ZLChapterSequence& chapters)
{
    ZLChapterPointer nearest;
    for (const ZLChapterPointer& chapter : chapters) {
        if (!hasKnownDate(*chapter))
            continue;
        const bool isLater = chapter->timeStamp() > seconds;
        if (!isLater || !nearest)
            nearest = chapter;
        if (isLater)
            break;
    }
    return nearest;
}

}

double ZLChapterInsertion::proposedTime(ZLChapterDocument& document)
{
    ZLChapterManager& chapters = document.chapterManager();
    const ZLChapterPointer selected = chapters.chapterAtIndex(document.selectedRow());
    const ZLChapterPointer next = chapters.chapterAtIndex(document.selectedRow() + 1);
    if (!selected || !next)
        return document.currentDuration();
    return selected->timeStamp() + (next->timeStamp() - selected->timeStamp()) / 2.0;
}

ZLChapterPointer ZLChapterInsertion::blankChapterAt(double seconds, const ZLChapterSequence& chapters)
{
    const auto chapter = std::make_shared<ZLChapter>();
    chapter->setTimeStamp(seconds);
    chapter->setEnabled(!(seconds < 0.0));
    if (const ZLChapterPointer known = nearestWithKnownDate(seconds, chapters)) {
        chapter->setRealDate(known->realDate());
        chapter->moveDate(seconds - known->timeStamp());
    }
    return chapter;
}

void ZLChapterInsertion::insertBlankChapterAt(ZLChapterDocument& document, double seconds)
{
    document.addChapter(blankChapterAt(seconds, document.chapterManager().allChapters()));
}
