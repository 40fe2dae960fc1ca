#include "recorder/ZLRecorderLock.h"

#include <algorithm>
#include <limits>

namespace {

/// The late reports are told apart among those of this many seconds.
constexpr double recentSeconds = 20.0;
constexpr double secondsPerBest = 10.0;
/// Ten minutes.
constexpr qsizetype mostBest = 60;
constexpr qsizetype fewestBestForDrift = 3;
/// Clocks of computers and of sound cards are seldom worse.
constexpr double usualDrift = 50e-6;
constexpr double largestDrift = 1000e-6;
/// How exact the best of ten seconds is at best, and which part of the uncertainty is left in it.
constexpr double bestError = 0.002;
constexpr double remainingPart = 0.2;
constexpr double elsewhereSeconds = 0.05;
constexpr double behindSeconds = 0.1;
constexpr double secondsUntilBehindIsBelieved = 3.0;
constexpr qsizetype fewestBehind = 4;
constexpr double secondsToSettle = 2.0;

}

void ZLRecorderLock::begin()
{
    m_hasPosition = false;
    m_driftBefore = m_drift;
    beginAnewWith({});
}

void ZLRecorderLock::note(const ZLRecorderReport& report)
{
    const Offset offset { report.hostTime, report.position - report.hostTime, report.uncertainty, report.isTimed };
    m_lastHostTime = report.hostTime;
    if (!m_hasPosition) {
        m_hasPosition = true;
        beginAnewWith({ offset });
        return;
    }
    if (liesElsewhere(offset))
        return;
    if (offset.isTimed)
        m_recent.clear();
    m_recent.append(offset);
    estimate();
    gatherForDrift(offset);
}

double ZLRecorderLock::positionAt(double hostTime) const
{
    return hostTime + m_offset + m_drift * (hostTime - m_reference);
}

bool ZLRecorderLock::isSettledAt(double hostTime) const
{
    return m_hasPosition && hostTime - m_settledFrom >= secondsToSettle;
}

void ZLRecorderLock::beginAnewWith(const QList<Offset>& offsets)
{
    m_recent = offsets;
    m_gathered = offsets;
    m_best.clear();
    m_elsewhere.clear();
    m_behind.clear();
    // A line that begins anew has to stand against what the one before has told.
    if (m_isDriftKnown)
        m_driftBefore = m_drift;
    if (offsets.isEmpty())
        return;
    m_settledFrom = offsets.first().hostTime;
    estimate();
}

/// Also begins anew where they have lain elsewhere for long enough.
bool ZLRecorderLock::liesElsewhere(const Offset& offset)
{
    const double surplus = offset.seconds - (m_offset + m_drift * (offset.hostTime - m_reference));
    if ((offset.isTimed ? std::abs(surplus) : surplus) > elsewhereSeconds + 2.0 * offset.uncertainty) {
        m_elsewhere.append(offset);
        // A single one is a mistake of the recorder.
        if (m_elsewhere.size() > 1)
            beginAnewWith(QList(m_elsewhere));
        return true;
    }
    m_elsewhere.clear();
    if (surplus >= -behindSeconds - offset.uncertainty) {
        m_behind.clear();
        return false;
    }
    m_behind.append(offset);
    const double lasting = offset.hostTime - m_behind.first().hostTime;
    if (lasting >= secondsUntilBehindIsBelieved && m_behind.size() >= fewestBehind)
        beginAnewWith(QList(m_behind));
    return true;
}

void ZLRecorderLock::estimate()
{
    const double now = m_recent.last().hostTime;
    m_recent.removeIf([now](const Offset& offset) { return now - offset.hostTime > recentSeconds; });
    m_offset = middleOfBest(m_recent, m_drift, now);
    m_reference = now;
}

void ZLRecorderLock::gatherForDrift(const Offset& offset)
{
    m_gathered.append(offset);
    if (offset.hostTime - m_gathered.first().hostTime < secondsPerBest)
        return;
    const double middle = (m_gathered.first().hostTime + offset.hostTime) / 2.0;
    m_best.append({ middle, middleOfBest(m_gathered, m_drift, middle), offset.uncertainty });
    if (m_best.size() > mostBest)
        m_best.removeFirst();
    m_gathered.clear();
    fitDrift();
}

/// The slope of the line, drawn to what was known before as long as the points lie close together.
void ZLRecorderLock::fitDrift()
{
    if (m_best.size() < fewestBestForDrift)
        return;
    Offset mean;
    for (const Offset& best : std::as_const(m_best)) {
        mean.hostTime += best.hostTime / double(m_best.size());
        mean.seconds += best.seconds / double(m_best.size());
        mean.uncertainty = std::max(mean.uncertainty, best.uncertainty);
    }
    double spread = 0.0;
    double product = 0.0;
    for (const Offset& best : std::as_const(m_best)) {
        const double distance = best.hostTime - mean.hostTime;
        spread += distance * distance;
        product += distance * (best.seconds - mean.seconds);
    }
    const double error = bestError + remainingPart * mean.uncertainty;
    const double weightOfBefore = error * error / (usualDrift * usualDrift);
    const double drift = (product + weightOfBefore * m_driftBefore) / (spread + weightOfBefore);
    m_drift = std::clamp(drift, -largestDrift, largestDrift);
    m_isDriftKnown = spread > weightOfBefore;
    estimate();
}

double ZLRecorderLock::middleOfBest(const QList<Offset>& offsets, double drift, double reference)
{
    double largest = std::numeric_limits<double>::lowest();
    double smallest = std::numeric_limits<double>::max();
    double uncertainty = 0.0;
    for (const Offset& offset : offsets) {
        const double seconds = offset.seconds + drift * (reference - offset.hostTime);
        smallest = std::min(smallest, seconds);
        if (seconds > largest) {
            largest = seconds;
            uncertainty = offset.uncertainty;
        }
    }
    // What a recorder that counts in steps says lies around the truth, half a step to each side.
    return largest - std::min(uncertainty, (largest - smallest) / 2.0);
}
