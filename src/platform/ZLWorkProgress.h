#pragma once

#include <QtGlobal>

#include <algorithm>
#include <atomic>

/// How far a long piece of work is, and the wish to end it early. Any thread may read and cancel.
class ZLWorkProgress {
public:
    void begin(qint64 total)
    {
        m_done = 0;
        m_total = total;
    }
    /// In the unit of begin(): bytes, or anything else that is counted.
    void advance(qint64 steps) { m_done += steps; }
    /// From 0 to 1.
    [[nodiscard]] double fraction() const
    {
        const qint64 total = m_total;
        return total > 0 ? std::min(double(m_done) / double(total), 1.0) : 0.0;
    }

    void cancel() { m_isCancelled = true; }
    [[nodiscard]] bool isCancelled() const { return m_isCancelled; }

private:
    std::atomic<qint64> m_done = 0;
    std::atomic<qint64> m_total = 0;
    std::atomic<bool> m_isCancelled = false;
};
