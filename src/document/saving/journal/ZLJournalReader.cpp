#include "document/saving/journal/ZLJournalReader.h"

#include "document/saving/journal/ZLJournalChange.h"
#include "document/saving/journal/ZLJournalRecord.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

bool fits(const std::optional<ZLJournalSplice>& splice, const QVariantList& list)
{
    return !splice
        || (splice->first >= 0 && splice->removedCount >= 0 && splice->first <= list.size()
            && splice->removedCount <= list.size() - splice->first);
}

void performSplice(const std::optional<ZLJournalSplice>& splice, QVariantList& list)
{
    if (!splice)
        return;
    const qsizetype reused = std::min(splice->removedCount, splice->inserted.size());
    std::copy_n(splice->inserted.cbegin(), reused, list.begin() + splice->first);
    if (splice->removedCount > reused)
        list.remove(splice->first + reused, splice->removedCount - reused);
    if (splice->inserted.size() > reused) {
        const qsizetype room = splice->inserted.size() - reused;
        list.insert(splice->first + reused, room, QVariant());
        std::copy_n(splice->inserted.cbegin() + reused, room, list.begin() + splice->first + reused);
    }
}

/// False for a record that does not fit what came before it.
bool applyChange(const ZLJournalRecord& record, ZLJournaledDocument& document)
{
    const auto decoded = ZLJournalChange::decoded(record.payload);
    if (!decoded)
        return false;
    const ZLJournalChange& change = decoded.value();
    if (!fits(change.chapters, document.contents.chapters) || !fits(change.templates, document.contents.templates))
        return false;
    performSplice(change.chapters, document.contents.chapters);
    performSplice(change.templates, document.contents.templates);
    if (change.extras)
        change.extras->applyTo(document.contents.extras);
    document.contents.duration = change.reading;
    document.interruption = change.running;
    return true;
}

bool applyRecord(const ZLJournalRecord& record, ZLJournaledDocument& document)
{
    switch (record.kind) {
    case ZLJournalRecord::Kind::Origin:
        document.filePath = QString::fromUtf8(record.payload);
        return true;
    case ZLJournalRecord::Kind::KnownFile:
        document.fileDigests.append(record.payload);
        return true;
    case ZLJournalRecord::Kind::Change:
        return applyChange(record, document);
    case ZLJournalRecord::Kind::Snapshot:
        break;
    }
    auto contents = ZLDocumentFile::decode(record.payload);
    if (contents)
        document.contents = std::move(contents).value();
    return contents.isOk();
}

/// A version is noted before it is written, by another thread than changes are, so its place among them says nothing.
/// Nor does it matter whether a change or the snapshot brought what is newer: a journal that was begun anew has all of
/// it in its snapshot.
bool isNewerThanFile(const ZLJournaledDocument& document)
{
    return document.fileDigests.isEmpty()
        || document.fileDigests.last() != ZLJournalRecords::digestOf(ZLDocumentFile::encode(document.contents));
}

}

bool ZLJournaledDocument::belongsTo(QByteArrayView fileBytes) const
{
    return fileDigests.contains(ZLJournalRecords::digestOf(fileBytes));
}

bool ZLJournaledDocument::isWhollyIn(QByteArrayView fileBytes) const
{
    return !hasChangesSinceFile && !interruption && !fileDigests.isEmpty()
        && fileDigests.last() == ZLJournalRecords::digestOf(fileBytes);
}

ZLResult<ZLJournaledDocument> ZLJournalReader::read(QByteArrayView bytes)
{
    using Kind = ZLJournalRecord::Kind;
    const auto decoded = ZLJournalRecords::decoded(bytes);
    const auto& records = decoded.records;
    ZLJournaledDocument document;
    if (records.size() < 2 || records.at(0).kind != Kind::Origin || records.at(1).kind != Kind::Snapshot
        || !applyRecord(records.at(0), document) || !applyRecord(records.at(1), document))
        return ZLError { QCoreApplication::translate("ZLJournalReader", "This is not a journal of a document.") };
    document.isTorn = decoded.isTorn;
    for (auto record = records.cbegin() + 2; record != records.cend(); ++record) {
        if (!applyRecord(*record, document)) {
            document.isTorn = true;
            break;
        }
    }
    document.hasChangesSinceFile = isNewerThanFile(document);
    return document;
}
