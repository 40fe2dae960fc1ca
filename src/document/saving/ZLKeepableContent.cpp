#include "document/saving/ZLKeepableContent.h"

#include "document/ZLChapterDocument.h"

bool ZLKeepableContent::isIn(ZLChapterDocument& document)
{
    return document.isRecording() || document.currentDuration() != 0.0 || document.chapterManager().count() > 0
        || document.templateViewController().chapterManager().count() > 0;
}

bool ZLKeepableContent::isOrMayBeIn(ZLChapterDocument& document)
{
    const ZLUndoManager& undoManager = document.undoManager();
    return isIn(document) || document.isWaitingForBeep() || undoManager.canUndo() || undoManager.canRedo();
}
