#pragma once

#include "delivery/fit/ZLKeptFit.h"
#include "document/shared/ZLDocumentExtras.h"

#include <QList>

/// The fits that a document keeps: one for each finished file, the newest first.
namespace ZLKeptFits {

inline constexpr qsizetype MostFits = 16;

[[nodiscard]] QList<ZLKeptFit> in(const ZLDocumentExtras& extras);
/// `length` in seconds, absent where it is not known: then the name alone tells.
[[nodiscard]] std::optional<ZLKeptFit> ofFile(
    const ZLDocumentExtras& extras, const QString& name, std::optional<double> length);
/// Keeps it without an undoable step, in place of the one of the same file, whose identifier it takes. The oldest goes
/// when there are too many. Returns it as it was kept.
ZLKeptFit keep(ZLDocumentExtras& extras, ZLKeptFit fit);

/// Identifier of the fit whose file the chapters of the document follow; empty while they have the times of the show.
[[nodiscard]] QString followed(const ZLDocumentExtras& extras);
/// The same as a part of an undoable command.
void follow(ZLDocumentExtras& extras, const QString& identifier);

}
