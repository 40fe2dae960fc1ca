#pragma once

#include <cstddef>
#include <deque>
#include <optional>

/// Finds out when a counter of another program was at zero, from looks at it. The counter grows by one at even
/// intervals, as one that counts frames does. A look right after a step is worth most: the counter never steps early,
/// so the earliest moment at which a value was seen is the best one. Pure; all times are seconds of one clock.
class ZLStepClock {
public:
    /// `step`: seconds from one value of the counter to the next. Looks that are older than `memory` seconds are
    /// forgotten.
    explicit ZLStepClock(double step, double memory = 8.0);

    /// The counter was at `value` at some moment from `asked` to `answered`. A counter that runs backwards starts anew.
    void take(double asked, double answered, double value);
    void clear();

    /// When the counter was, or would have been, at zero.
    [[nodiscard]] std::optional<double> zero() const;
    /// By how many seconds zero() may be wrong at most, if the counter steps on time.
    [[nodiscard]] double uncertainty() const;
    [[nodiscard]] double step() const { return m_step; }
    /// Seconds between the first and the last look.
    [[nodiscard]] double lookedFor() const;

private:
    struct Look {
        double asked;
        double answered;
        double value;
    };
    [[nodiscard]] double shortestRoundTrip() const;

    double m_step;
    double m_memory;
    std::deque<Look> m_looks;
};
