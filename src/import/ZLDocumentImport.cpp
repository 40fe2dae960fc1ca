#include "import/ZLDocumentImport.h"

#include "document/ZLChapterDocument.h"
#include "document/ZLChapterImport.h"

ZLDocumentImport::Outcome ZLDocumentImport::carryOut(
    ZLChapterDocument& document, const ZLImportSource& source, const ZLImportChoices& choices)
{
    const QStringList templates = ZLImportPlan::templatesOf(source, choices);
    const auto way = choices.replacesChapters ? ZLChapterImport::Way::Replace : ZLChapterImport::Way::Add;
    const ZLUndoGroup group(document.undoManager());
    Outcome outcome;
    if (!templates.isEmpty()) {
        const qsizetype before = document.templateViewController().chapterManager().count();
        document.templateViewController().importTopicLines({ templates.join(u'\n') });
        outcome.templates = document.templateViewController().chapterManager().count() - before;
    }
    // Last, so that the step is named after the chapters.
    outcome.chapters =
        ZLChapterImport::importChapters(document, source.found.lists.at(choices.item).chapters, way, choices.shift);
    return outcome;
}
