#include "platform/ZLAtomicFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

ZLError fileFailure(const QString& path, const QString& reason)
{
    return ZLError { QStringLiteral("%1: %2").arg(path, reason) };
}

/// What `path` leads to, so that a link stays a link.
QString targetOfPath(const QString& path)
{
    const QFileInfo file(path);
    if (file.exists())
        return file.canonicalFilePath();
    return file.isSymLink() ? file.symLinkTarget() : path;
}

/// Each of the following returns 0 or the system's error number. The system is asked directly, since at the end of a
/// full disk every single answer counts: a short write, a failed sync or close must never reach the renaming.

int writeAll(int descriptor, const QByteArray& bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = write(descriptor, bytes.constData() + done, size_t(bytes.size() - done));
        if (count < 0 && errno != EINTR)
            return errno;
        done += count > 0 ? count : 0;
    }
    return 0;
}

int syncDescriptor(int descriptor)
{
    // Some file systems cannot sync; that they say so is no failure of the writing.
    return fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS ? 0 : errno;
}

int writeNewFile(const QByteArray& path, mode_t mode, const QByteArray& bytes)
{
    const int descriptor = open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor < 0)
        return errno;
    int error = writeAll(descriptor, bytes);
    if (error == 0)
        error = syncDescriptor(descriptor);
    if (close(descriptor) != 0 && error == 0)
        error = errno;
    return error;
}

/// Whether the file there may be replaced, and which permissions it has.
int lookAtOldFile(const QByteArray& path, struct stat& old)
{
    if (stat(path.constData(), &old) != 0)
        return errno;
    return access(path.constData(), W_OK) == 0 ? 0 : errno;
}

/// What else belongs to a file beside its bytes. Where the user may not pass on the owner or an attribute, the new file
/// goes without: refusing to save would be the greater loss.
int copyOwnerAndAttributes(const QByteArray& from, const struct stat& old, const QByteArray& to)
{
    [[maybe_unused]] const bool isOwnerKept =
        chown(to.constData(), old.st_uid, old.st_gid) == 0 || chown(to.constData(), uid_t(-1), old.st_gid) == 0;
    QByteArray names(64 * 1024, Qt::Uninitialized);
    const ssize_t length = listxattr(from.constData(), names.data(), size_t(names.size()));
    names.truncate(std::max<ssize_t>(length, 0));
    const auto list = names.split('\0');
    for (const QByteArray& name : list) {
        QByteArray value(64 * 1024, Qt::Uninitialized);
        const ssize_t size =
            name.isEmpty() ? -1 : getxattr(from.constData(), name.constData(), value.data(), size_t(value.size()));
        if (size >= 0 && setxattr(to.constData(), name.constData(), value.constData(), size_t(size), 0) != 0
            && errno == ENOSPC)
            return errno;
    }
    return chmod(to.constData(), old.st_mode & 07777) == 0 ? 0 : errno;
}

int replaceFile(const QByteArray& path, const QByteArray& bytes)
{
    struct stat old { };
    const int oldError = lookAtOldFile(path, old);
    if (oldError != 0 && oldError != ENOENT)
        return oldError;
    const QByteArray temporary = path + '.' + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
    int error = writeNewFile(temporary, oldError == 0 ? S_IRUSR | S_IWUSR : mode_t(0666), bytes);
    if (error == EEXIST)
        return error;
    if (error == 0 && oldError == 0)
        error = copyOwnerAndAttributes(path, old, temporary);
    if (error == 0 && std::rename(temporary.constData(), path.constData()) != 0)
        error = errno;
    if (error != 0)
        unlink(temporary.constData());
    return error;
}

/// The new name is in the folder for good only after this. By then the file is whole under either name, so that a
/// failure is none of the writing.
void syncFolderOf(const QString& path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int descriptor = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

}

ZLStatus ZLAtomicFile::write(const QString& path, const QByteArray& bytes)
{
    // A device or a pipe would be replaced by an ordinary file, /dev/null for everyone on the machine.
    if (const QFileInfo file(path); file.exists() && !file.isFile())
        return fileFailure(path, QCoreApplication::translate("ZLAtomicFile", "This is no ordinary file."));
    const QString target = targetOfPath(path);
    if (const int error = replaceFile(QFile::encodeName(target), bytes); error != 0)
        return fileFailure(path, qt_error_string(error));
    syncFolderOf(target);
    return ZLDone {};
}

bool ZLAtomicFile::isReadOnly(const QString& path)
{
    const QString target = targetOfPath(path);
    const QByteArray file = QFile::encodeName(target);
    const QByteArray folder = QFile::encodeName(QFileInfo(target).absolutePath());
    return access(file.constData(), F_OK) == 0
        && (access(file.constData(), W_OK) != 0 || access(folder.constData(), W_OK) != 0);
}

ZLResult<QByteArray> ZLAtomicFile::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fileFailure(path, file.errorString());
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return fileFailure(path, file.errorString());
    return bytes;
}
