#include "document/recording/ZLRecorderDifference.h"

#include "document/recording/ZLRecordingClock.h"
#include "document/shared/ZLChapterMoves.h"

#include <algorithm>
#include <utility>

namespace {

const QString takeRecordersActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Take Recorder's Time"));
const QString keepZeltasActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Keep Zelta's Time"));

}

ZLRecorderDifference::ZLRecorderDifference(ZLDocumentBasis& basis, ZLRecordingClock& clock)
    : m_basis(basis)
    , m_clock(clock)
{
}

void ZLRecorderDifference::setUndecided(const std::optional<Undecided>& undecided)
{
    if (m_state.undecided == undecided)
        return;
    m_state.undecided = undecided;
    m_basis.changes.note(ZLDocumentChange::RecorderDifference);
}

void ZLRecorderDifference::forget()
{
    m_state.kept = 0.0;
    setUndecided(std::nullopt);
}

void ZLRecorderDifference::takeRecorders()
{
    if (!m_state.undecided)
        return;
    Q_EMIT m_basis.typing.typedTextShouldBeCommitted();
    // A clock that stands never reads less than nothing.
    const double seconds = std::max(m_state.undecided->seconds, -m_clock.currentDuration());
    const Times times = timesMovedSince(*m_state.undecided);
    const ZLUndoGroup group(m_basis.undoManager);
    for (const auto& [chapter, time] : times)
        ZLChapterMoves::addWithClock(m_basis.extras, chapter->uuid(), time - chapter->timeStamp());
    change({ .kept = m_state.kept }, seconds, times, takeRecordersActionName);
}

void ZLRecorderDifference::keepZeltas()
{
    if (m_state.undecided)
        change({ .kept = m_state.kept + m_state.undecided->seconds }, 0.0, {}, keepZeltasActionName);
}

ZLRecorderDifference::Times ZLRecorderDifference::timesMovedSince(const Undecided& undecided) const
{
    Times times;
    const ZLChapterSequence chapters = m_basis.chapters.allChapters();
    for (const ZLChapterPointer& chapter : chapters) {
        const double time = chapter->timeStamp();
        if (time >= undecided.reading)
            times.append({ chapter, std::max(0.0, time + undecided.seconds) });
    }
    return times;
}

void ZLRecorderDifference::change(const State& state, double seconds, const Times& times, const QString& actionName)
{
    const ZLUndoGroup group(m_basis.undoManager);
    const State formerState = std::exchange(m_state, state);
    Times formerTimes;
    ZLChapterSequence moved;
    for (const auto& [chapter, time] : times) {
        formerTimes.append({ chapter, chapter->timeStamp() });
        chapter->setTimeStamp(time);
        moved.append(chapter);
    }
    m_clock.moveBy(seconds);
    m_basis.undoManager.registerStep([this, formerState, seconds, formerTimes, actionName] {
        change(formerState, -seconds, formerTimes, actionName);
    });
    m_basis.undoManager.setActionName(actionName);
    m_basis.changes.note(ZLDocumentChange::RecorderDifference | ZLDocumentChange::Reading);
    if (!moved.isEmpty())
        m_basis.noteEdit(ZLDocumentChange::Times, moved);
}
