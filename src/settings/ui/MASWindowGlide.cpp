#include "settings/ui/MASWindowGlide.h"

#include <QEasingCurve>
#include <QWidget>

MASWindowGlide::MASWindowGlide(QWidget& window)
    : QVariantAnimation(&window)
    , m_window(window)
{
    setEasingCurve(QEasingCurve::InOutQuad);
    connect(this, &QVariantAnimation::finished, this, &MASWindowGlide::arrive);
}

void MASWindowGlide::glideTo(const Goal& goal, std::chrono::milliseconds duration)
{
    stop();
    m_goal = goal;
    if (duration.count() <= 0 || goal.size == m_window.size()) {
        arrive();
        return;
    }
    // The limits of the pane before would stop the window half-way, or make it jump.
    m_window.setMinimumSize(goal.size.boundedTo(m_window.size()));
    m_window.setMaximumSize(goal.size.expandedTo(m_window.size()));
    setDuration(int(duration.count()));
    setStartValue(m_window.size());
    setEndValue(goal.size);
    start();
}

void MASWindowGlide::updateCurrentValue(const QVariant& size)
{
    if (state() != Stopped)
        m_window.resize(size.toSize());
}

void MASWindowGlide::arrive()
{
    m_window.setMinimumSize(m_goal.minimum);
    m_window.setMaximumSize(m_goal.maximum);
    m_window.resize(m_goal.size);
    Q_EMIT didArrive();
}
