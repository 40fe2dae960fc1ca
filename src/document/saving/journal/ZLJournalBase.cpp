#include "document/saving/journal/ZLJournalBase.h"

#include <QThreadPool>

#include <chrono>
#include <memory>

namespace {

constexpr quint32 sequenceOfBase = 1;

ZLJournalRecord snapshotRecord(const QByteArray& bytes)
{
    return { .kind = ZLJournalRecord::Kind::Snapshot, .payload = bytes };
}

}

ZLJournalBase::ZLJournalBase(const QByteArray& bytes)
    : m_bytes(bytes)
{
    const auto digest = std::make_shared<std::promise<QByteArray>>();
    m_digest = digest->get_future().share();
    QThreadPool::globalInstance()->start(
        [digest, bytes] { digest->set_value(ZLJournalRecords::recordDigest(sequenceOfBase, snapshotRecord(bytes))); });
}

ZLJournalRecord ZLJournalBase::record() const
{
    ZLJournalRecord record = snapshotRecord(m_bytes);
    // One that is not made yet is not waited for: the thread that writes the record makes it then.
    if (m_digest.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
        record.digest = m_digest.get();
    return record;
}
