#include "platform/media/ZLMediaSource.h"

#include "platform/ZLFileError.h"
#include "platform/ZLFileName.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

struct MediaSourceTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLMediaSource)
};

bool isSameMoment(const timespec& left, const timespec& right)
{
    return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

/// The moment of the last change of attributes counts as well: a writer can set back the moment of writing.
bool isSameFile(const struct stat& left, const struct stat& right)
{
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino && left.st_size == right.st_size
        && isSameMoment(left.st_mtim, right.st_mtim) && isSameMoment(left.st_ctim, right.st_ctim);
}

}

ZLResult<std::shared_ptr<ZLMediaSource>> ZLMediaSource::open(const QString& path)
{
    // Without waiting, so that a pipe is told apart even while no program writes into it.
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) {
        const int error = errno;
        const QString unfitName = ZLFileName::refusal(path);
        return unfitName.isEmpty() ? ZLFileError::ofSystem(path, error) : ZLFileError::because(path, unfitName);
    }
    struct stat status {};
    const bool isKnown = fstat(descriptor, &status) == 0;
    std::shared_ptr<ZLMediaSource> source(new ZLMediaSource(path, descriptor, status));
    if (!isKnown || !S_ISREG(status.st_mode))
        return ZLError { MediaSourceTexts::tr("%1: This is not a regular file.").arg(path) };
    return source;
}

ZLMediaSource::ZLMediaSource(QString path, int descriptor, const struct stat& status)
    : m_path(std::move(path))
    , m_descriptor(descriptor)
    , m_status(status)
{
}

ZLMediaSource::~ZLMediaSource()
{
    close(m_descriptor);
}

QByteArray ZLMediaSource::read(qint64 offset, qint64 length) const
{
    if (offset < 0 || offset >= size())
        return {};
    const qint64 wanted = std::clamp(length, qint64(0), std::min(size() - offset, largestReading));
    QByteArray bytes(qsizetype(wanted), Qt::Uninitialized);
    qint64 done = 0;
    while (done < wanted) {
        const ssize_t count = pread(m_descriptor, bytes.data() + done, size_t(wanted - done), offset + done);
        if (count == 0 || (count < 0 && errno != EINTR))
            break;
        done += std::max<ssize_t>(count, 0);
    }
    bytes.truncate(qsizetype(done));
    return bytes;
}

qint64 ZLMediaSource::endOfHole(qint64 offset) const
{
    const off_t found = lseek(m_descriptor, offset, SEEK_DATA);
    if (found >= 0)
        return found;
    return errno == ENXIO ? size() : offset;
}

ZLStatus ZLMediaSource::checkUnchanged() const
{
    struct stat now {};
    if (stat(QFile::encodeName(m_path).constData(), &now) != 0)
        return ZLError { qt_error_string(errno) };
    if (!isSameFile(now, m_status))
        return ZLError { MediaSourceTexts::tr("Another program has changed the audio file meanwhile.") };
    return ZLDone {};
}
