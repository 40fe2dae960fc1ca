#pragma once

#include "platform/ZLOneShotTimer.h"

#include <map>
#include <utility>

/// Timers that run on a clock which stands still until the test lets time pass.
class ZLFakeTimers {
public:
    [[nodiscard]] ZLOneShotTimerStarter starter()
    {
        return [this](std::chrono::milliseconds delay, std::function<void()> call) {
            auto timer = std::make_unique<Timer>(*this, ++m_lastNumber);
            m_running.emplace(timer->number, Running { m_now + delay, std::move(call) });
            return timer;
        };
    }

    /// Makes the calls that are due, the earliest first.
    void advance(std::chrono::milliseconds time)
    {
        m_now += time;
        while (const std::function<void()> call = takeDue())
            call();
    }

    [[nodiscard]] std::size_t running() const { return m_running.size(); }

private:
    struct Running {
        std::chrono::milliseconds due;
        std::function<void()> call;
    };
    struct Timer final : ZLOneShotTimer {
        Timer(ZLFakeTimers& owner, int itsNumber)
            : timers(owner)
            , number(itsNumber)
        {
        }
        ~Timer() override { timers.m_running.erase(number); }
        ZLFakeTimers& timers;
        int number;
    };

    std::function<void()> takeDue()
    {
        auto earliest = m_running.end();
        for (auto timer = m_running.begin(); timer != m_running.end(); ++timer) {
            if (timer->second.due <= m_now && (earliest == m_running.end() || timer->second.due < earliest->second.due))
                earliest = timer;
        }
        return earliest == m_running.end() ? std::function<void()>() : m_running.extract(earliest).mapped().call;
    }

    std::chrono::milliseconds m_now { 0 };
    std::map<int, Running> m_running;
    int m_lastNumber = 0;
};
