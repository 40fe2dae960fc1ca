#include "platform/ZLFileIdentity.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

ZLFileIdentity ZLFileIdentity::of(const QString& path)
{
    ZLFileIdentity identity;
    struct stat status {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0) {
        const QString resolved = resolvedPath(path);
        const QFileInfo file(resolved);
        const bool isFolderThere = stat(QFile::encodeName(file.path()).constData(), &status) == 0;
        identity.m_name = QFile::encodeName(isFolderThere ? file.fileName() : resolved);
        if (!isFolderThere)
            return identity;
    }
    identity.m_device = status.st_dev;
    identity.m_inode = status.st_ino;
    return identity;
}

QString ZLFileIdentity::resolvedPath(const QString& path)
{
    // As many links as the system itself follows.
    constexpr int mostLinks = 40;
    QString resolved = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    for (int links = 0; links < mostLinks; ++links) {
        const QFileInfo file(resolved);
        if (file.exists())
            return file.canonicalFilePath();
        if (!file.isSymLink())
            break;
        resolved = file.symLinkTarget();
    }
    const QFileInfo file(resolved);
    const QString folder = QFileInfo(file.path()).canonicalFilePath();
    return folder.isEmpty() ? resolved : QDir(folder).filePath(file.fileName());
}
