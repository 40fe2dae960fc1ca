#include "app/session/ZLDocumentFinding.h"

#include "document/listening/ZLDocumentListening.h"
#include "document/saving/journal/ZLJournalRecord.h"
#include "platform/ZLFileIdentity.h"

#include <utility>

namespace {

/// Whether the file at the journal's place no longer is what the journal goes on from. One that is too large to be read
/// is another program's as well.
bool isSuperseded(const ZLJournaledDocument& journal, const ZLFoundFile& file)
{
    if (file.finding == ZLFileFinding::TooLarge)
        return true;
    const bool isTitled = !journal.filePath.isEmpty();
    return !file.bytes.isEmpty() && (!journal.belongsTo(file.bytes) || (isTitled && journal.isWhollyIn(file.bytes)));
}

ZLDocumentParts partsOf(const ZLJournaledDocument& journal, const QString& listeningPath)
{
    ZLDocumentContents contents = journal.contents;
    ZLDocumentListening::recover(contents.extras, listeningPath);
    return ZLDocumentParts::of(contents);
}

}

ZLFoundDocument ZLDocumentFinding::find(const ZLRecoveryFolder& folder, const QString& path)
{
    const auto identity = ZLFileIdentity::of(path);
    auto recovered = ZLDocumentRecovery::claimJournal(folder, [&identity](const QString& journaledPath) {
        return !journaledPath.isEmpty() && ZLFileIdentity::of(journaledPath) == identity;
    });
    if (!recovered)
        return { .path = path, .file = ZLReadDocument::read(path) };
    recovered->journal.filePath = path;
    return { .path = path, .journal = beside(std::move(*recovered)) };
}

ZLFoundJournal ZLDocumentFinding::beside(ZLRecoveredDocument recovered)
{
    const QString& filePath = recovered.journal.filePath;
    const QString path = filePath.isEmpty() ? recovered.file->path() : filePath;
    ZLReadJournal read { .file = ZLBoundedFile::find(path, ZLFileBound::Document) };
    read.version = ZLJournalRecords::digestOf(read.file.bytes);
    read.parts = partsOf(recovered.journal, recovered.file->listeningPath());
    const bool superseded = isSuperseded(recovered.journal, read.file);
    read.journal = std::move(recovered.journal);
    return { .holder = std::move(recovered.file), .read = std::move(read), .isSuperseded = superseded };
}
