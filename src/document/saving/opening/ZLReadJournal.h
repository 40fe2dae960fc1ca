#pragma once

#include "document/ZLDocumentParts.h"
#include "document/saving/journal/ZLJournalReader.h"
#include "platform/ZLBoundedFile.h"

/// A document that is rebuilt from its journal, and its file beside it, with all that takes long for a long one. It may
/// be made on any thread.
struct ZLReadJournal {
    ZLJournaledDocument journal {};
    /// What the document is to hold: the state in the journal, with what was heard since.
    ZLDocumentParts parts {};
    /// What was found where the document's file is.
    ZLFoundFile file {};
    /// The digest of its bytes.
    QByteArray version {};
};
