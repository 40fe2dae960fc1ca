#pragma once

#include "document/saving/ZLRecoveryFolder.h"
#include "document/saving/journal/ZLJournalReader.h"

#include <functional>
#include <memory>
#include <optional>

/// What the recovery folder holds of a document whose program ended without tidying up.
struct ZLRecoveredDocument {
    std::unique_ptr<ZLRecoveryFile> file;
    ZLJournaledDocument journal;
};

namespace ZLDocumentRecovery {

/// The journal of `file`, which is taken over only on success. A journal that cannot be read is renamed, so that it
/// hinders no later start.
[[nodiscard]] std::optional<ZLRecoveredDocument> read(std::unique_ptr<ZLRecoveryFile>& file);

/// Takes over the first journal that is not held and whose document's path `isWanted`.
[[nodiscard]] std::optional<ZLRecoveredDocument> claimJournal(
    const ZLRecoveryFolder& folder, const std::function<bool(const QString& filePath)>& isWanted);

}
