#pragma once

#include "model/ZLChapter.h"

/// Chapters as they are stored, one dictionary of either form each.
namespace ZLStoredChapters {

enum class Sorting { ByTime, None };

/// An entry that is no dictionary reads as an empty one. They may be made on any thread.
[[nodiscard]] ZLChapterSequence in(const QVariantList& dictionaries, Sorting sorting);

}
