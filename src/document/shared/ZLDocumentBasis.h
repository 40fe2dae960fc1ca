#pragma once

#include "document/shared/ZLDocumentChanges.h"
#include "document/shared/ZLDocumentEnvironment.h"
#include "document/shared/ZLDocumentExtras.h"
#include "document/shared/ZLTypingRequests.h"
#include "model/ZLChapterManager.h"
#include "platform/ZLUndoManager.h"

#include <utility>

/// What all parts of a document work with. The document owns it, and it outlives the parts.
struct ZLDocumentBasis {
    explicit ZLDocumentBasis(ZLDocumentEnvironment aroundIt)
        : environment(std::move(aroundIt))
    {
    }

    /// Restores the order of the chapters and takes a note that those in `edited` are different.
    void noteEdit(ZLDocumentChange::Parts parts, const ZLChapterSequence& edited)
    {
        chapters.sortChapters();
        changes.note({ parts, edited });
    }

    ZLDocumentEnvironment environment;
    ZLUndoManager undoManager;
    ZLDocumentChanges changes { undoManager };
    ZLDocumentExtras extras { undoManager, changes };
    ZLTypingRequests typing;
    /// The chapters of the document, in the order of their times.
    ZLChapterManager chapters;
};
