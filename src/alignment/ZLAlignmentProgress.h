#pragma once

#include <atomic>
#include <cstdint>

/// How far a comparison is, and the wish to end it early. Any thread may read and cancel.
class ZLAlignmentProgress {
public:
    void begin(std::int64_t total)
    {
        m_done = 0;
        m_total = total;
    }
    void advance(std::int64_t steps = 1) { m_done += steps; }
    /// From 0 to 1.
    [[nodiscard]] double fraction() const
    {
        const std::int64_t total = m_total;
        return total > 0 ? double(m_done) / double(total) : 0.0;
    }

    void cancel() { m_isCancelled = true; }
    [[nodiscard]] bool isCancelled() const { return m_isCancelled; }

private:
    std::atomic<std::int64_t> m_done = 0;
    std::atomic<std::int64_t> m_total = 0;
    std::atomic<bool> m_isCancelled = false;
};
