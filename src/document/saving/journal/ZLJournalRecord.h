#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

/// One entry of a journal.
struct ZLJournalRecord {
    enum class Kind : quint8 {
        Origin = 'O', ///< Path of the user's file in UTF-8; empty for an untitled document.
        Snapshot = 'S', ///< The whole document in its file form.
        Change = 'C', ///< What differs from the record before, see ZLJournalChange.
        KnownFile = 'F', ///< Digest of bytes that the user's file holds, or is about to hold.
    };
    Kind kind = Kind::Change;
    QByteArray payload {};
    /// Its digest under its sequence number, where it is known already; see ZLJournalRecords::recordDigest().
    QByteArray digest {};

    bool operator==(const ZLJournalRecord&) const = default;
};

/// How records lie in a file: after the signature each with its length, sequence number, kind, payload and digest.
namespace ZLJournalRecords {

struct Decoded {
    QList<ZLJournalRecord> records {};
    /// Whether bytes follow that are no whole record, as after a crash in the middle of a write.
    bool isTorn = false;
};

inline const QByteArray Signature = QByteArrayLiteral("zelta journal 1\n");

/// What stands before the payload.
[[nodiscard]] QByteArray head(quint32 sequence, const ZLJournalRecord& record);
/// What stands behind the payload.
[[nodiscard]] QByteArray recordDigest(quint32 sequence, const ZLJournalRecord& record);
[[nodiscard]] QByteArray encoded(quint32 sequence, const ZLJournalRecord& record);
/// The records up to the first that is not whole, in no order or does not fit its digest. None without a signature.
[[nodiscard]] Decoded decoded(QByteArrayView bytes);
/// What tells versions of a file apart.
[[nodiscard]] QByteArray digestOf(QByteArrayView bytes);

}
