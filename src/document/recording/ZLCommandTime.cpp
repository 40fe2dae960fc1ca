#include "document/recording/ZLCommandTime.h"

#include "document/recording/ZLRecordingClock.h"
#include "document/recording/ZLSleptTime.h"

#include <algorithm>
#include <cmath>
#include <utility>

ZLCommandTime::ZLCommandTime(
    const ZLDocumentEnvironment& environment, const ZLRecordingClock& clock, const ZLSleptTime& sleptTime)
    : m_environment(environment)
    , m_clock(clock)
    , m_sleptTime(sleptTime)
{
}

double ZLCommandTime::hostTime() const
{
    if (m_moment)
        return *m_moment;
    const double now = m_clock.hostTime();
    const auto press = m_environment.pressUnderWay();
    const double pressed = press ? std::min(press->hostTime(), now) : now;
    return m_clock.isRunning() ? std::max({ pressed, m_clock.startTime(), m_sleptTime.lastNoticedAt() }) : pressed;
}

double ZLCommandTime::reading() const
{
    return m_clock.readingAt(hostTime());
}

QDateTime ZLCommandTime::wallClock() const
{
    const double age = m_clock.hostTime() - hostTime();
    return m_environment.wallClock().addMSecs(-std::llround(age * 1000.0));
}

ZLCommandTime::Moment::Moment(ZLCommandTime& commandTime, double hostTime)
    : m_commandTime(commandTime)
    , m_former(std::exchange(commandTime.m_moment, hostTime))
{
}

ZLCommandTime::Moment::~Moment()
{
    m_commandTime.m_moment = m_former;
}
