#include "app/session/ZLDocumentRevival.h"

#include <QFileInfo>

#include <utility>

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
    return revive(ZLDocumentFinding::beside(std::move(*recovered)));
}

ZLRevivedDocument ZLDocumentRevival::revive(ZLFoundJournal found) const
{
    if (found.isSuperseded)
        return reviveBesideFile(std::move(found));
    return { .document = m_maker.rebuild(std::move(found)) };
}

ZLRevivedDocument ZLDocumentRevival::reviveBesideFile(ZLFoundJournal found) const
{
    const QString path = found.read.journal.filePath;
    std::optional<ZLSavedDocument> aside;
    if (found.read.journal.hasChangesSinceFile)
        aside = m_maker.rebuildAside(found.read);
    // Nothing may be lost between here and there: what is set aside is in its own file before the journal goes. That of
    // a titled document can wait until there is room, since the document is read past it.
    if (path.isEmpty() || !aside || aside->saver->state() == ZLSavingState::Saved)
        found.holder->removeJournal();
    if (path.isEmpty())
        return { .document = readRecoveryFile(std::move(found.holder)), .aside = std::move(aside) };
    found.holder.reset();
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
