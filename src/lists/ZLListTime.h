#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

/// Times as lists of chapters write them. All are seconds from the beginning of the show.
namespace ZLListTime {

/// A time in fields: "1:02:03.5", "62:03", with `leastFields` 1 also "3723.5". A decimal comma counts as a point; a
/// sign may precede. Nothing else may stand around it. Minutes and seconds behind another field are below 60.
[[nodiscard]] std::optional<double> fromClock(QStringView text, int leastFields = 2);

/// A decimal number such as "12.5", "-1" or "12,5", without an exponent.
[[nodiscard]] std::optional<double> fromNumber(QStringView text);

/// How many whole units of which `perSecond` make a second lie before `seconds`; a time within a thousandth of a unit
/// of the next one counts as that one, since decimal fractions have no exact binary form. Between 0 and 2^53.
[[nodiscard]] std::uint64_t units(double seconds, double perSecond);

/// "01:02:03.500": hours of two digits at least and as many `decimals`, the rest cut off.
[[nodiscard]] QString clock(double seconds, int decimals = 3);

/// "2:03" or "1:02:03": whole seconds, as people write them.
[[nodiscard]] QString shortClock(double seconds);

/// "3723.500000": a decimal number with as many `decimals`, the rest cut off.
[[nodiscard]] QString number(double seconds, int decimals);

}
