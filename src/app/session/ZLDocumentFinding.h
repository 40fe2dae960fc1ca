#pragma once

#include "document/saving/ZLDocumentRecovery.h"
#include "document/saving/opening/ZLReadDocument.h"
#include "document/saving/opening/ZLReadJournal.h"

#include <memory>
#include <optional>

/// A journal that was taken over, and read with the file that it belongs to.
struct ZLFoundJournal {
    std::unique_ptr<ZLRecoveryFile> holder;
    ZLReadJournal read;
    /// Whether the file is another one than the journal goes on from, or holds all of the journal.
    bool isSuperseded = false;
};

/// What there is of the document in a file of the user's.
struct ZLFoundDocument {
    QString path {};
    /// Where there is one, what the file holds stands in it and not in `file`.
    std::optional<ZLFoundJournal> journal {};
    ZLResult<ZLReadDocument> file = ZLReadDocument {};
};

/// Looks for documents on the disk and reads them. Nothing here belongs to the main thread.
namespace ZLDocumentFinding {

/// What stands at the absolute `path`, and a journal of it in `folder` that nobody holds.
[[nodiscard]] ZLFoundDocument find(const ZLRecoveryFolder& folder, const QString& path);
/// Reads what `recovered` goes on from.
[[nodiscard]] ZLFoundJournal beside(ZLRecoveredDocument recovered);

}
