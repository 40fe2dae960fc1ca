#include "platform/ZLPrivateFolder.h"

#include "platform/ZLFileError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <sys/stat.h>

ZLStatus ZLPrivateFolder::prepare(const QString& path)
{
    const QByteArray nativePath = QFile::encodeName(path);
    // Whatever keeps the parents from being made, the next call says it.
    QDir().mkpath(QFileInfo(path).absolutePath());
    if (mkdir(nativePath.constData(), S_IRWXU) != 0 && (errno != EEXIST || !QFileInfo(path).isDir()))
        return ZLFileError::ofSystem(path, errno == EEXIST ? ENOTDIR : errno);
    if (chmod(nativePath.constData(), S_IRWXU) != 0)
        return ZLFileError::ofSystem(path, errno);
    return ZLDone {};
}
