// Bytes from anywhere into the reader of journals. The digests keep altered bytes out, so what follows the first byte
// is also taken for payloads and framed anew: then the reader has to judge what they say.
#include "document/ZLDocumentFile.h"
#include "document/saving/journal/ZLJournalChange.h"
#include "document/saving/journal/ZLJournalReader.h"
#include "document/saving/journal/ZLJournalRecord.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void readJournal(QByteArrayView bytes, QByteArrayView tail = {})
{
    const auto read = ZLJournalReader::read(bytes, tail);
    if (read.isOk() != read.error().message.isEmpty())
        std::abort();
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QByteArrayView data(bytes, qsizetype(size));
    readJournal(data);
    using Kind = ZLJournalRecord::Kind;
    quint32 sequence = 0;
    QByteArray journal = ZLJournalRecords::Signature;
    journal += ZLJournalRecords::encoded(sequence++, { Kind::Origin, "/show.zelta" });
    journal += ZLJournalRecords::encoded(
        sequence++, { Kind::Snapshot, ZLDocumentFile::encode({ { QVariantMap {}, QVariantMap {} }, 1.0, {} }) });
    const qsizetype sizeBeforeChanges = journal.size();
    journal += ZLJournalRecords::encoded(sequence++, { Kind::Change, data.toByteArray() });
    journal += ZLJournalRecords::encoded(sequence++, { Kind::Snapshot, data.toByteArray() });
    readJournal(journal);
    const ZLJournalRecord numbered { Kind::Change, ZLJournalChange { .number = 1 }.encoded() };
    const QByteArray whole = journal.first(sizeBeforeChanges) + ZLJournalRecords::encoded(2, numbered);
    readJournal(whole, data);
    readJournal(
        whole, ZLJournalRecords::Signature + ZLJournalRecords::encoded(0, { Kind::Change, data.toByteArray() }));
    return 0;
}
