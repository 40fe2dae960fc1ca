#include "app/session/ZLRecentDocuments.h"

#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLPrivateFolder.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(recentDocumentsLog, "zelta.app.documents", QtInfoMsg)

}

ZLRecentDocuments::ZLRecentDocuments(const QString& stateFolder, QObject* parent)
    : QObject(parent)
    , m_stateFolder(stateFolder)
    , m_path(stateFolder + u"/recent.json"_s)
{
}

QStringList ZLRecentDocuments::paths() const
{
    QStringList existing = storedPaths();
    existing.removeIf([](const QString& path) { return !QFile::exists(path); });
    return existing;
}

void ZLRecentDocuments::add(const QString& path)
{
    // Read anew each time: another process may have added something meanwhile.
    QStringList paths = storedPaths();
    paths.removeAll(path);
    paths.prepend(path);
    store(paths.first(std::min(paths.size(), LongestList)));
}

void ZLRecentDocuments::clear()
{
    store({});
}

QStringList ZLRecentDocuments::storedPaths() const
{
    QStringList paths;
    if (const auto json = ZLBoundedFile::read(m_path, ZLFileBound::List, ZLFileLinks::Refuse)) {
        const QJsonArray stored = QJsonDocument::fromJson(json.value()).array();
        for (const auto& path : stored)
            paths.append(path.toString());
    }
    paths.removeAll(QString());
    return paths;
}

void ZLRecentDocuments::store(const QStringList& paths)
{
    const QByteArray json = QJsonDocument(QJsonArray::fromStringList(paths)).toJson();
    ZLStatus written = ZLPrivateFolder::prepare(m_stateFolder);
    if (written)
        written = ZLAtomicFile::writeForOwner(m_path, json);
    if (!written)
        qCWarning(recentDocumentsLog) << "cannot remember recent documents:" << written.error().message;
    Q_EMIT didChange();
}
