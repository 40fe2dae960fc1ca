#include "platform/ZLHostClock.h"

#include <chrono>

double ZLSteadyHostClock::now() const
{
    const auto sinceOrigin = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(sinceOrigin).count();
}
