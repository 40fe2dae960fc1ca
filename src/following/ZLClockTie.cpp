#include "following/ZLClockTie.h"

#include "document/ZLChapterDocument.h"

#include <algorithm>
#include <cmath>

namespace {

/// In which a small distance goes, and by how much the clock may go faster or slower for that at most.
struct Pace {
    double seconds = 1.0;
    double largestRate = 0.02;
};

constexpr Pace usualPace {};
/// In the first seconds every report says more of where the recording is, and the marks of these seconds shall gain by
/// it.
constexpr Pace paceOfStart { .seconds = 0.1, .largestRate = 0.1 };

}

ZLClockTie::ZLClockTie(ZLChapterDocument& document)
    : m_document(document)
{
}

std::optional<double> ZLClockTie::recordersReadingAt(double hostTime) const
{
    if (!m_base || !m_lock.hasPosition())
        return std::nullopt;
    return *m_base + m_lock.positionAt(hostTime);
}

std::optional<double> ZLClockTie::distanceAt(double hostTime) const
{
    const auto reading = recordersReadingAt(hostTime);
    if (!reading)
        return std::nullopt;
    const ZLRecording& recording = m_document.recording();
    return *reading - recording.recorderDifference().kept() - recording.clock().readingAt(hostTime);
}

std::optional<double> ZLClockTie::followAt(double hostTime)
{
    const auto distance = distanceAt(hostTime);
    if (!distance || !m_document.isRecording())
        return std::nullopt;
    ZLRecording& recording = m_document.recording();
    double correction = 0.0;
    std::optional<double> noticed;
    if (std::abs(*distance) <= LargestOwnCorrection) {
        recording.recorderDifference().setUndecided(std::nullopt);
        const Pace pace = m_lock.isSettledAt(hostTime) ? usualPace : paceOfStart;
        correction = std::clamp(*distance / pace.seconds, -pace.largestRate, pace.largestRate);
    } else if (m_lock.isSettledAt(hostTime) && noticeDifference(*distance)) {
        noticed = distance;
    }
    recording.clock().setRate(m_lock.drift() + correction);
    return noticed;
}

void ZLClockTie::goOnAlone()
{
    m_document.recording().clock().setRate(m_lock.drift());
}

bool ZLClockTie::noticeDifference(double seconds)
{
    ZLRecorderDifference& difference = m_document.recording().recorderDifference();
    const auto former = difference.undecided();
    // While nothing is decided, both go on side by side.
    if (former && std::abs(former->seconds - seconds) <= LargestOwnCorrection)
        return false;
    const double since = m_document.recording().clock().readingAt(m_lock.settledFrom());
    difference.setUndecided(ZLRecorderDifference::Undecided {
        .seconds = seconds, .reading = former ? std::min(former->reading, since) : since });
    return true;
}
