#pragma once

#include "model/ZLChapter.h"

#include <optional>

/// What a list of chapters knows about its own order by time. As long as one chapter alone has changed its time, the
/// list knows which one and where it stood, so that it can move this chapter without looking at all others.
class ZLChapterOrder {
public:
    /// The chapter at `from` belongs to `to`, counted without it. Both are equal when it stands where it belongs.
    struct Move {
        qsizetype from = 0;
        qsizetype to = 0;
    };

    /// Earlier first. A time that is not a number comes after all others, so that the order is a strict weak one.
    [[nodiscard]] static bool comesBefore(const ZLChapterPointer& left, const ZLChapterPointer& right);

    [[nodiscard]] bool isCertain() const { return m_state == State::Certain; }
    /// The list is in order now.
    void setCertain() { m_state = State::Certain; }
    /// Any chapter may stand anywhere.
    void doubt() { m_state = State::Doubtful; }
    /// A chapter of the list had `formerTime` before.
    void noteTimeChange(const ZLChapter& chapter, double formerTime);

    /// Where the one chapter goes that changed its time since the order was certain, so that chapters of equal time
    /// keep their order. Absent when more than one changed, or when it stands in `chapters` more than once.
    [[nodiscard]] std::optional<Move> singleMove(const ZLChapterSequence& chapters) const;

private:
    enum class State { Certain, OneChapterChanged, Doubtful };

    [[nodiscard]] std::optional<qsizetype> formerIndex(const ZLChapterSequence& chapters) const;

    State m_state = State::Certain;
    /// The chapter that changed, which stands in the list, and the time at which its place was found.
    const ZLChapter* m_chapter = nullptr;
    double m_formerTime = 0.0;
};
