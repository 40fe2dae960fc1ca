#include "app/session/ZLDocumentRevival.h"

#include "platform/ZLBoundedFile.h"
#include "platform/ZLFileIdentity.h"

#include <QFileInfo>

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

}

std::optional<ZLRevivedDocument> ZLDocumentRevival::reviveFile(const QString& path) const
{
    const auto identity = ZLFileIdentity::of(path);
    auto recovered =
        ZLDocumentRecovery::claimJournal(m_maker.recoveryFolder(), [&identity](const QString& journaledPath) {
            return !journaledPath.isEmpty() && ZLFileIdentity::of(journaledPath) == identity;
        });
    if (!recovered)
        return std::nullopt;
    recovered->journal.filePath = path;
    return revive(std::move(*recovered));
}

ZLRevivedDocument ZLDocumentRevival::reviveRecoveryFile(const QString& path, const IsFileOpen& isFileOpen) const
{
    auto claimed = m_maker.recoveryFolder().claim(path);
    if (!claimed)
        return { .document = claimed.error() };
    auto file = std::move(claimed).value();
    if (!file)
        return {};
    auto recovered = ZLDocumentRecovery::read(file);
    if (!recovered)
        return { .document = readRecoveryFile(std::move(file)) };
    const QString& filePath = recovered->journal.filePath;
    if (!filePath.isEmpty() && isFileOpen(filePath))
        return {};
    return revive(std::move(*recovered));
}

ZLRevivedDocument ZLDocumentRevival::revive(ZLRecoveredDocument recovered) const
{
    const QString& filePath = recovered.journal.filePath;
    const QString path = filePath.isEmpty() ? recovered.file->path() : filePath;
    const ZLFoundFile found = ZLBoundedFile::find(path, ZLFileBound::Document);
    if (isSuperseded(recovered.journal, found))
        return reviveBesideFile(std::move(recovered), path);
    return { .document = m_maker.rebuild(std::move(recovered), found) };
}

ZLRevivedDocument ZLDocumentRevival::reviveBesideFile(ZLRecoveredDocument recovered, const QString& path) const
{
    const bool isUntitled = recovered.journal.filePath.isEmpty();
    std::optional<ZLSavedDocument> aside;
    if (recovered.journal.hasChangesSinceFile)
        aside = m_maker.rebuildAside(recovered);
    // Nothing may be lost between here and there: what is set aside is in its own file before the journal goes. That of
    // a titled document can wait until there is room, since the document is read past it.
    if (isUntitled || !aside || aside->saver->state() == ZLSavingState::Saved)
        recovered.file->removeJournal();
    if (isUntitled)
        return { .document = readRecoveryFile(std::move(recovered.file)), .aside = std::move(aside) };
    recovered.file.reset();
    return { .document = m_maker.readFile(path), .aside = std::move(aside) };
}

ZLResult<ZLSavedDocument> ZLDocumentRevival::readRecoveryFile(std::unique_ptr<ZLRecoveryFile> file) const
{
    if (QFileInfo(file->path()).size() == 0) {
        file->remove();
        return ZLSavedDocument {};
    }
    auto read = m_maker.readRecoveryFile(std::move(file));
    if (!read || read.value().saver->hasContent())
        return read;
    read.value().saver->discard();
    return ZLSavedDocument {};
}
