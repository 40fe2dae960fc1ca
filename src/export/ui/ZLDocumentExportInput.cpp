#include "export/ui/ZLDocumentExportInput.h"

#include "document/ZLChapterDocument.h"

ZLExportInput ZLDocumentExportInput::of(ZLChapterDocument& document)
{
    return { .chapters = document.chapterManager().allChapters(),
        .duration = document.duration(),
        .isRecording = document.isRecording() };
}
