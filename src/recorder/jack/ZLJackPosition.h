#pragma once

#include "recorder/ZLRecorderReport.h"
#include "recorder/ZLStepClock.h"
#include "recorder/jack/ZLJackTransport.h"

#include <QList>

#include <optional>

/// What the transport of JACK means for a recording. Pure.
///
/// A transport that rolls is a recording, and the transport's own time is its position: programs that record with it,
/// such as Ardour, put the sound there in their session. One that stands is a pause, and at its beginning no recording
/// at all. So to locate while it stands moves the position of the pause; to go back to the beginning, standing or
/// rolling, ends the recording, and what rolls from there is a new one. Any other leap while it rolls shows in the
/// position.
class ZLJackPosition {
public:
    /// What follows from the transport, which was there at `hostTime`, in order. Two reports where a recording begins
    /// anew without a stop: first that it stands.
    [[nodiscard]] QList<ZLRecorderReport> take(const ZLJackTransport& transport, double hostTime, double uncertainty);

private:
    [[nodiscard]] bool beginsAnew(const ZLRecorderReport& report) const;
    [[nodiscard]] double evenTime(const ZLJackTransport& transport, double hostTime);

    /// Of the frames of the transport, while it rolls.
    std::optional<ZLStepClock> m_frames;
    std::optional<ZLRecorderReport> m_last;
};
