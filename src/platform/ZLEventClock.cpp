#include "platform/ZLEventClock.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double roundOfEventTimes = 4294967296.0;

/// In milliseconds: times are cut to whole ones.
constexpr double resolution = 1.0;

/// The shortest way from one time to another on a clock that begins anew.
double differenceOfEventTimes(double later, double earlier)
{
    return std::remainder(later - earlier, roundOfEventTimes);
}

/// Whether an event of the host clock may have this lag, in milliseconds. Times are cut, which makes no lag negative.
bool isLagOnHostClock(double lag)
{
    return lag >= 0.0 && lag <= ZLPressStamp::LongestAge * 1000.0;
}

}

ZLPressStamp ZLEventClock::stampOf(quint32 milliseconds, double arrival)
{
    const double lag = differenceOfEventTimes(arrival * 1000.0, milliseconds);
    noteLag(lag, arrival);
    const double smallest = *m_firstLag + std::min(m_smallestLag, m_formerSmallestLag);
    const double delay = isLagOnHostClock(smallest) ? lag : differenceOfEventTimes(lag, smallest);
    return { arrival - std::max(delay - resolution, 0.0) / 1000.0, arrival };
}

ZLPressStamp ZLEventClock::stampOnHostClock(quint64 milliseconds, double arrival)
{
    return { std::min((double(milliseconds) + resolution) / 1000.0, arrival), arrival };
}

void ZLEventClock::noteLag(double lag, double arrival)
{
    if (!m_firstLag)
        m_firstLag = lag;
    if (arrival - m_memoryBegan >= Memory) {
        // After a long silence nothing of before is worth remembering.
        const bool wasJustNow = arrival - m_memoryBegan < 2.0 * Memory;
        m_formerSmallestLag = wasJustNow ? m_smallestLag : std::numeric_limits<double>::infinity();
        m_smallestLag = std::numeric_limits<double>::infinity();
        m_memoryBegan = arrival;
    }
    m_smallestLag = std::min(m_smallestLag, differenceOfEventTimes(lag, *m_firstLag));
}
