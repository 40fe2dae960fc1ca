#include "app/session/ZLOpenDocuments.h"

#include "platform/ZLAbandonedWork.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLPrivateFolder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(openDocumentsLog, "zelta.app.documents", QtInfoMsg)

const QString sessionDocumentsKey = QStringLiteral("documents");
const QString sessionFileKey = QStringLiteral("file");
const QString sessionRecoveryKey = QStringLiteral("recovery");

QJsonObject sessionEntryToJson(const ZLOpenDocumentEntry& entry)
{
    const bool isFile = entry.kind == ZLOpenDocumentEntry::Kind::File;
    return { { isFile ? sessionFileKey : sessionRecoveryKey, entry.path } };
}

QByteArray sessionToJson(const QList<ZLOpenDocumentEntry>& entries)
{
    QJsonArray documents;
    for (const auto& entry : entries)
        documents.append(sessionEntryToJson(entry));
    return QJsonDocument(QJsonObject { { sessionDocumentsKey, documents } }).toJson();
}

void writeSession(const QString& path, const QByteArray& json)
{
    if (const ZLStatus written = ZLAtomicFile::writeForOwner(path, json); !written)
        qCWarning(openDocumentsLog) << "cannot remember the open documents:" << written.error().message;
}

}

ZLOpenDocuments::ZLOpenDocuments(const QString& stateFolder, Executor executor)
    : m_path(stateFolder + u"/session.json"_s)
    , m_executor(std::move(executor))
{
    m_worker->setMaxThreadCount(1);
    if (!m_executor)
        m_executor = [worker = m_worker.get()](std::function<void()> task) { worker->start(std::move(task)); };
    if (const ZLStatus prepared = ZLPrivateFolder::prepare(stateFolder); !prepared)
        qCWarning(openDocumentsLog) << prepared.error().message;
    auto lock = ZLFileLock::tryLock(m_path + u".lock"_s);
    if (lock)
        m_lock = std::move(lock).value();
    else
        qCWarning(openDocumentsLog) << "cannot remember the open documents:" << lock.error().message;
}

QList<ZLOpenDocumentEntry> ZLOpenDocuments::load() const
{
    const auto json = ZLBoundedFile::read(m_path, ZLFileBound::List, ZLFileLinks::Refuse);
    if (!isOwner() || !json)
        return {};
    QList<ZLOpenDocumentEntry> entries;
    const QJsonArray documents = QJsonDocument::fromJson(json.value()).object().value(sessionDocumentsKey).toArray();
    for (const auto& document : documents) {
        const QJsonObject entry = document.toObject();
        const QString file = entry.value(sessionFileKey).toString();
        const QString recovery = entry.value(sessionRecoveryKey).toString();
        if (!file.isEmpty())
            entries.append({ ZLOpenDocumentEntry::Kind::File, file });
        else if (!recovery.isEmpty())
            entries.append({ ZLOpenDocumentEntry::Kind::Recovery, recovery });
    }
    return entries;
}

void ZLOpenDocuments::store(const QList<ZLOpenDocumentEntry>& entries)
{
    if (isOwner())
        m_executor([path = m_path, json = sessionToJson(entries)] { writeSession(path, json); });
}

void ZLOpenDocuments::end(QDeadlineTimer deadline)
{
    if (!m_worker->waitForDone(int(deadline.remainingTime())))
        ZLAbandonedWork::keep(m_worker);
}
