#include "model/ZLChapterOrder.h"

#include <algorithm>
#include <cmath>

namespace {

bool isTimeBefore(double left, double right)
{
    if (std::isnan(left) || std::isnan(right))
        return std::isnan(right) && !std::isnan(left);
    return left < right;
}

}

bool ZLChapterOrder::comesBefore(const ZLChapterPointer& left, const ZLChapterPointer& right)
{
    return isTimeBefore(left->timeStamp(), right->timeStamp());
}

void ZLChapterOrder::noteTimeChange(const ZLChapter& chapter, double formerTime)
{
    if (m_state == State::Certain) {
        m_state = State::OneChapterChanged;
        m_chapter = &chapter;
        m_formerTime = formerTime;
    } else if (m_chapter != &chapter) {
        m_state = State::Doubtful;
    }
}

std::optional<ZLChapterOrder::Move> ZLChapterOrder::singleMove(const ZLChapterSequence& chapters) const
{
    const auto from = m_state == State::OneChapterChanged ? formerIndex(chapters) : std::nullopt;
    if (!from)
        return std::nullopt;
    const auto begin = chapters.cbegin();
    const auto place = begin + *from;
    // A chapter stays behind those of its time that it stood behind, and before those that it stood before.
    if (const auto earlier = std::upper_bound(begin, place, *place, comesBefore); earlier != place)
        return Move { *from, earlier - begin };
    const auto later = std::lower_bound(place + 1, chapters.cend(), *place, comesBefore);
    return Move { *from, later - begin - 1 };
}

std::optional<qsizetype> ZLChapterOrder::formerIndex(const ZLChapterSequence& chapters) const
{
    // With the former time the list is in order and can be searched by halves.
    const auto timeOf = [this](const ZLChapterPointer& chapter) {
        return chapter.get() == m_chapter ? m_formerTime : chapter->timeStamp();
    };
    const auto first = std::lower_bound(chapters.cbegin(), chapters.cend(), m_formerTime,
        [&timeOf](const ZLChapterPointer& chapter, double time) { return isTimeBefore(timeOf(chapter), time); });
    const auto last = std::upper_bound(first, chapters.cend(), m_formerTime,
        [&timeOf](double time, const ZLChapterPointer& chapter) { return isTimeBefore(time, timeOf(chapter)); });
    const auto isChanged = [this](const ZLChapterPointer& chapter) { return chapter.get() == m_chapter; };
    const auto found = std::find_if(first, last, isChanged);
    if (found == last || std::find_if(found + 1, last, isChanged) != last)
        return std::nullopt;
    return found - chapters.cbegin();
}
