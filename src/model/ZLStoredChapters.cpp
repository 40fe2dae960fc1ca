#include "model/ZLStoredChapters.h"

#include "model/ZLChapterOrder.h"

#include <algorithm>

namespace {

ZLChapterPointer chapterFrom(const QVariant& dictionary)
{
    if (const auto* archived = ZLArchivedDictionary::in(dictionary))
        return std::make_shared<ZLChapter>(*archived);
    return std::make_shared<ZLChapter>(dictionary.toMap());
}

}

ZLChapterSequence ZLStoredChapters::in(const QVariantList& dictionaries, Sorting sorting)
{
    ZLChapterSequence chapters;
    chapters.reserve(dictionaries.size());
    for (const QVariant& dictionary : dictionaries)
        chapters.append(chapterFrom(dictionary));
    // A file is in order as a rule, and sorting takes memory for the whole list.
    if (sorting == Sorting::ByTime && !std::is_sorted(chapters.cbegin(), chapters.cend(), ZLChapterOrder::comesBefore))
        std::stable_sort(chapters.begin(), chapters.end(), ZLChapterOrder::comesBefore);
    return chapters;
}
