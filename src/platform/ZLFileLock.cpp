#include "platform/ZLFileLock.h"

#include "platform/ZLBoundedFile.h"
#include "platform/ZLFileError.h"

#include <QFile>
#include <QLoggingCategory>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

Q_LOGGING_CATEGORY(fileLockLog, "zelta.platform.lock", QtInfoMsg)

/// Empty when the open file can be one. A person who put something else there would have us write into it.
QString whyNoLockFile(int descriptor)
{
    struct stat opened {};
    return fstat(descriptor, &opened) == 0 ? ZLBoundedFile::whyNoOrdinaryFile(opened.st_mode) : qt_error_string(errno);
}

/// Whether the open file still is the one that others would find under its name.
bool isFileStillAt(const QByteArray& nativePath, int descriptor)
{
    struct stat opened {};
    struct stat named {};
    return fstat(descriptor, &opened) == 0 && lstat(nativePath.constData(), &named) == 0
        && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

}

ZLResult<std::unique_ptr<ZLFileLock>> ZLFileLock::tryLock(const QString& path)
{
    const QByteArray nativePath = QFile::encodeName(path);
    // A holder that gives up removes the file, possibly between our opening and our locking: then look again.
    for (int attempt = 0; attempt < 10; ++attempt) {
        // Programs that are started from here must not inherit the lock.
        const int descriptor =
            open(nativePath.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0600);
        if (descriptor < 0)
            return ZLFileError::ofSystem(path, errno);
        if (const QString reason = whyNoLockFile(descriptor); !reason.isEmpty()) {
            close(descriptor);
            return ZLFileError::because(path, reason);
        }
        const bool isLocked = flock(descriptor, LOCK_EX | LOCK_NB) == 0;
        const int reason = errno;
        if (isLocked && isFileStillAt(nativePath, descriptor))
            return std::unique_ptr<ZLFileLock>(new ZLFileLock(nativePath, descriptor));
        close(descriptor);
        if (!isLocked && reason != EWOULDBLOCK && reason != EINTR)
            return ZLFileError::ofSystem(path, reason);
        if (!isLocked && reason == EWOULDBLOCK)
            return std::unique_ptr<ZLFileLock>();
    }
    return std::unique_ptr<ZLFileLock>();
}

bool ZLFileLock::isHeld(const QString& path)
{
    const int descriptor =
        open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0)
        return false;
    // Shared, so that two who ask at once do not take each other for a holder.
    const bool isTaken =
        whyNoLockFile(descriptor).isEmpty() && flock(descriptor, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    close(descriptor);
    return isTaken;
}

ZLFileLock::~ZLFileLock()
{
    // The folder may have been taken away and made again: only our own file is removed.
    if (isFileStillAt(m_nativePath, m_descriptor))
        unlink(m_nativePath.constData());
    close(m_descriptor);
}

void ZLFileLock::write(const QByteArray& bytes) const
{
    const bool isWhole = pwrite(m_descriptor, bytes.constData(), size_t(bytes.size()), 0) == bytes.size();
    // What a longer text left behind must not follow.
    if (ftruncate(m_descriptor, isWhole ? bytes.size() : 0) != 0)
        qCDebug(fileLockLog) << m_nativePath << qt_error_string(errno);
}
