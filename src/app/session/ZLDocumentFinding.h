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
    /// Whether the file no longer is what the journal goes on from, or holds all of it.
    bool isSuperseded = false;
};

/// What there is of the document in a file of the user's.
struct ZLFoundDocument {
    QString path {};
    /// Comes before the file, which then is in it.
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
