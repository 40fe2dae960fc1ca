#pragma once

#include <QtGlobal>

#include <algorithm>
#include <optional>

/// How far a task has come, and whether its end is waited for.
struct ZLProgress {
    bool isAwaited = false;
    /// Any number that is another one after each step.
    quint64 reached = 0;
    /// While it is not, no disk has been asked yet.
    bool isAtDisk = true;
};

/// Notices that something which is awaited has stood still for longer than any healthy disk needs.
class ZLStandstill {
public:
    static constexpr double LongestSilence = 3.0; ///< Seconds.
    /// What one look adds at most: a program that was stopped meanwhile could not look, and waited for nothing.
    static constexpr double LongestStep = 1.0;

    /// Returns whether it hangs. `now` is in seconds.
    bool look(const ZLProgress& progress, double now)
    {
        const bool standsStill = progress.isAwaited && progress.isAtDisk && m_lastLook && progress.reached == m_reached;
        m_silence = standsStill ? m_silence + std::min(now - *m_lastLook, LongestStep) : 0.0;
        m_lastLook = progress.isAwaited ? std::optional(now) : std::nullopt;
        m_reached = progress.reached;
        return m_silence >= LongestSilence;
    }

private:
    quint64 m_reached = 0;
    double m_silence = 0.0;
    /// Absent while nothing is awaited.
    std::optional<double> m_lastLook;
};
