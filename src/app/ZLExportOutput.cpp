#include "app/ZLExportOutput.h"

#include "document/saving/ZLWriteProtection.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLFileError.h"

#include <QFile>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString pathOfStandardOutput = QStringLiteral("/dev/stdout");

/// What takes bytes one after the other and has no contents that could be replaced. A disk has.
bool isStream(const struct stat& status)
{
    return S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode);
}

/// 0 or the system's error number.
int writeToDescriptor(int descriptor, const QByteArray& bytes)
{
    // A reader that goes away is an error to be told, not a silent end.
    std::signal(SIGPIPE, SIG_IGN);
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = write(descriptor, bytes.constData() + done, size_t(bytes.size() - done));
        if (count < 0 && errno != EINTR)
            return errno;
        done += count > 0 ? count : 0;
    }
    return 0;
}

int writeToStream(const QString& path, const QByteArray& bytes)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return errno;
    struct stat opened {};
    int error = fstat(descriptor, &opened) != 0 ? errno : 0;
    // Something else may have taken its place meanwhile.
    if (error == 0)
        error = isStream(opened) ? writeToDescriptor(descriptor, bytes) : EAGAIN;
    if (close(descriptor) != 0 && error == 0)
        error = errno;
    return error;
}

ZLStatus statusOf(int error, const QString& path)
{
    return error == 0 ? ZLStatus(ZLDone {}) : ZLStatus(ZLFileError::ofSystem(path, error));
}

}

ZLExportOutput::ZLExportOutput(const QString& argument)
    : m_path(argument == "-"_L1 ? pathOfStandardOutput : argument)
    , m_isStandardOutput(m_path == pathOfStandardOutput)
{
}

ZLStatus ZLExportOutput::write(const QByteArray& bytes) const
{
    // Also for the standard output, which may have been led into a file.
    if (const ZLStatus allowed = ZLWriteProtection::check(m_path); !allowed)
        return allowed;
    if (m_isStandardOutput)
        return statusOf(writeToDescriptor(STDOUT_FILENO, bytes), m_path);
    struct stat target {};
    if (stat(QFile::encodeName(m_path).constData(), &target) == 0 && isStream(target))
        return statusOf(writeToStream(m_path, bytes), m_path);
    return ZLAtomicFile::write(m_path, bytes);
}
