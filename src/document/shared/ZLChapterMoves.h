#pragma once

#include "document/shared/ZLDocumentExtras.h"
#include "model/ZLChapter.h"

/// How far chapters were moved since they were set, so that a moment of the show can be found again: a chapter's time
/// less its moves is the time at which it was set, or the one that was typed for it.
///
/// Only a document that knows how its show sounded remembers moves, for no other one ever asks. All others stay as they
/// always were.
namespace ZLChapterMoves {

/// The root keys that make a document remember: what was heard along, and which pieces finished files have.
inline const QString ListeningKey = QStringLiteral("Listening");
inline const QString FitsKey = QStringLiteral("Fits");

[[nodiscard]] bool areRemembered(const ZLDocumentExtras& extras);
/// Seconds, positive for later; 0 where nothing is known.
[[nodiscard]] double of(const ZLDocumentExtras& extras, const QString& uuid);
/// The same in the notes of one chapter, as a document's file has them.
[[nodiscard]] double in(const QVariantMap& notes);
/// Adds a move of `seconds` to what is remembered, as a part of the command that moves the chapter.
void add(ZLDocumentExtras& extras, const QString& uuid, double seconds);

}
