#pragma once

#include <chrono>
#include <functional>
#include <memory>

/// A call that is made once, later, from the event loop. Destroying the timer prevents it; afterwards it does nothing.
/// It must not be destroyed during its call.
class ZLOneShotTimer {
public:
    virtual ~ZLOneShotTimer() = default;
};

/// Starts a timer. It is injected, so that tests can let time pass by hand.
using ZLOneShotTimerStarter =
    std::function<std::unique_ptr<ZLOneShotTimer>(std::chrono::milliseconds delay, std::function<void()> call)>;

/// On the system's clock.
[[nodiscard]] std::unique_ptr<ZLOneShotTimer> ZLStartSystemTimer(
    std::chrono::milliseconds delay, std::function<void()> call);
