#include "platform/ZLAtomicFile.h"

#include "platform/ZLBoundedFile.h"
#include "platform/ZLFileError.h"
#include "platform/ZLFileName.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <optional>
#include <utility>

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;

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

/// The new file while it is written. Without a name it goes by itself with the process.
class NewFile {
public:
    enum class Name { AtOnce, WhenWhole };

    explicit NewFile(QByteArray name)
        : m_name(std::move(name))
    {
    }
    ~NewFile()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
        if (m_hasName)
            unlink(m_name.constData());
    }
    Q_DISABLE_COPY_MOVE(NewFile)

    [[nodiscard]] int descriptor() const { return m_descriptor; }
    [[nodiscard]] const QByteArray& name() const { return m_name; }

    int create(Name name, mode_t mode)
    {
        if (name == Name::WhenWhole && createWithoutName(mode))
            return 0;
        m_descriptor = open(m_name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        m_hasName = m_descriptor >= 0;
        return m_hasName ? 0 : errno;
    }

    /// Syncs the bytes, gives the file its name if it has none, and closes it.
    int finish()
    {
        int error = syncDescriptor(m_descriptor);
        if (error == 0 && !m_hasName)
            error =
                linkat(AT_FDCWD, linkOfDescriptor().constData(), AT_FDCWD, m_name.constData(), AT_SYMLINK_FOLLOW) == 0
                ? 0
                : errno;
        m_hasName = m_hasName || error == 0;
        if (close(std::exchange(m_descriptor, -1)) != 0 && error == 0)
            error = errno;
        return error;
    }

    int takePlaceOf(const QByteArray& path)
    {
        if (std::rename(m_name.constData(), path.constData()) != 0)
            return errno;
        m_hasName = false;
        return 0;
    }

private:
    [[nodiscard]] QByteArray linkOfDescriptor() const { return "/proc/self/fd/" + QByteArray::number(m_descriptor); }

    bool createWithoutName(mode_t mode)
    {
        const QByteArray folder = m_name.left(m_name.lastIndexOf('/') + 1);
        m_descriptor = open(folder.constData(), O_WRONLY | O_TMPFILE | O_CLOEXEC, mode);
        if (m_descriptor >= 0 && access(linkOfDescriptor().constData(), F_OK) == 0)
            return true;
        if (m_descriptor >= 0)
            close(std::exchange(m_descriptor, -1));
        return false;
    }

    QByteArray m_name;
    int m_descriptor = -1;
    bool m_hasName = false;
};

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

ZLStatus checkFreeSpace(const QByteArray& path, qint64 size)
{
    struct statvfs disk {};
    const QByteArray folder = path.left(path.lastIndexOf('/') + 1);
    if (size <= 0 || statvfs(folder.constData(), &disk) != 0)
        return ZLDone {};
    // By division, for the product can be larger than any number.
    if (quint64(disk.f_bavail) >= (quint64(size) + disk.f_frsize - 1) / std::max<quint64>(disk.f_frsize, 1))
        return ZLDone {};
    const quint64 free = disk.f_bavail * disk.f_frsize;
    return ZLError { QCoreApplication::translate("ZLAtomicFile", "%1 more are needed on this disk, %2 are free.")
            .arg(QLocale().formattedDataSize(size), QLocale().formattedDataSize(qint64(free))) };
}

ZLStatus statusOf(int error)
{
    return error == 0 ? ZLStatus(ZLDone {}) : ZLStatus(ZLError { qt_error_string(error) });
}

std::function<ZLStatus(int)> fillWith(const QByteArray& bytes)
{
    return [bytes](int descriptor) { return statusOf(writeAll(descriptor, bytes)); };
}

/// What has to hold before anything is written; tells the permissions of the new file.
ZLStatus prepareReplacing(const QByteArray& path, qint64 size, std::optional<struct stat>& old)
{
    struct stat status {};
    const int error = lookAtOldFile(path, status);
    if (error != 0 && error != ENOENT)
        return statusOf(error);
    if (error == 0)
        old = status;
    return checkFreeSpace(path, size);
}

ZLStatus finishReplacing(
    const QByteArray& path, const std::optional<struct stat>& old, NewFile& file, const ZLFileReplacement& replacement)
{
    if (const ZLStatus filled = replacement.fill(file.descriptor()); !filled)
        return filled;
    if (const int error = file.finish(); error != 0)
        return statusOf(error);
    if (const int error = old ? copyOwnerAndAttributes(path, *old, file.name()) : 0; error != 0)
        return statusOf(error);
    if (const ZLStatus permitted = replacement.permit(); !permitted)
        return permitted;
    return statusOf(file.takePlaceOf(path));
}

/// A free name in the same folder. It is short, since the name of the file may be as long as names can be.
QByteArray temporaryPathBeside(const QByteArray& path)
{
    const QByteArray folder = path.first(path.lastIndexOf('/') + 1);
    return folder + ".zelta-" + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
}

ZLStatus replaceFile(const QByteArray& path, const ZLFileReplacement& replacement, NewFile::Name name)
{
    std::optional<struct stat> old;
    if (const ZLStatus ready = prepareReplacing(path, replacement.size, old); !ready)
        return ready;
    NewFile file(temporaryPathBeside(path));
    if (const int error = file.create(name, old ? ownerOnly : mode_t(0666)); error != 0)
        return statusOf(error);
    return finishReplacing(path, old, file, replacement);
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

ZLStatus replaceAt(const QString& path, const ZLFileReplacement& replacement, NewFile::Name name)
{
    if (const QString unfitName = ZLFileName::refusal(path); !unfitName.isEmpty())
        return ZLFileError::because(path, unfitName);
    // A device or a pipe would be replaced by an ordinary file, /dev/null for everyone on the machine.
    struct stat old {};
    if (stat(QFile::encodeName(path).constData(), &old) == 0 && !S_ISREG(old.st_mode))
        return ZLFileError::because(path, ZLBoundedFile::whyNoOrdinaryFile(old.st_mode));
    const QString target = QFileInfo(targetOfPath(path)).absoluteFilePath();
    if (const ZLStatus replaced = replaceFile(QFile::encodeName(target), replacement, name); !replaced)
        return ZLFileError::because(path, replaced.error().message);
    syncFolderOf(target);
    return ZLDone {};
}

}

ZLStatus ZLAtomicFile::write(const QString& path, const QByteArray& bytes)
{
    return replaceAt(path, { .fill = fillWith(bytes) }, NewFile::Name::AtOnce);
}

ZLStatus ZLAtomicFile::replace(const QString& path, const ZLFileReplacement& replacement)
{
    return replaceAt(path, replacement, NewFile::Name::WhenWhole);
}

bool ZLAtomicFile::isReadOnly(const QString& path)
{
    const QString target = targetOfPath(path);
    const QByteArray file = QFile::encodeName(target);
    const QByteArray folder = QFile::encodeName(QFileInfo(target).absolutePath());
    return access(file.constData(), F_OK) == 0
        && (access(file.constData(), W_OK) != 0 || access(folder.constData(), W_OK) != 0);
}

ZLStatus ZLAtomicFile::writeForOwner(const QString& path, const QByteArray& bytes)
{
    const QByteArray target = QFile::encodeName(path);
    const ZLFileReplacement replacement { .fill = fillWith(bytes) };
    NewFile file(temporaryPathBeside(target));
    const int error = file.create(NewFile::Name::AtOnce, ownerOnly);
    const ZLStatus written = error == 0 ? finishReplacing(target, std::nullopt, file, replacement) : statusOf(error);
    if (!written)
        return ZLFileError::because(path, written.error().message);
    syncFolderOf(path);
    return ZLDone {};
}
