#include "delivery/fit/ZLShowMarks.h"

#include "document/shared/ZLChapterMoves.h"
#include "model/ZLStoredValue.h"

#include <algorithm>

namespace {

void sort(ZLShowMarks& marks)
{
    std::ranges::stable_sort(marks, {}, &ZLShowMark::showTime);
}

}

ZLShowMarks ZLFitNotes::marksOf(const ZLChapterSequence& chapters, const ZLDocumentExtras& extras)
{
    ZLShowMarks marks;
    for (const ZLChapterPointer& chapter : chapters) {
        const QString& uuid = chapter->uuid();
        marks.append({ chapter, chapter->timeStamp() - ZLChapterMoves::of(extras, uuid),
            chapter->isEnabled() || ZLStoredValue::boolean(extras.ofChapter(uuid, UntickedKey)) });
    }
    sort(marks);
    return marks;
}

ZLShowMarks ZLFitNotes::marksOf(const ZLChapterSequence& chapters, const QVariantMap& extras)
{
    const QVariantMap notes = extras.value(ZLDocumentExtras::ChapterNotesKey).toMap();
    ZLShowMarks marks;
    for (const ZLChapterPointer& chapter : chapters) {
        const QVariantMap ofChapter = notes.value(chapter->uuid()).toMap();
        marks.append({ chapter, chapter->timeStamp() - ZLChapterMoves::in(ofChapter),
            chapter->isEnabled() || ZLStoredValue::boolean(ofChapter.value(UntickedKey)) });
    }
    sort(marks);
    return marks;
}
