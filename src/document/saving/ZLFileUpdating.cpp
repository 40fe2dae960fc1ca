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
    if (isNothingToKeep())
        return ZLDone {};
    auto made = m_orders.next();
    if (!made)
        return m_report.noteFailure(made.error());
    ZLWriteOrder order = std::move(made).value();
    // Made here, since the deadline is for the disk alone.
    order.bytes = order.snapshot->encoded();
    order.snapshot.reset();
    const auto outcome = m_writer.write(std::move(order), deadline);
    return outcome ? outcome->status : noteHangingFile();
}

void ZLFileUpdating::begin()
{
    if (m_isStopped || m_writer.isUnderWay() || m_report.isConflict())
        return;
    m_schedule.dropPlannedWrite();
    if (isNothingToKeep())
        return;
    auto order = m_orders.next();
    if (!order) {
        m_report.noteFailure(order.error());
    } else {
        m_report.noteBeginning();
        m_writer.start(std::move(order).value());
        m_diskWatch.begin();
    }
}

bool ZLFileUpdating::isNothingToKeep()
{
    if (!m_orders.keepNothingOfEmptyDocument())
        return false;
    m_report.noteEverythingIsSaved();
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
}

void ZLFileUpdating::lookForNewerChanges()
{
    if (!m_schedule.isEverythingWritten() && !m_schedule.plannedDelay())
        begin();
}

ZLError ZLFileUpdating::noteHangingFile()
{
    m_diskWatch.begin();
    return m_report.noteHangingFile();
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
