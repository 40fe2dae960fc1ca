#include "recorder/jack/ZLJackPosition.h"

namespace {

/// A transport that went back to its beginning while it rolled is found a little behind it.
constexpr double anewSeconds = 0.25;
/// In so many seconds the server wakes up on time at least once. When it has lost time, the old times go soon.
constexpr double wakingMemory = 0.3;

ZLRecorderState stateOf(const ZLJackTransport& transport)
{
    if (transport.isRolling)
        return ZLRecorderState::Recording;
    return transport.frame > 0 ? ZLRecorderState::Paused : ZLRecorderState::Standing;
}

}

QList<ZLRecorderReport> ZLJackPosition::take(const ZLJackTransport& transport, double hostTime, double uncertainty)
{
    if (transport.framesPerSecond <= 0.0)
        return {};
    const double position = double(transport.frame) / transport.framesPerSecond;
    const ZLRecorderReport report { stateOf(transport), position, evenTime(transport, hostTime), uncertainty, true };
    QList<ZLRecorderReport> reports;
    if (beginsAnew(report))
        reports.append({ ZLRecorderState::Standing, 0.0, report.hostTime, uncertainty, true });
    reports.append(report);
    m_last = report;
    return reports;
}

bool ZLJackPosition::beginsAnew(const ZLRecorderReport& report) const
{
    if (!m_last || report.state != ZLRecorderState::Recording || m_last->state == ZLRecorderState::Standing)
        return false;
    const double sinceLast = report.hostTime - m_last->hostTime;
    return report.position < m_last->position && report.position < sinceLast + anewSeconds;
}

double ZLJackPosition::evenTime(const ZLJackTransport& transport, double hostTime)
{
    if (!transport.isRolling) {
        m_frames.reset();
        return hostTime;
    }
    const double step = 1.0 / transport.framesPerSecond;
    if (!m_frames || m_frames->step() != step)
        m_frames.emplace(step, wakingMemory);
    m_frames->take(hostTime, hostTime, double(transport.frame));
    return *m_frames->zero() + double(transport.frame) * step;
}
