#include "export/ZLExportTargets.h"

#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLPrivateFolder.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString documentKey = QStringLiteral("document");
const QString targetsKey = QStringLiteral("targets");
const QString formatKey = QStringLiteral("format");
const QString pathKey = QStringLiteral("path");
const QString optionKey = QStringLiteral("option");
const QString patternKey = QStringLiteral("pattern");
const QString digestKey = QStringLiteral("digest");

/// Newest first.
QJsonArray storedDocuments(const QString& path)
{
    const auto json = ZLBoundedFile::read(path, ZLFileBound::List, ZLFileLinks::Refuse);
    return json ? QJsonDocument::fromJson(json.value()).array() : QJsonArray();
}

ZLExportTarget targetFrom(const QJsonObject& entry)
{
    return { .formatName = entry.value(formatKey).toString(),
        .path = entry.value(pathKey).toString(),
        .option = entry.value(optionKey).toBool() ? ZLExportOption::On : ZLExportOption::Off,
        .linePattern = entry.value(patternKey).toString(),
        .digest = QByteArray::fromHex(entry.value(digestKey).toString().toLatin1()) };
}

QJsonObject entryFor(const ZLExportTarget& target)
{
    return { { formatKey, target.formatName }, { pathKey, target.path },
        { optionKey, target.option == ZLExportOption::On }, { patternKey, target.linePattern },
        { digestKey, QString::fromLatin1(target.digest.toHex()) } };
}

}

ZLExportTargets::ZLExportTargets(const QString& stateFolder)
    : m_stateFolder(stateFolder)
    , m_path(stateFolder + u"/export-targets.json"_s)
{
}

QList<ZLExportTarget> ZLExportTargets::recall(const QString& documentPath) const
{
    QList<ZLExportTarget> targets;
    const QJsonArray documents = documentPath.isEmpty() ? QJsonArray() : storedDocuments(m_path);
    for (const auto& document : documents) {
        if (document.toObject().value(documentKey).toString() != documentPath)
            continue;
        const QJsonArray entries = document.toObject().value(targetsKey).toArray();
        for (const auto& entry : entries)
            targets.append(targetFrom(entry.toObject()));
        break;
    }
    targets.removeIf([](const ZLExportTarget& target) { return target.path.isEmpty(); });
    return targets;
}

void ZLExportTargets::remember(const QString& documentPath, const ZLExportTarget& target) const
{
    if (documentPath.isEmpty())
        return;
    QList<ZLExportTarget> targets = recall(documentPath);
    const auto former = std::ranges::find(targets, target.formatName, &ZLExportTarget::formatName);
    if (former == targets.end())
        targets.append(target);
    else
        *former = target;
    store(documentPath, targets, documentPath);
}

void ZLExportTargets::move(const QString& from, const QString& to) const
{
    const QList<ZLExportTarget> targets = recall(from);
    if (!targets.isEmpty() && !to.isEmpty() && from != to)
        store(to, targets, from);
}

void ZLExportTargets::store(
    const QString& documentPath, const QList<ZLExportTarget>& targets, const QString& formerPath) const
{
    QJsonArray entries;
    for (const ZLExportTarget& target : targets)
        entries.append(entryFor(target));
    QJsonArray documents { QJsonObject { { documentKey, documentPath }, { targetsKey, entries } } };
    // Read anew each time: another process may have written something meanwhile.
    const QJsonArray others = storedDocuments(m_path);
    for (const auto& other : others) {
        const QString path = other.toObject().value(documentKey).toString();
        if (path != documentPath && path != formerPath && documents.size() < MostDocuments)
            documents.append(other);
    }
    if (ZLPrivateFolder::prepare(m_stateFolder))
        (void)ZLAtomicFile::writeForOwner(m_path, QJsonDocument(documents).toJson());
}

QByteArray ZLExportTargets::digestOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}
