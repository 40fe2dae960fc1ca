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

/// A state and the number of the change that it came with.
struct Reading {
    ZLJournaledDocument document {};
    qint64 number = 0;
};

/// False for a change that does not fit what came before it.
bool applyChange(const ZLJournalChange& change, Reading& reading)
{
    ZLJournaledDocument& document = reading.document;
    if (!fits(change.chapters, document.contents.chapters) || !fits(change.templates, document.contents.templates))
        return false;
    performSplice(change.chapters, document.contents.chapters);
    performSplice(change.templates, document.contents.templates);
    if (change.extras)
        change.extras->applyTo(document.contents.extras);
    document.contents.duration = change.reading;
    document.interruption = change.running;
    reading.number = change.number;
    return true;
}

bool applyChangeRecord(const ZLJournalRecord& record, Reading& reading)
{
    const auto change = ZLJournalChange::decoded(record.payload);
    return change && applyChange(change.value(), reading);
}

bool applyRecord(const ZLJournalRecord& record, Reading& reading)
{
    ZLJournaledDocument& document = reading.document;
    switch (record.kind) {
    case ZLJournalRecord::Kind::Origin:
        document.filePath = QString::fromUtf8(record.payload);
        return true;
    case ZLJournalRecord::Kind::KnownFile:
        document.fileDigests.append(record.payload);
        return true;
    case ZLJournalRecord::Kind::Change:
        return applyChangeRecord(record, reading);
    case ZLJournalRecord::Kind::Heard:
        return false;
    case ZLJournalRecord::Kind::Snapshot:
        break;
    }
    auto contents = ZLDocumentFile::decode(record.payload);
    if (!contents)
        return false;
    document.contents = std::move(contents).value();
    return true;
}

/// Whether all records make sense.
bool applyRecords(const QList<ZLJournalRecord>& records, Reading& reading)
{
    return std::all_of(records.cbegin(), records.cend(),
        [&reading](const ZLJournalRecord& record) { return applyRecord(record, reading); });
}

/// The tail begins somewhere before the end of the journal, or right behind it. Returns whether it brought anything.
bool applyTail(QByteArrayView bytes, Reading& reading)
{
    const qint64 numberBefore = reading.number;
    const auto records = ZLJournalRecords::decoded(bytes).records;
    for (const ZLJournalRecord& record : records) {
        const auto change = ZLJournalChange::decoded(record.payload);
        if (!change || record.kind != ZLJournalRecord::Kind::Change)
            break;
        if (change.value().number <= reading.number)
            continue;
        if (change.value().number != reading.number + 1 || !applyChange(change.value(), reading))
            break;
    }
    return reading.number != numberBefore;
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

ZLResult<ZLJournaledDocument> ZLJournalReader::read(QByteArrayView bytes, QByteArrayView tail)
{
    using Kind = ZLJournalRecord::Kind;
    const auto decoded = ZLJournalRecords::decoded(bytes);
    const auto& records = decoded.records;
    Reading reading;
    if (records.size() < 2 || records.at(0).kind != Kind::Origin || records.at(1).kind != Kind::Snapshot
        || !applyRecords(records.first(2), reading))
        return ZLError { QCoreApplication::translate("ZLJournalReader", "This is not a journal of a document.") };
    const bool isWhole = applyRecords(records.sliced(2), reading) && !decoded.isTorn;
    const bool hasTail = reading.number != 0 && applyTail(tail, reading);
    reading.document.isTorn = !isWhole && !hasTail;
    reading.document.hasChangesSinceFile = isNewerThanFile(reading.document);
    return std::move(reading.document);
}
