#include "recorder/osctime/ZLOSCTimeReading.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// A time that came later than this after the one before says nothing of whether it went on meanwhile.
constexpr double longestStep = 2.0;
/// By how much a time that goes on may come out of step.
constexpr double stepTolerance = 0.25;
/// For so long the same time has to come until it stands. REAPER sends a time thirty times a second.
constexpr double secondsUntilStanding = 0.3;
/// Where the time line stood at the start may have been told a while before.
constexpr double latestFirstTime = 1.0;
constexpr double smallestUncertainty = 0.0001;
/// Half of the last place of a number with 24 bits, which is how most programs send the time: 0.5 ms after two hours.
constexpr double roundingOfTime = 0x1p-24;

}

ZLOSCTimeReading::ZLOSCTimeReading(ZLOSCTimeAddresses addresses)
    : m_addresses(std::move(addresses))
{
}

std::optional<ZLRecorderReport> ZLOSCTimeReading::note(const QString& address, double value, double hostTime)
{
    if (!std::isfinite(value))
        return std::nullopt;
    if (ZLOSCTimeAddresses::isMatch(m_addresses.time, address))
        noteTime(value, hostTime);
    else if (ZLOSCTimeAddresses::isMatch(m_addresses.record, address))
        noteRecord(value > 0.0, hostTime);
    else if (ZLOSCTimeAddresses::isMatch(m_addresses.pause, address))
        m_isPaused = value > 0.0;
    else if (ZLOSCTimeAddresses::isMatch(m_addresses.play, address))
        m_play = value > 0.0;
    else
        return std::nullopt;
    noteRecordingByTime();
    return report(hostTime);
}

void ZLOSCTimeReading::noteTime(double time, double hostTime)
{
    const Moment moment { time, hostTime };
    if (m_last && time != m_last->time) {
        const double step = hostTime - m_last->hostTime;
        m_isMoving = step <= longestStep && std::abs(time - m_last->time - step) <= stepTolerance;
        m_movedAt = hostTime;
    } else if (hostTime - m_movedAt >= secondsUntilStanding) {
        m_isMoving = false;
    }
    if (m_recordedAt && !m_origin)
        findOrigin(moment);
    m_last = moment;
}

void ZLOSCTimeReading::noteRecord(bool isRecording, double hostTime)
{
    const bool wasKnown = m_record.has_value();
    if (isRecording && m_record != true && (!m_origin || wasKnown)) {
        m_recordedAt = hostTime;
        m_origin.reset();
    } else if (!isRecording) {
        m_recordedAt.reset();
    }
    m_record = isRecording;
}

/// Where no message tells that it records, the time does so by going on.
void ZLOSCTimeReading::noteRecordingByTime()
{
    if (m_record)
        return;
    if (!isRecording())
        m_origin.reset();
    else if (!m_origin && m_last)
        m_origin = 0.0;
}

void ZLOSCTimeReading::findOrigin(const Moment& first)
{
    const double since = first.hostTime - *m_recordedAt;
    if (m_last && m_isMoving && m_last->hostTime <= *m_recordedAt) {
        // It was playing when the recording began.
        m_origin = m_last->time + (*m_recordedAt - m_last->hostTime);
    } else if (m_last && first.time >= m_last->time && first.time - m_last->time <= since + latestFirstTime) {
        m_origin = m_last->time;
    } else {
        const double begin = first.time - since;
        m_origin = std::abs(begin) <= stepTolerance ? 0.0 : begin;
    }
}

bool ZLOSCTimeReading::isRecording() const
{
    if (m_record)
        return *m_record;
    // It plays, and would have said that it records.
    if (m_play)
        return *m_play && m_addresses.record.isEmpty();
    return m_isMoving;
}

std::optional<ZLRecorderReport> ZLOSCTimeReading::report(double hostTime) const
{
    const double time = m_last ? m_last->time : 0.0;
    ZLRecorderReport report { .position = m_origin ? std::max(0.0, time - *m_origin) : 0.0,
        .hostTime = hostTime,
        .uncertainty = std::max(smallestUncertainty, std::abs(time) * roundingOfTime) };
    if (!isRecording())
        return report;
    if (!m_origin)
        return std::nullopt;
    report.state = m_isPaused ? ZLRecorderState::Paused : ZLRecorderState::Recording;
    return report;
}
