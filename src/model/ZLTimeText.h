#pragma once

#include <QString>

#include <cstdint>

/// The pieces of a time in milliseconds, as every time text of the program shows them. Hours are not wrapped.
struct ZLTimeParts {
    std::uint64_t hours;
    std::uint64_t minutes;
    std::uint64_t seconds;
    std::uint64_t milliseconds;

    [[nodiscard]] static ZLTimeParts ofMilliseconds(std::uint64_t milliseconds);
};

namespace ZLTimeText {

/// `value` truncated toward zero. A value that no unsigned 64-bit integer holds is taken as the nearest one that does,
/// and one that is not a number as 0, so that hostile times cannot lead to undefined behaviour.
[[nodiscard]] std::uint64_t truncated(double value);

/// "01:02:05": whole seconds, each field of two digits at least.
[[nodiscard]] QString hoursMinutesSeconds(std::uint64_t seconds);

/// `number` with leading zeros up to `width` digits.
[[nodiscard]] QString padded(std::uint64_t number, int width);

}
