#include "document/saving/ZLWriteSchedule.h"

#include <algorithm>
#include <utility>

ZLWriteSchedule::ZLWriteSchedule(std::shared_ptr<const ZLHostClock> clock, QObject* parent)
    : QObject(parent)
    , m_clock(std::move(clock))
{
    m_writeTimer.setSingleShot(true);
    m_readingTimer.setInterval(ReadingInterval);
    connect(&m_writeTimer, &QTimer::timeout, this, &ZLWriteSchedule::writeIsDue);
    connect(&m_readingTimer, &QTimer::timeout, this, &ZLWriteSchedule::writeIsDue);
}

void ZLWriteSchedule::plan(Haste haste)
{
    const double now = m_clock->now();
    if (!m_firstUnsavedChange)
        m_firstUnsavedChange = now;
    const double waited = (now - *m_firstUnsavedChange) * 1000.0;
    const int quietTime = std::clamp(LongestWait - int(std::min(waited, double(LongestWait))), 0, QuietTime);
    m_writeTimer.start(haste == Haste::AtOnce ? 0 : quietTime);
}

void ZLWriteSchedule::planRetry()
{
    m_writeTimer.start(RetryInterval);
}

void ZLWriteSchedule::dropPlannedWrite()
{
    m_writeTimer.stop();
    m_firstUnsavedChange.reset();
}

std::optional<int> ZLWriteSchedule::plannedDelay() const
{
    return m_writeTimer.isActive() ? std::optional(m_writeTimer.interval()) : std::nullopt;
}

void ZLWriteSchedule::followClock(bool isRunning)
{
    if (!isRunning)
        m_readingTimer.stop();
    else if (!m_readingTimer.isActive())
        m_readingTimer.start();
}

void ZLWriteSchedule::stop()
{
    dropPlannedWrite();
    m_readingTimer.stop();
}
