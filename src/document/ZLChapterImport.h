#pragma once

#include "lists/ZLChapterList.h"
#include "model/ZLChapter.h"

class ZLChapterDocument;

/// Chapters that come from elsewhere, from a list or an audio file.
namespace ZLChapterImport {

enum class Way {
    Add, ///< To those that are there.
    Replace, ///< Those that are there go.
};

/// A chapter for each of `listed`, in their order, each `shift` seconds later. What comes to lie before the start is
/// disabled, and what has no finite time is left out. Tags, dates and UUIDs come along where they are known. May be
/// called on any thread.
[[nodiscard]] ZLChapterSequence chaptersFrom(const QList<ZLListedChapter>& listed, double shift);

/// Gives a new UUID to each of `added` whose own is that of one of `present`, or of one before it.
void makeUnique(const ZLChapterSequence& added, const ZLChapterSequence& present);

/// Whether one of them has a UUID that another chapter may have as well.
[[nodiscard]] bool haveUuids(const QList<ZLListedChapter>& listed);

/// Puts the chapters of `chapters` and `shift` into the document as one undoable step. The clock is not touched,
/// whether it runs or stands. No title is opened for typing, and the selected chapter stays selected while it is there.
/// Nothing happens where there is nothing to add. Returns how many chapters came.
qsizetype importChapters(
    ZLChapterDocument& document, const QList<ZLListedChapter>& chapters, Way way, double shift = 0.0);
/// The same for what chaptersFrom() has made, in a document that none of it is in yet.
qsizetype importMade(ZLChapterDocument& document, const ZLChapterSequence& added, bool haveUuids, Way way);

}
