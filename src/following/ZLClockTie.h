#pragma once

#include "recorder/ZLRecorderLock.h"

#include <optional>

class ZLChapterDocument;

/// Ties the clock of a document to the recording of a recorder: the clock shall read the base and the recorder's
/// position. It is brought there by its rate alone, so it never jumps and never runs backwards.
class ZLClockTie {
public:
    /// `document` has to outlive it.
    explicit ZLClockTie(ZLChapterDocument& document);

    /// From this distance on a person decides, in seconds.
    static constexpr double LargestOwnCorrection = 0.1;

    [[nodiscard]] ZLRecorderLock& lock() { return m_lock; }
    [[nodiscard]] const ZLRecorderLock& lock() const { return m_lock; }

    [[nodiscard]] bool isTied() const { return m_base.has_value(); }
    void tie(double base) { m_base = base; }
    void untie() { m_base.reset(); }
    [[nodiscard]] double base() const { return m_base.value_or(0.0); }
    /// The recorder's reading: the base and its position. Nothing while the clock is not tied or no position is known.
    [[nodiscard]] std::optional<double> recordersReadingAt(double hostTime) const;
    /// By which the recorder is ahead of the clock, beside what a person decided for.
    [[nodiscard]] std::optional<double> distanceAt(double hostTime) const;

    /// Sets the rate of the running clock and notices a difference that needs a decision; returns one that is new.
    std::optional<double> followAt(double hostTime);
    /// Lets the clock go on with the last rate of the recorder.
    void goOnAlone();

private:
    /// Returns whether the difference is new.
    bool noticeDifference(double seconds);

    ZLChapterDocument& m_document;
    ZLRecorderLock m_lock;
    std::optional<double> m_base;
};
