#include "platform/ZLBoundedFile.h"

#include "platform/ZLFileError.h"
#include "platform/ZLFileName.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {

struct BoundedFileTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLBoundedFile)
};

ZLFoundFile refusal(ZLFileFinding finding, const QString& path, const QString& reason)
{
    return { .finding = finding, .error = ZLFileError::because(path, reason) };
}

ZLFoundFile failureToOpen(const QString& path, int error)
{
    switch (error) {
    case ENOENT: {
        const QString unfitName = ZLFileName::refusal(path);
        return refusal(ZLFileFinding::Missing, path, unfitName.isEmpty() ? qt_error_string(error) : unfitName);
    }
    case ELOOP:
        return refusal(ZLFileFinding::NoOrdinaryFile, path,
            BoundedFileTexts::tr("This is a symbolic link, which is not followed here."));
    case ENXIO:
        return refusal(ZLFileFinding::NoOrdinaryFile, path, ZLBoundedFile::whyNoOrdinaryFile(S_IFSOCK));
    default:
        return refusal(ZLFileFinding::Unreadable, path, qt_error_string(error));
    }
}

/// Up to `most` bytes; returns 0 or the system's error number.
int readUpTo(int descriptor, qint64 expected, qint64 most, QByteArray& bytes)
{
    constexpr qint64 step = 64 * 1024;
    // One more than expected, so that the end of the file is met without another round.
    bytes.resize(std::min(std::max(expected, qint64(0)) + 1, most));
    qint64 done = 0;
    while (done < most) {
        if (done == bytes.size())
            bytes.resize(std::min(done + std::max(done, step), most));
        const ssize_t count = ::read(descriptor, bytes.data() + done, size_t(bytes.size() - done));
        if (count < 0 && errno != EINTR)
            return errno;
        if (count == 0)
            break;
        done += count > 0 ? count : 0;
    }
    bytes.truncate(done);
    return 0;
}

enum class Excess { Refuse, LeaveOut };

ZLFoundFile tooLarge(const QString& path, qint64 bound)
{
    const QString size = QLocale().formattedDataSize(bound, 0, QLocale::DataSizeIecFormat);
    return refusal(ZLFileFinding::TooLarge, path, BoundedFileTexts::tr("The file is larger than %1.").arg(size));
}

ZLFoundFile readOpened(int descriptor, const QString& path, qint64 bound, Excess excess)
{
    struct stat status {};
    if (fstat(descriptor, &status) != 0)
        return refusal(ZLFileFinding::Unreadable, path, qt_error_string(errno));
    if (const QString reason = ZLBoundedFile::whyNoOrdinaryFile(status.st_mode); !reason.isEmpty())
        return refusal(ZLFileFinding::NoOrdinaryFile, path, reason);
    if (excess == Excess::Refuse && status.st_size > bound)
        return tooLarge(path, bound);
    ZLFoundFile found { .finding = ZLFileFinding::Read };
    // It may still grow; one byte more tells that.
    const qint64 most = excess == Excess::Refuse ? bound + 1 : bound;
    if (const int error = readUpTo(descriptor, status.st_size, most, found.bytes); error != 0)
        return refusal(ZLFileFinding::Unreadable, path, qt_error_string(error));
    return found.bytes.size() > bound ? tooLarge(path, bound) : found;
}

ZLFoundFile openAndRead(const QString& path, qint64 bound, ZLFileLinks links, Excess excess)
{
    // A pipe without a writer would keep an ordinary opening waiting for ever.
    const int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | (links == ZLFileLinks::Refuse ? O_NOFOLLOW : 0);
    const int descriptor = open(QFile::encodeName(path).constData(), flags);
    if (descriptor < 0)
        return failureToOpen(path, errno);
    ZLFoundFile found = readOpened(descriptor, path, bound, excess);
    close(descriptor);
    return found;
}

}

ZLFoundFile ZLBoundedFile::find(const QString& path, qint64 bound, ZLFileLinks links)
{
    return openAndRead(path, bound, links, Excess::Refuse);
}

ZLFoundFile ZLBoundedFile::findBeginning(const QString& path, qint64 length, ZLFileLinks links)
{
    return openAndRead(path, length, links, Excess::LeaveOut);
}

ZLResult<QByteArray> ZLBoundedFile::read(const QString& path, qint64 bound, ZLFileLinks links)
{
    ZLFoundFile found = find(path, bound, links);
    return found.finding == ZLFileFinding::Read ? ZLResult<QByteArray>(std::move(found.bytes))
                                                : ZLResult<QByteArray>(found.error);
}

QString ZLBoundedFile::whyNoOrdinaryFile(mode_t mode)
{
    switch (mode & S_IFMT) {
    case S_IFREG:
        return {};
    case S_IFDIR:
        return BoundedFileTexts::tr("This is a folder, not a file.");
    case S_IFIFO:
        return BoundedFileTexts::tr("This is a pipe, not a file.");
    case S_IFSOCK:
        return BoundedFileTexts::tr("This is a socket, not a file.");
    case S_IFCHR:
    case S_IFBLK:
        return BoundedFileTexts::tr("This is a device, not a file.");
    default:
        return BoundedFileTexts::tr("This is not a regular file.");
    }
}
