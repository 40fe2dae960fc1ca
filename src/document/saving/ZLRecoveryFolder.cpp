#include "document/saving/ZLRecoveryFolder.h"

#include "document/ZLDocumentFile.h"
#include "document/saving/journal/ZLJournalTail.h"
#include "platform/ZLFileRemoval.h"
#include "platform/ZLPrivateFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

QString recoveryLockPath(const QString& path)
{
    return path + u".lock"_s;
}

bool isThereAnything(const QString& path)
{
    return QFile::exists(path) || QFile::exists(path + ZLRecoveryFile::JournalSuffix);
}

/// Sorts by the time of its making. The random end keeps apart what two processes make in the same millisecond.
QString newRecoveryFileName()
{
    const QString time = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd-HHmmss-zzz"_s);
    const QString end = QString::number(QRandomGenerator::system()->generate(), 16).rightJustified(8, u'0');
    return u"%1-%2.%3"_s.arg(time, end, ZLDocumentFile::Extension);
}

}

bool ZLRecoveryFile::isStillHeld() const
{
    return QFile::exists(recoveryLockPath(m_path));
}

void ZLRecoveryFile::remove()
{
    QFile::remove(m_path);
    removeJournal();
}

void ZLRecoveryFile::removeJournal()
{
    ZLJournalTail::remove(journalPath());
    ZLFileRemoval::remove(journalPath());
    QFile::remove(listeningPath());
}

ZLStatus ZLRecoveryFolder::prepare() const
{
    return ZLPrivateFolder::prepare(m_path);
}

ZLResult<std::unique_ptr<ZLRecoveryFile>> ZLRecoveryFolder::createFile() const
{
    if (const ZLStatus prepared = prepare(); !prepared)
        return prepared.error();
    const QString path = m_path + u'/' + newRecoveryFileName();
    auto lock = ZLFileLock::tryLock(recoveryLockPath(path));
    if (!lock)
        return lock.error();
    return std::make_unique<ZLRecoveryFile>(path, std::move(lock).value());
}

QStringList ZLRecoveryFolder::files() const
{
    QStringList paths;
    const auto entries = QDir(m_path).entryInfoList({ u"*."_s + ZLDocumentFile::Extension }, QDir::Files, QDir::Name);
    for (const QFileInfo& entry : entries)
        paths.append(entry.filePath());
    return paths;
}

QStringList ZLRecoveryFolder::journaledFiles() const
{
    QStringList paths;
    const QString pattern = u"*."_s + ZLDocumentFile::Extension + ZLRecoveryFile::JournalSuffix;
    const auto entries = QDir(m_path).entryInfoList({ pattern }, QDir::Files, QDir::Name);
    for (const QFileInfo& entry : entries)
        paths.append(entry.filePath().chopped(ZLRecoveryFile::JournalSuffix.size()));
    return paths;
}

ZLResult<std::unique_ptr<ZLRecoveryFile>> ZLRecoveryFolder::claim(const QString& path) const
{
    if (!isThereAnything(path))
        return std::unique_ptr<ZLRecoveryFile>();
    auto lock = ZLFileLock::tryLock(recoveryLockPath(path));
    if (!lock)
        return lock.error();
    // Its former holder may have removed it before the lock came free.
    if (!lock.value() || !isThereAnything(path))
        return std::unique_ptr<ZLRecoveryFile>();
    return std::make_unique<ZLRecoveryFile>(path, std::move(lock).value());
}

void ZLRecoveryFolder::removeLeftListening() const
{
    const QString pattern = u"*."_s + ZLDocumentFile::Extension + ZLRecoveryFile::ListeningSuffix;
    const auto entries = QDir(m_path).entryInfoList({ pattern }, QDir::Files | QDir::System, QDir::Name);
    for (const QFileInfo& entry : entries) {
        const QString path = entry.filePath().chopped(ZLRecoveryFile::ListeningSuffix.size());
        if (isThereAnything(path))
            continue;
        const auto lock = ZLFileLock::tryLock(recoveryLockPath(path));
        if (lock && lock.value() && !isThereAnything(path))
            QFile::remove(entry.filePath());
    }
}
