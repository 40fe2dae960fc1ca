#pragma once

#include "recorder/ZLRecorderReport.h"

#include <cmath>
#include <random>

/// A recorder whose clock goes faster than the host clock by `drift`, which counts in steps and whose messages come
/// late by up to `jitter` seconds, now and then by much more.
class ZLSimulatedRecorder {
public:
    double drift = 0.0;
    double step = 0.0;
    double jitter = 0.0;
    /// Whether it says itself when its positions were right.
    bool isTimed = false;

    /// Begins to record, or goes on after a pause.
    void startAt(double hostTime)
    {
        m_since = hostTime;
        m_isRecording = true;
    }

    void pauseAt(double hostTime)
    {
        m_recorded = positionAt(hostTime);
        m_isRecording = false;
    }

    /// Somebody seeks, or frames are lost.
    void jumpBy(double seconds) { m_recorded += seconds; }

    /// The truth.
    [[nodiscard]] double positionAt(double hostTime) const
    {
        return m_isRecording ? m_recorded + (hostTime - m_since) * (1.0 + drift) : m_recorded;
    }

    /// The message that arrives at this moment.
    [[nodiscard]] ZLRecorderReport reportAt(double hostTime)
    {
        const double truth = positionAt(hostTime - delay());
        const double told = step > 0.0 ? std::floor(truth / step) * step + step / 2.0 : truth;
        const auto state = m_isRecording ? ZLRecorderState::Recording : ZLRecorderState::Paused;
        return { state, told, hostTime, step / 2.0, isTimed };
    }

    /// Seconds until the next message.
    [[nodiscard]] double pause() { return 0.1 + 0.2 * part(); }

private:
    [[nodiscard]] double part() { return std::uniform_real_distribution(0.0, 1.0)(m_random); }

    [[nodiscard]] double delay()
    {
        if (jitter == 0.0)
            return 0.0;
        constexpr double partOfVeryLate = 0.02;
        return part() < partOfVeryLate ? 10.0 * jitter * part() : jitter * part();
    }

    std::mt19937 m_random { 17 };
    double m_since = 0.0;
    double m_recorded = 0.0;
    bool m_isRecording = false;
};
