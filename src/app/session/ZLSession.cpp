#include "app/session/ZLSession.h"

#include <QFileInfo>
#include <QScopedValueRollback>

#include <utility>

ZLSession::ZLSession(
    const QString& stateFolder, const ZLRecoveryFolder& recoveryFolder, ZLOpenDocuments::Executor executor)
    : m_recoveryFolder(recoveryFolder)
    , m_openDocuments(stateFolder, std::move(executor))
{
}

QStringList ZLSession::restore(const Openers& openers)
{
    // Until everything is open again, the memory of it must not shrink to what is open so far.
    const QScopedValueRollback keeping(m_isKept, true);
    QStringList failures;
    QStringList namedRecoveryFiles;
    const auto entries = m_openDocuments.load();
    for (const ZLOpenDocumentEntry& entry : entries) {
        const bool isFile = entry.kind == ZLOpenDocumentEntry::Kind::File;
        // Only the name counts: an entry must not lead out of the folder whose files are ours to delete.
        const QString name = QFileInfo(entry.path).fileName();
        if (!isFile)
            namedRecoveryFiles.append(name);
        const ZLStatus opened =
            isFile ? openers.openFile(entry.path) : openers.openRecoveryFile(m_recoveryFolder.path() + u'/' + name);
        if (!opened)
            failures.append(opened.error().message);
    }
    return failures + restoreKept(openers, namedRecoveryFiles);
}

QStringList ZLSession::restoreKept(const Openers& openers, const QStringList& fileNamesToLeaveOut) const
{
    QStringList failures;
    QStringList recoveryFiles = m_recoveryFolder.files() + m_recoveryFolder.journaledFiles();
    recoveryFiles.sort();
    recoveryFiles.removeDuplicates();
    for (const QString& path : std::as_const(recoveryFiles)) {
        if (fileNamesToLeaveOut.contains(QFileInfo(path).fileName()))
            continue;
        if (const ZLStatus opened = openers.openRecoveryFile(path); !opened)
            failures.append(opened.error().message);
    }
    m_recoveryFolder.removeLeftListening();
    return failures;
}

void ZLSession::remember(const QList<const ZLDocumentSaver*>& savers)
{
    if (m_isKept)
        return;
    QList<ZLOpenDocumentEntry> entries;
    for (const ZLDocumentSaver* saver : savers) {
        const QString recoveryName = QFileInfo(saver->recoveryPath()).fileName();
        if (!saver->isUntitled())
            entries.append({ ZLOpenDocumentEntry::Kind::File, saver->path() });
        else if (!recoveryName.isEmpty())
            entries.append({ ZLOpenDocumentEntry::Kind::Recovery, recoveryName });
    }
    m_openDocuments.store(entries);
}
