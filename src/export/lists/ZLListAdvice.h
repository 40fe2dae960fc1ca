#pragma once

#include "export/ZLExporter.h"
#include "lists/ZLListForm.h"

#include <QStringList>

/// What a list of another program cannot hold of an export, or what those who read it will not like.
namespace ZLListAdvice {

/// One sentence for each rule that the export breaks. Chapters are counted as in the table.
[[nodiscard]] QStringList lines(const ZLListForm& form, const ZLExportInput& input);

}
