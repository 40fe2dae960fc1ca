#pragma once

#include "export/ZLExporter.h"

class ZLChapterDocument;

/// What an open document gives an export.
namespace ZLDocumentExportInput {

/// The chapters and the recorded time of `document` as they are now. What the file and the format ask for is left open.
[[nodiscard]] ZLExportInput of(ZLChapterDocument& document);

}
