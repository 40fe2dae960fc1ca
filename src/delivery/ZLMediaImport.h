#pragma once

#include "document/ZLDocumentFile.h"

/// An audio file as the contents of a document: its chapters, and its length as the recorded time.
namespace ZLMediaImport {

[[nodiscard]] ZLResult<ZLDocumentContents> read(const QString& audioPath);

}
