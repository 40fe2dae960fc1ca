#pragma once

#include "platform/ZLHostClock.h"

#include <QObject>
#include <QTimer>

#include <memory>

/// Measures recorded time: it runs while a show is recorded, stands still while paused, and resumes where it stood.
class ZLRecordingClock : public QObject {
    Q_OBJECT

public:
    explicit ZLRecordingClock(std::shared_ptr<const ZLHostClock> hostClock, QObject* parent = nullptr);

    /// Seconds of the host clock now.
    [[nodiscard]] double hostTime() const { return m_hostClock->now(); }
    /// Host time at which the running span began; 0 while the clock stands. With a rate it moves, so that the clock is
    /// the duration and the time since then all the same.
    [[nodiscard]] double startTime() const { return m_startTime == 0.0 ? 0.0 : m_startTime - gainAt(hostTime()); }
    /// Seconds of all finished spans.
    [[nodiscard]] double duration() const { return m_duration; }
    void setDuration(double seconds) { m_duration = seconds; }
    /// By how much the clock is ahead of the host clock, in seconds, less what its rates have given. It changes only
    /// where a span begins or the clock is set.
    [[nodiscard]] double setting() const { return m_duration - m_startTime - m_gained; }
    /// Seconds recorded up to now.
    [[nodiscard]] double currentDuration() const { return readingAt(hostTime()); }
    /// What the clock read, or will read, at a moment of the running span; while it stands, what it reads.
    [[nodiscard]] double readingAt(double hostTime) const;
    [[nodiscard]] bool isRunning() const { return m_displayTimer.isActive(); }

    /// Begins a span at `hostTime`, which may lie in the past.
    void startAt(double hostTime);
    /// Ends the running span without adding it to the duration.
    void stop();
    /// Lets a running clock gain `rate` seconds a second from now on, until it stops. It goes on from where it is.
    void setRate(double rate);
    /// Sets the clock forward by `seconds`, or back.
    void moveBy(double seconds);

Q_SIGNALS:
    /// Ten times a second while the clock runs.
    void displayIsDue();

private:
    /// Seconds that the rate has given until a moment.
    [[nodiscard]] double gainAt(double hostTime) const { return m_rate * (hostTime - m_rateFrom); }

    std::shared_ptr<const ZLHostClock> m_hostClock;
    double m_startTime = 0.0;
    double m_duration = 0.0;
    double m_rate = 0.0;
    double m_rateFrom = 0.0;
    /// What former rates of the running span have given, in seconds.
    double m_gained = 0.0;
    QTimer m_displayTimer { this };
};
