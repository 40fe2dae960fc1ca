#pragma once

#include <QtGlobal>

#include <optional>

/// How far something has come that somebody waits for.
struct ZLProgress {
    bool isAwaited = false;
    /// Any number that is another one after each step.
    quint64 reached = 0;
};

/// Notices that something which is awaited has stood still for longer than any healthy disk needs.
class ZLStandstill {
public:
    static constexpr double LongestSilence = 3.0; ///< Seconds.

    /// Returns whether it hangs. `now` is in seconds.
    bool look(const ZLProgress& progress, double now)
    {
        if (!progress.isAwaited) {
            m_since.reset();
        } else if (!m_since || progress.reached != m_reached) {
            m_since = now;
            m_reached = progress.reached;
        }
        return isHanging(now);
    }

private:
    [[nodiscard]] bool isHanging(double now) const { return m_since && now - *m_since >= LongestSilence; }

    quint64 m_reached = 0;
    std::optional<double> m_since;
};
