#include "platform/ZLRuntimeFolder.h"

#include <QDir>
#include <QFile>

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace {

constexpr mode_t everybodyElse = S_IRWXG | S_IRWXO;

}

QString ZLRuntimeFolder::path()
{
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return QDir::isAbsolutePath(folder) && belongsToUserAlone(folder) ? folder : QString();
}

QString ZLRuntimeFolder::pathInMemory()
{
    const QString folder = path();
    struct statfs status {};
    if (folder.isEmpty() || statfs(QFile::encodeName(folder).constData(), &status) != 0)
        return {};
    return status.f_type == TMPFS_MAGIC || status.f_type == RAMFS_MAGIC ? folder : QString();
}

bool ZLRuntimeFolder::belongsToUserAlone(const QString& folder)
{
    struct stat status {};
    return lstat(QFile::encodeName(folder).constData(), &status) == 0 && S_ISDIR(status.st_mode)
        && status.st_uid == geteuid() && (status.st_mode & everybodyElse) == 0;
}
