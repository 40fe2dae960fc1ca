#include "platform/ZLFileLock.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Whether the open file still is the one that others would find under its name.
bool isFileStillAt(const QByteArray& nativePath, int descriptor)
{
    struct stat opened { };
    struct stat named { };
    return fstat(descriptor, &opened) == 0 && stat(nativePath.constData(), &named) == 0 && opened.st_dev == named.st_dev
        && opened.st_ino == named.st_ino;
}

}

ZLResult<std::unique_ptr<ZLFileLock>> ZLFileLock::tryLock(const QString& path)
{
    const QByteArray nativePath = QFile::encodeName(path);
    // A holder that gives up removes the file, possibly between our opening and our locking: then look again.
    for (int attempt = 0; attempt < 10; ++attempt) {
        // Programs that are started from here must not inherit the lock.
        const int descriptor = open(nativePath.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (descriptor < 0)
            return ZLError { QStringLiteral("%1: %2").arg(path, qt_error_string(errno)) };
        const bool isLocked = flock(descriptor, LOCK_EX | LOCK_NB) == 0;
        const int reason = errno;
        if (isLocked && isFileStillAt(nativePath, descriptor))
            return std::unique_ptr<ZLFileLock>(new ZLFileLock(nativePath, descriptor));
        close(descriptor);
        if (!isLocked && reason != EWOULDBLOCK && reason != EINTR)
            return ZLError { QStringLiteral("%1: %2").arg(path, qt_error_string(reason)) };
        if (!isLocked && reason == EWOULDBLOCK)
            return std::unique_ptr<ZLFileLock>();
    }
    return std::unique_ptr<ZLFileLock>();
}

ZLFileLock::~ZLFileLock()
{
    // The folder may have been taken away and made again: only our own file is removed.
    if (isFileStillAt(m_nativePath, m_descriptor))
        unlink(m_nativePath.constData());
    close(m_descriptor);
}
