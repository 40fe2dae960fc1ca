#include "export/ZLExportFolders.h"

#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLPrivateFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QJsonObject storedFolders(const QString& path)
{
    const auto json = ZLBoundedFile::read(path, ZLFileBound::List, ZLFileLinks::Refuse);
    return json ? QJsonDocument::fromJson(json.value()).object() : QJsonObject();
}

}

ZLExportFolders::ZLExportFolders(const QString& stateFolder)
    : m_stateFolder(stateFolder)
    , m_path(stateFolder + u"/export-folders.json"_s)
{
}

QString ZLExportFolders::folderFor(const QString& formatName, const QString& documentPath) const
{
    const QStringList candidates { storedFolders(m_path).value(formatName).toString(),
        documentPath.isEmpty() ? QString() : QFileInfo(documentPath).absolutePath(),
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) };
    for (const QString& folder : candidates) {
        if (!folder.isEmpty() && QFileInfo(folder).isDir())
            return folder;
    }
    return QDir::homePath();
}

void ZLExportFolders::remember(const QString& formatName, const QString& path) const
{
    // Read anew each time: another process may have written something meanwhile.
    QJsonObject folders = storedFolders(m_path);
    folders.insert(formatName, QFileInfo(path).absolutePath());
    if (ZLPrivateFolder::prepare(m_stateFolder))
        (void)ZLAtomicFile::writeForOwner(m_path, QJsonDocument(folders).toJson());
}
