#include "platform/activity/ZLSleepWatcher.h"

#include <utility>

ZLSleepWatcher::ZLSleepWatcher(
    std::shared_ptr<const ZLHostClock> steadyClock, std::shared_ptr<const ZLHostClock> bootClock)
    : m_steadyClock(std::move(steadyClock))
    , m_bootClock(std::move(bootClock))
    , m_offset(offset())
{
}

double ZLSleepWatcher::takeSleep()
{
    const double now = offset();
    const double slept = now - m_offset;
    if (!(slept >= LeastSleep))
        return 0.0;
    m_offset = now;
    return slept;
}

double ZLSleepWatcher::offset() const
{
    return m_bootClock ? m_bootClock->now() - m_steadyClock->now() : 0.0;
}
