#pragma once

#include "platform/ZLPressStamp.h"

#include <QtGlobal>

#include <limits>
#include <optional>

/// Finds out when an event happened that comes with the time of a clock elsewhere, in milliseconds that begin anew
/// after 2^32: so an X server and a compositor stamp what a person presses. On the same computer that clock is, as a
/// rule, the one that the host clock is made of. Otherwise the event that came through fastest tells how far both lie
/// apart. Such a time is cut to whole milliseconds. An event that arrives within its millisecond counts as its arrival,
/// and every other one as the end of its millisecond.
class ZLEventClock {
public:
    /// Seconds for which the fastest event is believed, at least: two clocks drift apart.
    static constexpr double Memory = 300.0;

    /// The stamp of an event with this time that arrived at `arrival`, in seconds of the host clock.
    ZLPressStamp stampOf(quint32 milliseconds, double arrival);
    /// The same for a time that may be that of any clock: it is believed only when it is the host clock's.
    [[nodiscard]] static ZLPressStamp stampOnHostClock(quint64 milliseconds, double arrival);

private:
    void noteLag(double lag, double arrival);

    /// The clock elsewhere may stand anywhere: lags are compared with the first one.
    std::optional<double> m_firstLag;
    /// In milliseconds, of the events since m_memoryBegan, and of those in the time before.
    /// @{
    double m_smallestLag = std::numeric_limits<double>::infinity();
    double m_formerSmallestLag = std::numeric_limits<double>::infinity();
    /// @}
    double m_memoryBegan = 0.0;
};
