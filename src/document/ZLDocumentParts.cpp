#include "document/ZLDocumentParts.h"

#include "model/ZLChapterManager.h"

namespace {

ZLChapterSequence chaptersOf(const ZLChapterSnapshot& records)
{
    ZLChapterSequence chapters;
    chapters.reserve(records.size());
    for (const auto& record : records)
        chapters.append(std::make_shared<ZLChapter>(record));
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
        .chapters = ZLChapterManager::chaptersIn(contents.chapters, ZLChapterManager::Sorting::ByTime),
        .duration = contents.duration,
        .templates = ZLChapterManager::chaptersIn(contents.templates, ZLChapterManager::Sorting::None),
        .extras = contents.extras,
    };
}

ZLDocumentParts ZLDocumentParts::of(const ZLDocumentSnapshot& snapshot)
{
    return {
        .chapters = chaptersOf(snapshot.chapters),
        .duration = snapshot.duration,
        .templates = chaptersOf(snapshot.templates),
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
