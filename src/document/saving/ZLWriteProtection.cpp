#include "document/saving/ZLWriteProtection.h"

#include "document/saving/ZLDocumentLock.h"
#include "document/saving/ZLOpenFileList.h"
#include "document/saving/ZLOpenFileNote.h"
#include "platform/ZLFileIdentity.h"
#include "platform/ZLStateFolder.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <sys/stat.h>

namespace {

bool isInStateFolder(const QString& path)
{
    const auto stateFolder = ZLFileIdentity::of(ZLStateFolder::path());
    QString folder = QFileInfo(ZLFileIdentity::resolvedPath(path)).path();
    while (ZLFileIdentity::of(folder) != stateFolder) {
        const QString parent = QFileInfo(folder).path();
        if (parent == folder)
            return false;
        folder = parent;
    }
    return true;
}

/// Only a file with a second name can have one in the state folder as well.
bool isHardLinkIntoStateFolder(const QString& path)
{
    struct stat status {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0 || status.st_nlink < 2)
        return false;
    const auto target = ZLFileIdentity::of(path);
    QDirIterator files(
        ZLStateFolder::path(), QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        if (ZLFileIdentity::of(files.next()) == target)
            return true;
    }
    return false;
}

bool isOpenDocument(const QString& path, const ZLOpenFileNote* own)
{
    const auto target = ZLFileIdentity::of(path);
    const auto& list = ZLOpenFileList::ofThisProcess();
    const QStringList openPaths = list.pathsHere(own) + list.pathsElsewhere();
    return std::any_of(openPaths.begin(), openPaths.end(), [&target](const QString& open) {
        return ZLFileIdentity::of(open) == target || ZLFileIdentity::of(ZLDocumentLock::lockPath(open)) == target;
    });
}

}

ZLStatus ZLWriteProtection::check(const QString& path, const ZLOpenFileNote* own)
{
    if (own && ZLFileIdentity::of(own->path()) == ZLFileIdentity::of(path))
        return ZLDone {};
    // The lock beside it tells also of a process with a state folder of its own, as in a sandbox.
    if (isInStateFolder(path) || isHardLinkIntoStateFolder(path) || isOpenDocument(path, own)
        || ZLFileLock::isHeld(ZLDocumentLock::lockPath(path)))
        return ZLError {
            QCoreApplication::translate("ZLWriteProtection", "%1 is in use by Zelta. Choose another name.").arg(path)
        };
    return ZLDone {};
}
