#include "platform/ZLSocketPath.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype digitsOfSocketName = 32;
constexpr mode_t everybodyElse = S_IRWXG | S_IRWXO;

bool fitsSocketAddress(const QString& path)
{
    return QFile::encodeName(path).size() <= ZLSocketPath::LongestPath;
}

/// Else a program of another user could stand behind the socket.
bool belongsToUserAlone(const QString& folder)
{
    struct stat status {};
    return lstat(QFile::encodeName(folder).constData(), &status) == 0 && S_ISDIR(status.st_mode)
        && status.st_uid == geteuid() && (status.st_mode & everybodyElse) == 0;
}

QString temporaryFolderOfUser()
{
    const QString folder = u"/tmp/zelta-%1"_s.arg(geteuid());
    // Whether it was there before or could not be made: what it is like now is looked at anyway.
    mkdir(QFile::encodeName(folder).constData(), S_IRWXU);
    return folder;
}

}

QString ZLSocketPath::reachable(const QString& path)
{
    if (fitsSocketAddress(path))
        return path;
    const QByteArray digest = QCryptographicHash::hash(QFile::encodeName(path), QCryptographicHash::Sha256).toHex();
    const QString name = u"/zelta-"_s + QString::fromLatin1(digest.first(digitsOfSocketName));
    const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (QDir::isAbsolutePath(runtimeFolder) && fitsSocketAddress(runtimeFolder + name)
        && belongsToUserAlone(runtimeFolder))
        return runtimeFolder + name;
    const QString temporaryFolder = temporaryFolderOfUser();
    return belongsToUserAlone(temporaryFolder) ? temporaryFolder + name : path;
}
