#include "model/ZLTimeText.h"

#include <limits>

using namespace Qt::StringLiterals;

ZLTimeParts ZLTimeParts::ofMilliseconds(std::uint64_t milliseconds)
{
    return {
        .hours = milliseconds / 3600000,
        .minutes = milliseconds / 60000 % 60,
        .seconds = milliseconds / 1000 % 60,
        .milliseconds = milliseconds % 1000,
    };
}

std::uint64_t ZLTimeText::truncated(double value)
{
    constexpr double beyondRange = 18446744073709551616.0; // 2 to the 64th
    if (!(value > 0.0))
        return 0;
    if (value >= beyondRange)
        return std::numeric_limits<std::uint64_t>::max();
    return static_cast<std::uint64_t>(value);
}

QString ZLTimeText::padded(std::uint64_t number, int width)
{
    return QString::number(number).rightJustified(width, u'0');
}

QString ZLTimeText::hoursMinutesSeconds(std::uint64_t seconds)
{
    return u"%1:%2:%3"_s.arg(padded(seconds / 3600, 2), padded(seconds / 60 % 60, 2), padded(seconds % 60, 2));
}
