#include "document/saving/ZLDocumentPlace.h"

#include "platform/ZLFileExtension.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

ZLDocumentPlace::ZLDocumentPlace(
    const ZLRecoveryFolder& folder, const QString& path, std::unique_ptr<ZLRecoveryFile> recoveryFile)
    : m_folder(folder)
    , m_path(path)
    , m_recoveryFile(std::move(recoveryFile))
    , m_lock(path.isEmpty() ? nullptr : std::make_unique<ZLDocumentLock>(path))
{
    followLocation();
}

QString ZLDocumentPlace::recoveryPath() const
{
    return isUntitled() && m_recoveryFile ? m_recoveryFile->path() : QString();
}

QString ZLDocumentPlace::listeningPath() const
{
    return m_recoveryFile ? m_recoveryFile->listeningPath() : QString();
}

QDateTime ZLDocumentPlace::timeOfFile(const QDateTime& now) const
{
    const QDateTime written = QFileInfo(isUntitled() ? recoveryPath() : m_path).lastModified();
    return written.isValid() ? std::min(written, now) : now;
}

ZLStatus ZLDocumentPlace::takeRecoveryFile()
{
    m_recoveryFile.reset();
    auto file = m_folder.createFile();
    if (!file)
        return file.error();
    m_recoveryFile = std::move(file).value();
    followLocation();
    if (isUntitled())
        Q_EMIT recoveryPathDidChange();
    return ZLDone {};
}

void ZLDocumentPlace::removeRecoveryFile()
{
    if (!m_recoveryFile)
        return;
    m_recoveryFile->remove();
    m_recoveryFile.reset();
    if (isUntitled())
        Q_EMIT recoveryPathDidChange();
}

void ZLDocumentPlace::removeJournal()
{
    if (m_recoveryFile)
        m_recoveryFile->removeJournal();
}

void ZLDocumentPlace::forgetUntitledHistory()
{
    settle(QDeadlineTimer(ZLSilentDisk::CommandPatience));
    if (isUntitled() && m_history)
        m_history->remove();
}

void ZLDocumentPlace::moveTo(const QString& path)
{
    m_path = path;
    // Before the new lock, which may be the same file.
    m_lock.reset();
    m_lock = std::make_unique<ZLDocumentLock>(m_path);
    followLocation();
}

QString ZLDocumentPlace::pathWithExtension(const QString& path)
{
    return ZLFileExtension::completed(QDir::cleanPath(QFileInfo(path).absoluteFilePath()), ZLDocumentFile::Extension);
}

void ZLDocumentPlace::followLocation()
{
    if (isUntitled() && !m_recoveryFile)
        return;
    const ZLDocumentHistory history = isUntitled() ? ZLDocumentHistory::ofRecoveryFile(m_folder, m_recoveryFile->path())
                                                   : ZLDocumentHistory::ofFile(m_folder, m_path);
    if (m_history && *m_history != history)
        moveHistory(*m_history, history);
    m_history = history;
}

void ZLDocumentPlace::moveHistory(const ZLDocumentHistory& from, const ZLDocumentHistory& to)
{
    settle(QDeadlineTimer(ZLSilentDisk::CommandPatience));
    m_historyMove.start([from, to](const ZLDiskWork::Teller& /*tell*/) {
        from.shareWith(to);
        // A file of the user's that is left stays, and so do its states.
        if (from.isOfRecoveryFile())
            from.remove();
    });
}
