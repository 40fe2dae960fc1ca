#include "document/saving/ZLBackgroundWrite.h"

#include "document/ZLNewIdentifiers.h"
#include "document/saving/ZLTheirVersion.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLRemainingTime.h"

#include <QCoreApplication>
#include <QFile>

#include <utility>

namespace {

/// Whether the file holds a version that this program knows, or is gone. One that cannot be read may be another
/// program's.
bool mayBeReplaced(const ZLFoundFile& found, const ZLWriteOrder& order)
{
    return found.finding == ZLFileFinding::Missing
        || (found.finding == ZLFileFinding::Read
            && order.replaceable->contains(ZLJournalRecords::digestOf(found.bytes)));
}

/// A file that may be written over if the user says so, as a pipe or a device may not.
bool isOfAnotherProgram(const ZLFoundFile& found)
{
    return found.finding == ZLFileFinding::Read || found.finding == ZLFileFinding::TooLarge;
}

bool isThereAlready(const ZLWriteOrder& order, const QByteArray& bytes)
{
    if (order.present.isEmpty() || order.present != bytes || order.replacesAnything)
        return false;
    // A file of the recovery folder may have been taken away; that of a user, when it is away, is a matter of its own
    // unless he asks for it.
    if ((order.isForOwnerOnly || order.isAskedFor) && !QFile::exists(order.path))
        return false;
    return !order.isAskedFor || !ZLNewIdentifiers::areMissingIn(order.asRead);
}

ZLError conflictError(const QString& path)
{
    return { QCoreApplication::translate("ZLBackgroundWrite", "%1: Another program changed the file.").arg(path) };
}

}

void ZLBackgroundWrite::run(const std::function<void()>& didWrite)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_progress != Progress::Waiting)
            return;
        m_progress = Progress::Running;
    }
    const QByteArray bytes = makeBytes();
    m_isAtDisk = true;
    ZLWriteOutcome outcome = carryOut(m_order, bytes, m_writer);
    const std::lock_guard lock(m_mutex);
    if (m_progress == Progress::Abandoned)
        return;
    m_outcome = std::move(outcome);
    // A caller that waits may destroy what the call reaches as soon as the write is over.
    didWrite();
    m_progress = Progress::Done;
    m_progressDidChange.notify_all();
}

void ZLBackgroundWrite::callOff()
{
    const std::lock_guard lock(m_mutex);
    if (m_progress == Progress::Waiting)
        m_progress = Progress::CalledOff;
}

bool ZLBackgroundWrite::waitForEnd(QDeadlineTimer deadline)
{
    std::unique_lock lock(m_mutex);
    return m_progressDidChange.wait_for(lock, ZLRemainingTime(deadline), [this] { return isOver(); });
}

bool ZLBackgroundWrite::wasCarriedOut() const
{
    const std::lock_guard lock(m_mutex);
    return m_progress == Progress::Done;
}

bool ZLBackgroundWrite::abandon()
{
    const std::lock_guard lock(m_mutex);
    const bool isUnderWay = m_progress == Progress::Running;
    if (!isOver())
        m_progress = isUnderWay ? Progress::Abandoned : Progress::CalledOff;
    return isUnderWay;
}

QByteArray ZLBackgroundWrite::makeBytes()
{
    // The main thread does not look at the snapshot while the write runs. Letting go of many chapters takes time too.
    const auto snapshot = std::exchange(m_order.snapshot, std::nullopt);
    return snapshot ? snapshot->encoded() : m_order.bytes;
}

ZLWriteOutcome ZLBackgroundWrite::carryOut(
    const ZLWriteOrder& order, const QByteArray& bytes, const ZLFileWriter& writer)
{
    ZLWriteOutcome outcome { .bytes = bytes, .isUnchanged = isThereAlready(order, bytes) };
    if (outcome.isUnchanged)
        return outcome;
    outcome.digest = ZLJournalRecords::digestOf(bytes);
    if (order.replacesAnything)
        outcome.replaced = ZLTheirVersion::toBeReplaced(order.path, order.formerState->time);
    else if (order.replaceable) {
        if (const ZLFoundFile found = ZLBoundedFile::find(order.path, ZLFileBound::Document);
            !mayBeReplaced(found, order)) {
            outcome.isConflict = isOfAnotherProgram(found);
            outcome.status = outcome.isConflict ? conflictError(order.path) : found.error;
            return outcome;
        }
    }
    if (order.journal) {
        order.journal->append({ ZLJournalRecord::Kind::KnownFile, outcome.digest }, ZLJournalFile::Sync::AtOnce);
        // Without the digest there, a power cut would make the file look like another program's, and nothing more.
        order.journal->waitUntilSynced(LongestWaitForJournal);
    }
    outcome.status = writer(order.path, bytes);
    if (outcome && order.isForOwnerOnly)
        QFile::setPermissions(order.path, QFile::ReadOwner | QFile::WriteOwner);
    if (auto former = order.formerState; outcome && former) {
        if (outcome.replaced)
            former->bytes = outcome.replaced->bytes();
        outcome.keeping = order.stateKeeper->keep(*former, bytes);
    }
    return outcome;
}
