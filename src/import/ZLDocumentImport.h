#pragma once

#include "document/ZLChapterImport.h"
#include "import/ZLImportPlan.h"

class ZLChapterDocument;

/// Carries out an import in an open document.
namespace ZLDocumentImport {

struct Outcome {
    qsizetype chapters = 0;
    qsizetype templates = 0;
};

/// Everything is one undoable step. The clock is not touched, whether it runs or stands.
Outcome carryOut(ZLChapterDocument& document, const ZLImportPlan& plan, ZLChapterImport::Way way);

}
