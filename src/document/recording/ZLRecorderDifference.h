#pragma once

#include "document/shared/ZLDocumentBasis.h"

#include <QList>

#include <optional>
#include <utility>

class ZLRecordingClock;

/// By how much a recorder that the clock follows left the clock at once: a person sought another place, frames were
/// lost, or the computer slept. The clock never jumps by itself, so one of the two commands decides it.
class ZLRecorderDifference {
public:
    /// What waits for a decision.
    struct Undecided {
        /// By which the recorder is ahead of the clock; negative when it is behind.
        double seconds = 0.0;
        /// What the clock read when it was noticed.
        double reading = 0.0;

        bool operator==(const Undecided&) const = default;
    };

    /// Both have to outlive it.
    ZLRecorderDifference(ZLDocumentBasis& basis, ZLRecordingClock& clock);

    [[nodiscard]] const std::optional<Undecided>& undecided() const { return m_state.undecided; }
    /// To be called by what follows the recorder.
    void setUndecided(const std::optional<Undecided>& undecided);
    /// Seconds by which the recorder is ahead since a person decided for Zelta's clock.
    [[nodiscard]] double kept() const { return m_state.kept; }
    /// The recorder begins a recording: what was decided for the one before is over.
    void forget();

    /// Sets the clock to the recorder's time, and moves the chapters along that were marked since both differ.
    void takeRecorders();
    void keepZeltas();

private:
    struct State {
        std::optional<Undecided> undecided {};
        double kept = 0.0;
    };
    using Times = QList<std::pair<ZLChapterPointer, double>>;

    [[nodiscard]] Times timesMovedSince(const Undecided& undecided) const;
    void change(const State& state, double seconds, const Times& times, const QString& actionName);

    ZLDocumentBasis& m_basis;
    ZLRecordingClock& m_clock;
    State m_state;
};
