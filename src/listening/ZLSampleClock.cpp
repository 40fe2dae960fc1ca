#include "listening/ZLSampleClock.h"

#include "listening/ZLListeningData.h"

#include <algorithm>
#include <cmath>

namespace {

/// Blocks before the line is trusted: a stream that begins does not know its delay yet.
constexpr int blocksToSettle = 5;
/// How much is known of the drift before anything is heard: that it is hardly beyond 200 ppm. Told as the square of
/// seconds that blocks would have to be apart, uncertain by 10 ms each, to say as much.
constexpr double priorSquares = (0.01 / 200e-6) * (0.01 / 200e-6);

}

void ZLSampleClock::note(std::int64_t sample, double time)
{
    const bool isStray = m_count >= blocksToSettle && std::abs(time - timeOf(sample)) > Tolerance;
    m_strayCount = isStray ? m_strayCount + 1 : 0;
    if (isStray)
        return;
    ++m_count;
    const double seconds = secondsOf(sample);
    const double lag = time - seconds;
    const double newer = seconds - m_meanSeconds;
    m_meanSeconds += newer / m_count;
    m_secondsSquares += newer * (seconds - m_meanSeconds);
    m_products += newer * (lag - m_meanLag - (lag - m_meanLag) / m_count);
    m_meanLag += (lag - m_meanLag) / m_count;
}

double ZLSampleClock::timeOf(std::int64_t sample) const
{
    const double seconds = secondsOf(sample);
    return seconds + m_meanLag + drift() * (seconds - m_meanSeconds);
}

double ZLSampleClock::drift() const
{
    const double drift = m_products / (m_secondsSquares + priorSquares);
    return std::clamp(drift, -ZLListeningData::WorstDrift, ZLListeningData::WorstDrift);
}
