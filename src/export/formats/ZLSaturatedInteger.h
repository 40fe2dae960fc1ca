#pragma once

#include <cmath>
#include <limits>

/// `value` truncated toward zero. A value beyond the range of `Integer` is taken as the nearest one inside, and one
/// that is not a number as 0, so that hostile times cannot lead to undefined behaviour.
template <typename Integer>
[[nodiscard]] Integer ZLSaturatedInteger(double value)
{
    const double beyondRange = std::ldexp(1.0, std::numeric_limits<Integer>::digits);
    if (std::isnan(value))
        return 0;
    if (value >= beyondRange)
        return std::numeric_limits<Integer>::max();
    if (value <= static_cast<double>(std::numeric_limits<Integer>::min()))
        return std::numeric_limits<Integer>::min();
    return static_cast<Integer>(value);
}
