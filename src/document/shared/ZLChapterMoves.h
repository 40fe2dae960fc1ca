#pragma once

#include "document/shared/ZLDocumentExtras.h"
#include "model/ZLChapter.h"

/// How far chapters were moved since they were set, so that a moment of the show can be found again: a chapter's time
/// less its moves is the time at which it was set, or the one that was typed for it.
///
/// Only a document that knows how its show sounded, or where that is recorded, remembers moves, for no other one ever
/// asks. All others stay as they always were.
namespace ZLChapterMoves {

/// The root key of the pieces that finished files have. With it, or with what was heard along, a document remembers.
inline const QString FitsKey = QStringLiteral("Fits");

[[nodiscard]] bool areRemembered(const ZLDocumentExtras& extras);
/// Seconds, positive for later; 0 where nothing is known.
[[nodiscard]] double of(const ZLDocumentExtras& extras, const QString& uuid);
/// The same in the notes of one chapter, as a document's file has them.
[[nodiscard]] double in(const QVariantMap& notes);
/// Adds a move of `seconds` to what is remembered, as a part of the command that moves the chapter.
void add(ZLDocumentExtras& extras, const QString& uuid, double seconds);
/// Adds the move of a chapter that goes along when the recording clock is set to the recorder's time. What was heard
/// along stays at the former times of the clock; the files of the recorder have the new ones, so for them it is no
/// move.
void addWithClock(ZLDocumentExtras& extras, const QString& uuid, double seconds);

}
