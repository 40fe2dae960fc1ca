#include "document/saving/ZLDocumentRecovery.h"

#include "document/saving/journal/ZLJournalRecord.h"
#include "document/saving/journal/ZLJournalTail.h"
#include "platform/ZLBoundedFile.h"

#include <QFile>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(recoveryLog, "zelta.document.recovery", QtInfoMsg)

/// The path in the first record, without reading the rest. Empty when there is none.
QString pathInJournal(const QString& journalPath)
{
    constexpr qint64 longestBeginning = 64 * 1024;
    const ZLFoundFile found = ZLBoundedFile::findBeginning(journalPath, longestBeginning, ZLFileLinks::Refuse);
    const auto decoded = ZLJournalRecords::decoded(found.bytes);
    if (decoded.records.isEmpty() || decoded.records.first().kind != ZLJournalRecord::Kind::Origin)
        return {};
    return QString::fromUtf8(decoded.records.first().payload);
}

}

std::optional<ZLRecoveredDocument> ZLDocumentRecovery::read(std::unique_ptr<ZLRecoveryFile>& file)
{
    const ZLFoundFile found = ZLBoundedFile::find(file->journalPath(), ZLFileBound::Document, ZLFileLinks::Refuse);
    if (found.finding == ZLFileFinding::Missing || found.finding == ZLFileFinding::Unreadable)
        return std::nullopt;
    auto journal = found.finding == ZLFileFinding::Read
        ? ZLJournalReader::read(found.bytes, ZLJournalTail::read(file->journalPath()))
        : ZLResult<ZLJournaledDocument>(found.error);
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
