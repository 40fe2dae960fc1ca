#pragma once

#include "model/ZLChapter.h"

#include <QStringList>

#include <optional>

class ZLChapterDocument;

/// The chapters of a document in the files of the recorder that its clock followed.
namespace ZLRecordedChapters {

/// Those files that chapters can be written into, by their names, in their order.
[[nodiscard]] QStringList audioFiles(const ZLChapterDocument& document);

/// Copies at their places in this file, in ascending time order. Nothing for a file that is none of the recorder's, and
/// for one that begins where the clock began: the chapters stand right as they are.
[[nodiscard]] std::optional<ZLChapterSequence> forFile(ZLChapterDocument& document, const QString& path);

}
