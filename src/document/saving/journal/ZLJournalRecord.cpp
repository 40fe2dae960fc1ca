#include "document/saving/journal/ZLJournalRecord.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <array>

namespace {

constexpr qsizetype recordHeadSize = 4 + 4 + 1;
constexpr qsizetype recordDigestSize = 8;

QByteArray shortDigestOf(QByteArrayView head, QByteArrayView payload)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(head);
    hash.addData(payload);
    return hash.result().first(recordDigestSize);
}

void appendNumber(QByteArray& bytes, quint32 number)
{
    std::array<char, sizeof number> raw {};
    qToBigEndian(number, raw.data());
    bytes.append(raw.data(), raw.size());
}

bool isKnownKind(quint8 kind)
{
    using Kind = ZLJournalRecord::Kind;
    return kind == quint8(Kind::Origin) || kind == quint8(Kind::Snapshot) || kind == quint8(Kind::Change)
        || kind == quint8(Kind::KnownFile) || kind == quint8(Kind::Heard);
}

}

QByteArray ZLJournalRecords::head(quint32 sequence, const ZLJournalRecord& record)
{
    QByteArray bytes;
    bytes.reserve(recordHeadSize + record.payload.size() + recordDigestSize);
    appendNumber(bytes, quint32(record.payload.size()));
    appendNumber(bytes, sequence);
    bytes.append(char(record.kind));
    return bytes;
}

QByteArray ZLJournalRecords::recordDigest(quint32 sequence, const ZLJournalRecord& record)
{
    return record.digest.isEmpty() ? shortDigestOf(head(sequence, record), record.payload) : record.digest;
}

QByteArray ZLJournalRecords::encoded(quint32 sequence, const ZLJournalRecord& record)
{
    return head(sequence, record) + record.payload + recordDigest(sequence, record);
}

ZLJournalRecords::Decoded ZLJournalRecords::decoded(QByteArrayView bytes)
{
    Decoded result;
    if (!bytes.startsWith(Signature)) {
        result.isTorn = true;
        return result;
    }
    bytes = bytes.sliced(Signature.size());
    for (quint32 sequence = 0; !bytes.isEmpty(); ++sequence) {
        result.isTorn = true;
        if (bytes.size() < recordHeadSize + recordDigestSize)
            return result;
        const auto length = qsizetype(qFromBigEndian<quint32>(bytes.data()));
        const auto kind = quint8(bytes.at(recordHeadSize - 1));
        if (length > bytes.size() - recordHeadSize - recordDigestSize || !isKnownKind(kind)
            || qFromBigEndian<quint32>(bytes.data() + 4) != sequence)
            return result;
        const QByteArrayView covered = bytes.first(recordHeadSize + length);
        const QByteArrayView payload = covered.sliced(recordHeadSize);
        if (bytes.sliced(covered.size(), recordDigestSize) != shortDigestOf(covered.first(recordHeadSize), payload))
            return result;
        result.records.append({ .kind = ZLJournalRecord::Kind(kind), .payload = payload.toByteArray() });
        bytes = bytes.sliced(covered.size() + recordDigestSize);
        result.isTorn = false;
    }
    return result;
}

QByteArray ZLJournalRecords::digestOf(QByteArrayView bytes)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(bytes);
    return hash.result();
}
