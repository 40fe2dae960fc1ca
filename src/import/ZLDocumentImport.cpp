#include "import/ZLDocumentImport.h"

#include "document/ZLChapterDocument.h"

ZLDocumentImport::Outcome ZLDocumentImport::carryOut(
    ZLChapterDocument& document, const ZLImportPlan& plan, ZLChapterImport::Way way)
{
    const ZLUndoGroup group(document.undoManager());
    Outcome outcome;
    if (!plan.templates.isEmpty()) {
        const qsizetype before = document.templateViewController().chapterManager().count();
        document.templateViewController().importTopicLines({ plan.templates.join(u'\n') });
        outcome.templates = document.templateViewController().chapterManager().count() - before;
    }
    // Last, so that the step is named after the chapters.
    outcome.chapters = ZLChapterImport::importMade(document, plan.chapters, plan.haveUuids, way);
    return outcome;
}
