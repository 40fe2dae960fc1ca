#pragma once

#include "model/ZLChapter.h"
#include "platform/media/ZLMediaContents.h"

#include <optional>

class ZLChapterDocument;

/// The chapters of a document where a finished file has them, by the fit that the document keeps of it.
namespace ZLFittedChapters {

/// Copies in ascending time order. Nothing for a file that was not fitted, and for the one that the chapters of the
/// document follow already: they stand as a person left them.
[[nodiscard]] std::optional<ZLChapterSequence> forFile(
    ZLChapterDocument& document, const QString& path, const ZLMediaContents& file);

}
