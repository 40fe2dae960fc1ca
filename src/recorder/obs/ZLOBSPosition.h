#pragma once

#include "recorder/ZLRecorderReport.h"
#include "recorder/ZLStepClock.h"
#include "recorder/obs/ZLOBSFrameLag.h"
#include "recorder/obs/ZLOBSStatus.h"

#include <optional>

/// Where the recording of OBS Studio is, from what it says of itself. Pure.
///
/// OBS has two counters. The one of `duration` counts what has left the encoder, which may be two seconds after the
/// frame went in; how long this takes depends on the settings, and then stays the same. The one of `frames` counts what
/// goes in. It starts at zero with the file's first frame, unless another output runs already, and does not stand in a
/// pause. So the moment of each frame is known from `frames`. What the pauses took away is known from the moments of
/// the events, which may be a frame off, and then from the difference of the two counters.
class ZLOBSPosition {
public:
    ZLOBSPosition();

    /// Seconds from one frame to the next, as set in OBS. Another value than before starts measuring anew.
    void setFrameSeconds(double seconds);
    /// A recording began between these two moments.
    void began(double starting, double started);
    /// A recording was running when OBS was found.
    void joined();
    void paused(double hostTime);
    void resumed(double hostTime);
    void ended(double hostTime);
    void take(const ZLOBSStatus& status);

    [[nodiscard]] ZLRecorderState state() const { return m_state; }
    /// Whether its start was seen.
    [[nodiscard]] bool isSeenFromStart() const { return m_started > 0.0; }
    /// Whether this span, from a start or resumption to the pause after it, was measured.
    [[nodiscard]] bool isMeasured() const { return m_isSpanSettled; }
    /// What is known at the last status or event; nullopt before enough is known.
    [[nodiscard]] std::optional<ZLRecorderReport> report() const;

    /// Seconds from a frame's way into the encoder to its way out; nullopt until it was measured, which needs a
    /// recording that is seen from its start to its first pause. It is known for the recording before it, too.
    [[nodiscard]] std::optional<double> encoderDelay() const { return m_encoderDelay; }
    /// The same; what is usual until it was measured.
    [[nodiscard]] double expectedEncoderDelay() const;
    /// Whether it was measured in this recording.
    [[nodiscard]] bool isDelayOfThisRecording() const { return m_isDelayOfThisRecording; }
    /// Whether it is no more than a guess, for a recording that was joined after pauses.
    [[nodiscard]] bool isDelayGuessed() const { return m_isDelayGuessed; }
    /// The delay as it was measured before, in this recording or in an earlier one.
    void setEncoderDelay(double seconds, bool isOfThisRecording);
    /// When the frames were at zero; nullopt before there was a status.
    [[nodiscard]] std::optional<double> zeroOfFrames() const { return m_frames.zero(); }

private:
    [[nodiscard]] bool isOutdated(const ZLOBSStatus& status) const;
    void followState(const ZLOBSStatus& status);
    void beginSpan();
    void findFirstFrame();
    void lookAtFramesOut();
    void settleSpan();
    void correctPauses(double measured);
    void settleJoinedSpan(double lag);
    [[nodiscard]] double firstFrameFrom(double hostTime) const;
    [[nodiscard]] double positionAt(double hostTime) const;

    double m_frameSeconds = 1.0 / 30.0;
    ZLOBSStatus m_status;
    /// What is known holds for this moment.
    double m_hostTime = 0.0;
    ZLRecorderState m_state = ZLRecorderState::Standing;
    /// From the moment it is told to stop until the last frames have left the encoder.
    bool m_isEnding = false;
    /// When the recording was told to start, and when that was announced.
    double m_starting = 0.0;
    double m_started = 0.0;
    /// When the last event came.
    double m_changed = 0.0;
    /// The position in a pause and after the end.
    double m_standsAt = 0.0;
    ZLStepClock m_frames;
    /// Frames that are not in the file: those before its first one, and those of the pauses. nullopt: not known yet.
    std::optional<double> m_framesBeside;
    /// The first frame that was not recorded any more.
    double m_pauseFrame = 0.0;
    /// What leaves the encoder in this span, from a start or resumption to the pause after it.
    ZLOBSFrameLag m_frameLag;
    /// Up to this `duration`, what leaves the encoder tells nothing of its delay.
    double m_earlyUntil = 0.0;
    bool m_isSpanSettled = false;
    /// Whether a pause or a resumption was found by a status, whose moment is less exact than that of an event.
    bool m_isEventMissed = false;
    /// As it was last measured.
    std::optional<double> m_encoderDelay;
    bool m_isDelayOfThisRecording = false;
    bool m_isDelayGuessed = false;
};
