#pragma once

#include "recorder/obs/ZLOBSStatus.h"

#include <algorithm>
#include <cmath>
#include <vector>

/// A recording as OBS makes it: frames at even moments, an encoder that holds them back, pauses of whole frames.
class ZLSimulatedRecording {
public:
    double frameSeconds = 1.0 / 30.0;
    /// Frames that the encoder holds back.
    double heldBack = 17.0;
    /// Frames that other outputs have had when it begins.
    double framesBefore = 0.0;
    bool isActive = false;
    bool isPaused = false;

    /// The first frame comes at `zero`.
    void start(double zero)
    {
        m_zero = zero;
        m_pauses.clear();
        isActive = true;
        isPaused = false;
    }
    void pause(double hostTime)
    {
        m_pauses.push_back({ frameFrom(hostTime), 0.0 });
        isPaused = true;
    }
    void resume(double hostTime)
    {
        m_pauses.back().end = frameFrom(hostTime);
        isPaused = false;
    }

    [[nodiscard]] ZLOBSStatus status(double asked, double answered) const
    {
        const double hostTime = (asked + answered) / 2;
        const double frame = std::max(0.0, std::floor((hostTime - m_zero) / frameSeconds + tiny));
        double out = isActive ? std::max(0.0, recorded(frame) - heldBack) : 0.0;
        // OBS tells whole milliseconds.
        out = std::round(out * frameSeconds * 1000) / 1000;
        return { asked, answered, isActive, isPaused, out, qint64(framesBefore + frame) };
    }

    /// The place in the file of what happens at this moment.
    [[nodiscard]] double positionAt(double hostTime) const
    {
        return hostTime - m_zero - paused(std::floor((hostTime - m_zero) / frameSeconds)) * frameSeconds;
    }

private:
    struct Pause {
        double begin;
        double end;
    };
    static constexpr double tiny = 1e-9;

    [[nodiscard]] double frameFrom(double hostTime) const { return std::ceil((hostTime - m_zero) / frameSeconds); }
    [[nodiscard]] double paused(double frame) const
    {
        double frames = 0.0;
        for (const Pause& each : m_pauses)
            frames += std::min(frame, each.end > 0.0 ? each.end : frame) - std::min(frame, each.begin);
        return frames;
    }
    [[nodiscard]] double recorded(double frame) const { return frame - paused(frame); }

    double m_zero = 0.0;
    std::vector<Pause> m_pauses;
};
