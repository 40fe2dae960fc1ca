#pragma once

#include "document/saving/journal/ZLJournalRecord.h"

#include <future>

/// A state of a document that a journal may begin with, because its bytes are there already: that of the file that was
/// opened. The digest of its record is made in advance, beside the main thread, so that the first mark in a long
/// document does not wait for it.
class ZLJournalBase {
public:
    explicit ZLJournalBase(const QByteArray& bytes);

    /// The second record of a journal.
    [[nodiscard]] ZLJournalRecord record() const;

private:
    QByteArray m_bytes;
    std::shared_future<QByteArray> m_digest;
};
