#include "delivery/ZLAudioFileMemory.h"

#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLPrivateFolder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const QString documentKey = QStringLiteral("document");
const QString filesKey = QStringLiteral("files");
const QString shiftKey = QStringLiteral("shift");

/// Newest first.
QJsonArray storedEntries(const QString& path)
{
    const auto json = ZLBoundedFile::read(path, ZLFileBound::List, ZLFileLinks::Refuse);
    return json ? QJsonDocument::fromJson(json.value()).array() : QJsonArray();
}

bool isOf(const QJsonValue& entry, const QString& documentPath)
{
    return entry.toObject().value(documentKey).toString() == documentPath;
}

}

ZLAudioFileMemory::ZLAudioFileMemory(const QString& stateFolder, const QString& listName)
    : m_stateFolder(stateFolder)
    , m_path(stateFolder + u'/' + listName)
{
}

ZLRememberedAudio ZLAudioFileMemory::recall(const QString& documentPath) const
{
    ZLRememberedAudio audio;
    const QJsonArray entries = documentPath.isEmpty() ? QJsonArray() : storedEntries(m_path);
    for (const auto& entry : entries) {
        if (!isOf(entry, documentPath))
            continue;
        const QJsonArray files = entry.toObject().value(filesKey).toArray();
        for (const auto& file : files)
            audio.paths.append(file.toString());
        audio.shift = entry.toObject().value(shiftKey).toDouble();
        break;
    }
    audio.paths.removeAll(QString());
    return audio;
}

void ZLAudioFileMemory::remember(const QString& documentPath, const ZLRememberedAudio& audio) const
{
    if (documentPath.isEmpty())
        return;
    QJsonArray entries { QJsonObject { { documentKey, documentPath },
        { filesKey, QJsonArray::fromStringList(audio.paths) }, { shiftKey, audio.shift } } };
    // Read anew each time: another process may have written something meanwhile.
    const QJsonArray former = storedEntries(m_path);
    for (const auto& entry : former) {
        if (!isOf(entry, documentPath) && entries.size() < MostDocuments)
            entries.append(entry);
    }
    if (ZLPrivateFolder::prepare(m_stateFolder))
        (void)ZLAtomicFile::writeForOwner(m_path, QJsonDocument(entries).toJson());
}
