#include "document/ZLDocumentParts.h"

#include "model/ZLStoredChapters.h"

#include <algorithm>

namespace {

bool saysWhat(const ZLChapterPointer& chapter, const ZLChapterSnapshot::value_type& record)
{
    return chapter->isAsIn(*record);
}

ZLChapterSequence chaptersOf(const ZLChapterSnapshot& records, const ZLChapterSequence& present)
{
    const qsizetype shorter = std::min(records.size(), present.size());
    const auto front = std::mismatch(present.cbegin(), present.cbegin() + shorter, records.cbegin(), saysWhat).first;
    const qsizetype atFront = front - present.cbegin();
    const auto back =
        std::mismatch(present.crbegin(), present.crbegin() + (shorter - atFront), records.crbegin(), saysWhat).first;
    const qsizetype atBack = back - present.crbegin();
    ZLChapterSequence chapters;
    chapters.reserve(records.size());
    chapters.append(present.first(atFront));
    for (qsizetype index = atFront; index < records.size() - atBack; ++index)
        chapters.append(std::make_shared<ZLChapter>(records.at(index)));
    chapters.append(present.last(atBack));
    return chapters;
}

ZLChapterSnapshot recordsOf(const ZLChapterSequence& chapters)
{
    ZLChapterSnapshot records;
    records.reserve(chapters.size());
    for (const ZLChapterPointer& chapter : chapters)
        records.append(chapter->record());
    return records;
}

}

ZLDocumentParts ZLDocumentParts::of(const ZLDocumentContents& contents)
{
    return {
        .chapters = ZLStoredChapters::in(contents.chapters, ZLStoredChapters::Sorting::ByTime),
        .duration = contents.duration,
        .templates = ZLStoredChapters::in(contents.templates, ZLStoredChapters::Sorting::None),
        .extras = contents.extras,
    };
}

ZLDocumentParts ZLDocumentParts::of(const ZLDocumentSnapshot& snapshot, const ZLChapterSequence& present)
{
    return {
        .chapters = chaptersOf(snapshot.chapters, present),
        .duration = snapshot.duration,
        .templates = chaptersOf(snapshot.templates, {}),
        .extras = snapshot.extras.whole(),
    };
}

ZLDocumentSnapshot ZLDocumentParts::snapshot() const
{
    return {
        .chapters = recordsOf(chapters),
        .duration = duration,
        .templates = recordsOf(templates),
        .extras = ZLExtrasSnapshot::of(extras),
    };
}
