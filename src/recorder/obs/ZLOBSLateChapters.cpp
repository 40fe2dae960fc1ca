#include "recorder/obs/ZLOBSLateChapters.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double millisecondsInOneSecond = 1000.0;
/// A timer may come so much too early, in seconds.
constexpr double earlyTimer = 0.001;

}

ZLOBSLateChapters::ZLOBSLateChapters(const ZLHostClock& clock, ZLOneShotTimerStarter startTimer, QObject* parent)
    : QObject(parent)
    , m_clock(clock)
    , m_startTimer(std::move(startTimer))
{
}

void ZLOBSLateChapters::add(const QString& title, double delay)
{
    const double due = recordedTime() + delay;
    m_waiting.append({ title, m_waiting.isEmpty() ? due : std::max(due, m_waiting.last().due) });
    takeDue();
}

void ZLOBSLateChapters::setRecording(bool isRecording)
{
    if (std::exchange(m_isRecording, isRecording) == isRecording)
        return;
    if (isRecording)
        m_paused += m_clock.now() - m_pausedSince;
    else
        m_pausedSince = m_clock.now();
    takeDue();
}

void ZLOBSLateChapters::setReachable(bool isReachable)
{
    if (std::exchange(m_isReachable, isReachable) != isReachable)
        takeDue();
}

void ZLOBSLateChapters::finish()
{
    while (m_isReachable && !m_waiting.isEmpty())
        releaseFirst();
    m_waiting.clear();
    m_timer.reset();
}

double ZLOBSLateChapters::recordedTime() const
{
    return (m_isRecording ? m_clock.now() : m_pausedSince) - m_paused;
}

void ZLOBSLateChapters::takeDue()
{
    m_timer.reset();
    if (!m_isRecording || !m_isReachable)
        return;
    while (!m_waiting.isEmpty() && m_waiting.first().due <= recordedTime() + earlyTimer)
        releaseFirst();
    if (m_waiting.isEmpty())
        return;
    const double left = m_waiting.first().due - recordedTime();
    // A timer must not go during its own call.
    m_timer = m_startTimer(std::chrono::milliseconds(std::llround(std::ceil(left * millisecondsInOneSecond))),
        [this] { QMetaObject::invokeMethod(this, &ZLOBSLateChapters::takeDue, Qt::QueuedConnection); });
}

void ZLOBSLateChapters::releaseFirst()
{
    const QString title = m_waiting.takeFirst().title;
    Q_EMIT isDue(title);
}
