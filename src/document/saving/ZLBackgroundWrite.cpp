#include "document/saving/ZLBackgroundWrite.h"

#include "platform/ZLAtomicFile.h"

#include <QCoreApplication>
#include <QFile>

void ZLBackgroundWrite::run(const std::function<void()>& didWrite)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_progress != Progress::Waiting)
            return;
        m_progress = Progress::Running;
    }
    m_outcome = carryOut(m_order, m_writer);
    // Whoever waits may destroy what the call reaches as soon as the write is done.
    didWrite();
    const std::lock_guard lock(m_mutex);
    m_progress = Progress::Done;
    m_progressDidChange.notify_all();
}

bool ZLBackgroundWrite::cancelOrWait()
{
    std::unique_lock lock(m_mutex);
    if (m_progress == Progress::Waiting)
        m_progress = Progress::CalledOff;
    m_progressDidChange.wait(lock, [this] { return m_progress != Progress::Running; });
    return m_progress == Progress::Done;
}

ZLWriteOutcome ZLBackgroundWrite::carryOut(const ZLWriteOrder& order, const ZLFileWriter& writer)
{
    ZLWriteOutcome outcome { .digest = ZLJournalRecords::digestOf(order.bytes) };
    if (!order.expectedDigest.isEmpty()) {
        const auto found = ZLAtomicFile::read(order.path);
        if (found && ZLJournalRecords::digestOf(found.value()) != order.expectedDigest) {
            outcome.status =
                ZLError { QCoreApplication::translate("ZLBackgroundWrite", "%1: Another program changed the file.")
                              .arg(order.path) };
            outcome.isConflict = true;
            return outcome;
        }
    }
    if (order.journal) {
        order.journal->append({ ZLJournalRecord::Kind::KnownFile, outcome.digest }, ZLJournalFile::Sync::AtOnce);
        order.journal->waitUntilSynced();
    }
    outcome.status = writer(order.path, order.bytes);
    if (outcome && order.isForOwnerOnly)
        QFile::setPermissions(order.path, QFile::ReadOwner | QFile::WriteOwner);
    if (const auto& former = order.formerState; outcome && former)
        outcome.keeping = former->history.keep(former->bytes, former->time, order.bytes);
    return outcome;
}
