#pragma once

#include <QtGlobal>

/// Lets a burst through and after it a steady number each second. Time is handed in, in seconds.
class ZLOSCRateLimit {
public:
    constexpr ZLOSCRateLimit(double perSecond, double burst)
        : m_perSecond(perSecond)
        , m_burst(burst)
        , m_available(burst)
    {
    }

    bool tryAcquire(double now)
    {
        m_available = qMin(m_burst, m_available + qMax(0.0, now - m_lastTime) * m_perSecond);
        m_lastTime = now;
        if (m_available < 1)
            return false;
        m_available -= 1;
        return true;
    }

private:
    double m_perSecond;
    double m_burst;
    double m_available;
    double m_lastTime = 0;
};
