#pragma once

#include "platform/ZLHostClock.h"

#include <memory>

/// Tells how long the computer slept, from two clocks of which only one stands still meanwhile. It needs no message
/// from the system, so it also knows of a sleep that was not announced. It has to be asked: nothing runs by itself.
class ZLSleepWatcher {
public:
    /// Seconds. What is shorter is kept until it adds up.
    static constexpr double LeastSleep = 1.0;

    /// `steadyClock` stands while the computer sleeps, `bootClock` goes on; without the latter no sleep is noticed.
    ZLSleepWatcher(std::shared_ptr<const ZLHostClock> steadyClock, std::shared_ptr<const ZLHostClock> bootClock);

    /// Watches from now on; an earlier sleep does not count any more.
    void restart() { m_offset = offset(); }
    /// Seconds slept since restart() and not told yet; 0 when that is less than LeastSleep.
    [[nodiscard]] double takeSleep();

private:
    [[nodiscard]] double offset() const;

    std::shared_ptr<const ZLHostClock> m_steadyClock;
    std::shared_ptr<const ZLHostClock> m_bootClock;
    double m_offset = 0.0;
};
