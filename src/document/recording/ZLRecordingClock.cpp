#include "document/recording/ZLRecordingClock.h"

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

ZLRecordingClock::ZLRecordingClock(std::shared_ptr<const ZLHostClock> hostClock, QObject* parent)
    : QObject(parent)
    , m_hostClock(std::move(hostClock))
{
    m_displayTimer.setInterval(100ms);
    m_displayTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_displayTimer, &QTimer::timeout, this, &ZLRecordingClock::displayIsDue);
}

double ZLRecordingClock::readingAt(double hostTime) const
{
    return m_startTime == 0.0 ? m_duration : m_duration + (hostTime - m_startTime) + gainAt(hostTime);
}

void ZLRecordingClock::startAt(double hostTime)
{
    m_startTime = hostTime;
    m_rate = 0.0;
    m_gained = 0.0;
    m_displayTimer.start();
}

void ZLRecordingClock::stop()
{
    m_displayTimer.stop();
    m_startTime = 0.0;
    m_rate = 0.0;
}

void ZLRecordingClock::setRate(double rate)
{
    if (!isRunning())
        return;
    const double now = hostTime();
    m_startTime -= gainAt(now);
    m_gained += gainAt(now);
    m_rateFrom = now;
    m_rate = rate;
}

void ZLRecordingClock::moveBy(double seconds)
{
    if (isRunning())
        m_startTime -= seconds;
    else
        m_duration += seconds;
}
