#include "recorder/obs/ZLOBSPosition.h"

#include <algorithm>
#include <cmath>

namespace {

/// In so many seconds after a start or a resumption the frames leave the encoder a little early.
constexpr double earlyAfterStart = 1.5;
constexpr double earlyAfterPause = 0.5;
/// What leaves the encoder is looked at for so many seconds in each span.
constexpr double spanMeasure = 1.0;
/// Between the announced start and the first frame there are at most so many seconds.
constexpr double longestWayToFrames = 1.0;
/// No encoder looks ahead further than this; a larger difference of the counters comes from pauses.
constexpr double longestDelay = 4.0;
/// By so much the delay may be longer than in an earlier recording with the same settings.
constexpr double unevenDelay = 0.5;
/// The delay of usual settings, for a recording that was joined after pauses.
constexpr double usualDelay = 0.7;
constexpr double usualDelayUncertainty = 1.0;
/// By so many frames the moments of the events may be wrong. A larger difference comes from an encoder that holds the
/// frames back for longer than before.
constexpr double errorOfEvents = 1.5;
/// A status that disagrees with the events is believed this long after the last of them.
constexpr double eventPatience = 1.0;

}

ZLOBSPosition::ZLOBSPosition()
    : m_frames(m_frameSeconds)
{
}

void ZLOBSPosition::setFrameSeconds(double seconds)
{
    if (seconds == m_frameSeconds)
        return;
    m_frameSeconds = seconds;
    m_frames = ZLStepClock(seconds);
    m_framesBeside.reset();
    beginSpan();
}

void ZLOBSPosition::setEncoderDelay(double seconds, bool isOfThisRecording)
{
    m_encoderDelay = seconds;
    m_isDelayOfThisRecording = isOfThisRecording;
}

double ZLOBSPosition::expectedEncoderDelay() const
{
    return m_encoderDelay.value_or(usualDelay);
}

void ZLOBSPosition::began(double starting, double started)
{
    m_state = ZLRecorderState::Recording;
    m_isEnding = false;
    m_starting = starting;
    m_started = started;
    m_changed = started;
    m_standsAt = 0.0;
    m_frames.clear();
    m_framesBeside.reset();
    m_isDelayOfThisRecording = false;
    m_isDelayGuessed = false;
    m_earlyUntil = earlyAfterStart;
    beginSpan();
}

void ZLOBSPosition::joined()
{
    m_state = ZLRecorderState::Recording;
    m_started = 0.0;
    m_earlyUntil = 0.0;
    m_frames.clear();
    m_framesBeside.reset();
    m_isDelayGuessed = false;
    beginSpan();
}

void ZLOBSPosition::paused(double hostTime)
{
    m_state = ZLRecorderState::Paused;
    m_changed = hostTime;
    m_hostTime = hostTime;
    m_pauseFrame = firstFrameFrom(hostTime);
    m_standsAt = m_framesBeside ? (m_pauseFrame - *m_framesBeside) * m_frameSeconds : 0.0;
}

void ZLOBSPosition::resumed(double hostTime)
{
    m_state = ZLRecorderState::Recording;
    m_changed = hostTime;
    m_hostTime = hostTime;
    if (m_framesBeside)
        *m_framesBeside += firstFrameFrom(hostTime) - m_pauseFrame;
    m_earlyUntil = m_status.duration + earlyAfterPause;
    beginSpan();
}

void ZLOBSPosition::ended(double hostTime)
{
    if (m_state == ZLRecorderState::Recording && m_framesBeside)
        m_standsAt = positionAt(hostTime);
    m_state = ZLRecorderState::Standing;
    m_changed = hostTime;
    m_hostTime = hostTime;
    m_isEnding = true;
}

void ZLOBSPosition::take(const ZLOBSStatus& status)
{
    if (isOutdated(status))
        return;
    m_status = status;
    m_hostTime = (status.asked + status.answered) / 2;
    followState(status);
    if (m_state == ZLRecorderState::Standing)
        return;
    // At zero it waits for the first frame, however long that takes.
    if (status.frames > 0)
        m_frames.take(status.asked, status.answered, double(status.frames));
    if (m_state == ZLRecorderState::Paused) {
        if (!m_framesBeside)
            m_standsAt = status.duration + expectedEncoderDelay();
        return;
    }
    if (!m_frames.zero())
        return;
    if (!m_framesBeside && m_started > 0.0)
        findFirstFrame();
    lookAtFramesOut();
    if (m_frameLag.lookedFor() >= spanMeasure)
        settleSpan();
}

bool ZLOBSPosition::isOutdated(const ZLOBSStatus& status) const
{
    return status.asked <= m_changed || (m_isEnding && status.isActive);
}

void ZLOBSPosition::followState(const ZLOBSStatus& status)
{
    if (!status.isActive) {
        if (m_state != ZLRecorderState::Standing && status.asked > m_changed + eventPatience)
            ended(status.asked);
        if (m_state == ZLRecorderState::Standing)
            m_isEnding = false;
        return;
    }
    if (m_state == ZLRecorderState::Standing) {
        joined();
        if (status.isPaused)
            m_state = ZLRecorderState::Paused;
        return;
    }
    if (status.asked < m_changed + eventPatience)
        return;
    if (status.isPaused && m_state == ZLRecorderState::Recording) {
        paused(status.asked);
        m_isEventMissed = true;
    } else if (!status.isPaused && m_state == ZLRecorderState::Paused) {
        resumed(status.asked);
        m_isEventMissed = true;
    }
}

void ZLOBSPosition::beginSpan()
{
    m_frameLag.clear();
    m_isSpanSettled = false;
}

void ZLOBSPosition::findFirstFrame()
{
    const double zero = *m_frames.zero();
    if (zero > m_starting - m_frameSeconds && zero < m_started + longestWayToFrames) {
        m_framesBeside = 0.0;
    } else if (m_status.answered > m_started + longestWayToFrames) {
        // Another output was running before, so the frames are counted from its start.
        m_framesBeside = firstFrameFrom((m_starting + m_started) / 2);
    }
}

void ZLOBSPosition::lookAtFramesOut()
{
    if (m_status.duration >= m_earlyUntil)
        m_frameLag.take(m_status.answered, m_status.frames - std::llround(m_status.duration / m_frameSeconds));
}

/// Once a span is settled, another lag comes from another delay.
void ZLOBSPosition::settleSpan()
{
    const auto lag = double(m_frameLag.usual());
    if (m_isSpanSettled) {
        if (m_frameLag.isDecided())
            m_encoderDelay = (lag - *m_framesBeside) * m_frameSeconds;
        return;
    }
    if (m_encoderDelay && m_isDelayOfThisRecording)
        correctPauses(lag - std::round(*m_encoderDelay / m_frameSeconds));
    else if (!m_framesBeside || m_isDelayGuessed)
        settleJoinedSpan(lag);
    m_encoderDelay = (lag - *m_framesBeside) * m_frameSeconds;
    m_isDelayOfThisRecording = true;
    m_isSpanSettled = true;
    m_isEventMissed = false;
}

void ZLOBSPosition::correctPauses(double measured)
{
    if (!m_framesBeside || m_isEventMissed
        || (m_frameLag.isDecided() && std::abs(measured - *m_framesBeside) <= errorOfEvents))
        m_framesBeside = measured;
}

void ZLOBSPosition::settleJoinedSpan(double lag)
{
    const double longest = m_encoderDelay ? *m_encoderDelay + unevenDelay : longestDelay;
    const bool hasPauses = lag * m_frameSeconds > longest;
    m_isDelayGuessed = hasPauses && !m_encoderDelay;
    const double delay = hasPauses ? expectedEncoderDelay() : lag * m_frameSeconds;
    m_framesBeside = std::max(0.0, std::round(lag - delay / m_frameSeconds));
}

double ZLOBSPosition::firstFrameFrom(double hostTime) const
{
    return std::ceil((hostTime - m_frames.zero().value_or(hostTime)) / m_frameSeconds);
}

double ZLOBSPosition::positionAt(double hostTime) const
{
    return std::max(0.0, hostTime - m_frames.zero().value_or(hostTime) - *m_framesBeside * m_frameSeconds);
}

std::optional<ZLRecorderReport> ZLOBSPosition::report() const
{
    if (m_state != ZLRecorderState::Recording)
        return ZLRecorderReport { m_state, m_standsAt, m_hostTime, m_frameSeconds, true };
    if (!m_framesBeside || !m_frames.zero())
        return std::nullopt;
    const double ofSpan = m_isSpanSettled ? 0.0 : m_frameSeconds;
    const double ofDelay = m_isDelayGuessed ? usualDelayUncertainty : 0.0;
    const double uncertainty = m_frames.uncertainty() + ofSpan + ofDelay;
    return ZLRecorderReport { m_state, positionAt(m_hostTime), m_hostTime, uncertainty, true };
}
