#pragma once

#include <QDeadlineTimer>

#include <chrono>

/// How long the standard library has to wait for `deadline`; a year where that is for ever.
[[nodiscard]] inline std::chrono::milliseconds ZLRemainingTime(const QDeadlineTimer& deadline)
{
    return deadline.isForever() ? std::chrono::hours(24 * 365) : std::chrono::milliseconds(deadline.remainingTime());
}
