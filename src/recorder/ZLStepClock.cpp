#include "recorder/ZLStepClock.h"

#include <algorithm>
#include <limits>

namespace {

/// However often the counter is looked at, no more looks than this are kept.
constexpr std::size_t mostLooks = 600;

}

ZLStepClock::ZLStepClock(double step, double memory)
    : m_step(step)
    , m_memory(memory)
{
}

void ZLStepClock::take(double asked, double answered, double value)
{
    if (!m_looks.empty() && value < m_looks.back().value)
        clear();
    m_looks.push_back({ asked, answered, value });
    while (m_looks.size() > mostLooks || m_looks.front().answered < answered - m_memory)
        m_looks.pop_front();
}

void ZLStepClock::clear()
{
    m_looks.clear();
}

std::optional<double> ZLStepClock::zero() const
{
    if (m_looks.empty())
        return std::nullopt;
    // The counter was read somewhere between question and answer, half the shortest round trip before the answer at
    // least: a longer trip may have been held up on either way.
    const double wayBack = shortestRoundTrip() / 2;
    double earliest = std::numeric_limits<double>::infinity();
    for (const Look& look : m_looks)
        earliest = std::min(earliest, look.answered - wayBack - look.value * m_step);
    return earliest;
}

double ZLStepClock::uncertainty() const
{
    if (m_looks.empty())
        return std::numeric_limits<double>::infinity();
    // The counter had not yet taken its next step when it was asked.
    double latest = -std::numeric_limits<double>::infinity();
    for (const Look& look : m_looks)
        latest = std::max(latest, look.asked - (look.value + 1) * m_step);
    return std::clamp(*zero() - latest, 0.0, m_step) + shortestRoundTrip() / 2;
}

double ZLStepClock::lookedFor() const
{
    return m_looks.empty() ? 0.0 : m_looks.back().answered - m_looks.front().answered;
}

double ZLStepClock::shortestRoundTrip() const
{
    double shortest = std::numeric_limits<double>::infinity();
    for (const Look& look : m_looks)
        shortest = std::min(shortest, look.answered - look.asked);
    return shortest;
}
