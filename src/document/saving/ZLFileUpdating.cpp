#include "document/saving/ZLFileUpdating.h"

#include "document/saving/ZLSilentDisk.h"

#include <utility>

ZLFileUpdating::ZLFileUpdating(ZLWriteOrders& orders, ZLWriteSchedule& schedule, ZLSavingReport& report,
    ZLDiskWatch& diskWatch, ZLFileWriter writer, ZLDocumentWriter::Executor executor)
    : m_orders(orders)
    , m_schedule(schedule)
    , m_report(report)
    , m_diskWatch(diskWatch)
    , m_writer(std::move(writer), std::move(executor))
{
    connect(&m_schedule, &ZLWriteSchedule::writeIsDue, this, &ZLFileUpdating::begin);
    connect(&m_writer, &ZLDocumentWriter::didWrite, this, &ZLFileUpdating::noteOutcome);
    connect(&m_writer, &ZLDocumentWriter::didFinishByItself, this, &ZLFileUpdating::lookForNewerChanges);
    connect(&m_requests, &ZLSavingRequests::patienceIsOver, this, &ZLFileUpdating::noteSilence);
}

QDeadlineTimer ZLFileUpdating::commandDeadline() const
{
    return m_diskWatch.isFileHanging() ? QDeadlineTimer() : QDeadlineTimer(ZLSilentDisk::CommandPatience);
}

ZLStatus ZLFileUpdating::update(QDeadlineTimer deadline)
{
    if (m_isStopped)
        return ZLDone {};
    if (!m_writer.settle(deadline))
        return noteHangingFile();
    m_schedule.dropPlannedWrite();
    if (m_report.isConflict())
        return ZLError { m_report.failureText() };
    if (isNothingToKeep() || isNothingNew())
        return ZLDone {};
    auto made = nextOrder();
    if (!made)
        return made.error();
    ZLWriteOrder order = std::move(made).value();
    // Made here, since the deadline is for the disk alone.
    order.bytes = order.snapshot->encoded();
    order.snapshot.reset();
    const auto outcome = m_writer.write(std::move(order), deadline);
    return outcome ? outcome->status : noteHangingFile();
}

void ZLFileUpdating::begin()
{
    if (m_isStopped || m_isPaused || m_writer.isUnderWay() || m_report.isConflict())
        return;
    m_schedule.dropPlannedWrite();
    if (isNothingToKeep())
        return;
    if (auto order = nextOrder()) {
        m_report.noteBeginning();
        m_writer.start(std::move(order).value());
        m_diskWatch.begin();
    }
}

void ZLFileUpdating::request(ZLSavingRequests::WhenWritten whenWritten)
{
    if (m_isStopped) {
        whenWritten(ZLDone {}, nullptr);
        return;
    }
    if (m_report.isConflict()) {
        whenWritten(ZLError { m_report.failureText() }, nullptr);
        return;
    }
    if (m_diskWatch.isFileHanging()) {
        whenWritten(noteHangingFile(), nullptr);
        return;
    }
    m_requests.add(std::move(whenWritten));
    begin();
}

void ZLFileUpdating::settleRequests(QDeadlineTimer deadline)
{
    if (!m_requests.isEmpty())
        (void)m_writer.settle(deadline);
    if (!m_requests.isEmpty())
        (void)update(deadline);
}

void ZLFileUpdating::pause()
{
    m_isPaused = true;
    if (!m_writer.isUnderWay())
        Q_EMIT didPause();
}

void ZLFileUpdating::resume()
{
    m_isPaused = false;
    lookForNewerChanges();
}

ZLResult<ZLWriteOrder> ZLFileUpdating::nextOrder()
{
    const bool isAskedFor = !m_requests.isEmpty();
    auto order = m_orders.next(isAskedFor ? ZLWriteOrders::Reason::Asked : ZLWriteOrders::Reason::Changes);
    if (order)
        m_requests.noteBeginning(*order.value().snapshot);
    else
        m_requests.answerAll(m_report.noteFailure(order.error()));
    return order;
}

void ZLFileUpdating::noteSilence()
{
    // The bytes of a long document take their time; only the disk is lost patience with.
    if (m_writer.isUnderWay() && m_writer.progress().isAtDisk)
        noteHangingFile();
    else
        m_requests.waitOn();
}

bool ZLFileUpdating::isNothingNew() const
{
    return m_requests.isEmpty() && m_report.state() == ZLSavingState::Saved && m_orders.isNothingNew();
}

bool ZLFileUpdating::isNothingToKeep()
{
    if (!m_orders.keepNothingOfEmptyDocument())
        return false;
    m_report.noteEverythingIsSaved();
    m_requests.answerAll(ZLDone {});
    return true;
}

void ZLFileUpdating::noteOutcome(const ZLWriteOrder& order, const ZLWriteOutcome& outcome)
{
    m_orders.noteOutcome(outcome);
    if (outcome)
        m_report.noteWritten(order.revision);
    else if (outcome.isConflict)
        m_report.noteConflict(outcome.status.error());
    else
        m_report.noteFailure(outcome.status.error());
    m_requests.noteEnd(outcome.status);
    if (m_report.isConflict())
        m_requests.answerAll(outcome.status);
    if (m_isPaused)
        Q_EMIT didPause();
}

void ZLFileUpdating::lookForNewerChanges()
{
    if (m_requests.isAnyWaiting() || (!m_schedule.isEverythingWritten() && !m_schedule.plannedDelay()))
        begin();
}

ZLError ZLFileUpdating::noteHangingFile()
{
    m_diskWatch.begin();
    const ZLError error = m_report.noteHangingFile();
    m_requests.answerAll(error);
    return error;
}

void ZLFileUpdating::abandon()
{
    m_writer.abandon();
}

void ZLFileUpdating::end(QDeadlineTimer deadline)
{
    m_writer.disconnect(this);
    (void)m_writer.settle(deadline);
    m_writer.abandon();
}

void ZLFileUpdating::stop()
{
    if (!m_writer.settle(commandDeadline()))
        m_writer.abandon();
    m_schedule.stop();
    m_isStopped = true;
}
