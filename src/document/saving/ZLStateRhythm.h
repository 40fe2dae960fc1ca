#pragma once

#include "document/saving/ZLKnownFile.h"
#include "document/saving/ZLStateKeeper.h"
#include "platform/ZLHostClock.h"

#include <memory>
#include <optional>

/// How often what a write takes the place of is kept as a former state of the document.
class ZLStateRhythm {
public:
    static constexpr int Interval = 60'000; ///< Milliseconds, at least, between two states that are kept.

    explicit ZLStateRhythm(std::shared_ptr<const ZLHostClock> clock)
        : m_clock(std::move(clock))
    {
    }

    /// What `file` holds, if a state is due and there is a history and anything to keep.
    [[nodiscard]] std::optional<ZLFormerState> stateToKeep(
        const std::optional<ZLDocumentHistory>& history, const ZLKnownFile& file) const
    {
        const bool isDue = !m_lastState || (m_clock->now() - *m_lastState) * 1000.0 >= Interval;
        if (!isDue || !history || file.bytes().isEmpty())
            return std::nullopt;
        return ZLFormerState { .history = *history, .bytes = file.bytes(), .time = file.timeOfBytes() };
    }

    /// A full disk is not asked more often than one that takes the state.
    void noteOutcome(ZLStateKeeping keeping)
    {
        if (keeping != ZLStateKeeping::NothingNew)
            m_lastState = m_clock->now();
    }

    /// Makes the next write keep a state however soon it comes.
    void makeDue() { m_lastState.reset(); }

private:
    const std::shared_ptr<const ZLHostClock> m_clock;
    /// Seconds of the clock.
    std::optional<double> m_lastState;
};
