#include "platform/ZLSocketPath.h"

#include "platform/ZLRuntimeFolder.h"

#include <QCryptographicHash>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype digitsOfSocketName = 32;

bool fitsSocketAddress(const QString& path)
{
    return QFile::encodeName(path).size() <= ZLSocketPath::LongestPath;
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
    // Elsewhere a program of another user could stand behind the socket.
    const QString runtimeFolder = ZLRuntimeFolder::path();
    if (!runtimeFolder.isEmpty() && fitsSocketAddress(runtimeFolder + name))
        return runtimeFolder + name;
    const QString temporaryFolder = temporaryFolderOfUser();
    return ZLRuntimeFolder::belongsToUserAlone(temporaryFolder) ? temporaryFolder + name : path;
}
