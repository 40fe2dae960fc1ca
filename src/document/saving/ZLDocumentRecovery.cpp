#include "document/saving/ZLDocumentRecovery.h"

#include "document/saving/ZLJournalRecord.h"
#include "platform/ZLAtomicFile.h"

#include <QFile>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(recoveryLog, "zelta.document.recovery", QtInfoMsg)

/// The path in the first record, without reading the rest. Empty when there is none.
QString pathInJournal(const QString& journalPath)
{
    constexpr qint64 longestBeginning = 64 * 1024;
    QFile file(journalPath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const auto decoded = ZLJournalRecords::decoded(file.read(longestBeginning));
    if (decoded.records.isEmpty() || decoded.records.first().kind != ZLJournalRecord::Kind::Origin)
        return {};
    return QString::fromUtf8(decoded.records.first().payload);
}

}

std::optional<ZLRecoveredDocument> ZLDocumentRecovery::read(std::unique_ptr<ZLRecoveryFile>& file)
{
    const auto bytes = ZLAtomicFile::read(file->journalPath());
    if (!bytes)
        return std::nullopt;
    auto journal = ZLJournalReader::read(bytes.value());
    if (!journal) {
        qCWarning(recoveryLog) << file->journalPath() << journal.error().message;
        QFile::rename(file->journalPath(), file->journalPath() + u".unreadable"_s);
        return std::nullopt;
    }
    if (journal.value().isTorn)
        qCWarning(recoveryLog) << file->journalPath() << "ends in half a record, which is left out";
    return ZLRecoveredDocument { std::move(file), std::move(journal).value() };
}

std::optional<ZLRecoveredDocument> ZLDocumentRecovery::claimJournal(
    const ZLRecoveryFolder& folder, const std::function<bool(const QString& filePath)>& isWanted)
{
    const auto paths = folder.journaledFiles();
    for (const QString& path : paths) {
        if (!isWanted(pathInJournal(path + ZLRecoveryFile::JournalSuffix)))
            continue;
        auto claimed = folder.claim(path);
        if (!claimed)
            continue;
        auto file = std::move(claimed).value();
        if (file) {
            if (auto recovered = read(file))
                return recovered;
        }
    }
    return std::nullopt;
}
