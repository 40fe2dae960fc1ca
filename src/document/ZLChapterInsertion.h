#pragma once

#include "model/ZLChapter.h"

class ZLChapterDocument;

/// Chapters that are set later, at a time that a person types.
namespace ZLChapterInsertion {

/// Seconds on the recording clock: the middle of the selected chapter; the clock's reading when that is the last one or
/// when there is none.
[[nodiscard]] double proposedTime(ZLChapterDocument& document);

/// A blank chapter at `seconds`, disabled before the recording's start. Its date is that of the nearest earlier chapter
/// whose date is known, or else of the nearest later one, moved by the difference of their times; without any it is not
/// known. `chapters` are in ascending time order.
[[nodiscard]] ZLChapterPointer blankChapterAt(double seconds, const ZLChapterSequence& chapters);

/// Adds such a chapter to the document, whether the clock runs or stands.
void insertBlankChapterAt(ZLChapterDocument& document, double seconds);

}
