#include "document/recording/ZLSleptTime.h"

#include "document/recording/ZLRecordingClock.h"
#include "platform/activity/ZLSleepWatcher.h"

#include <cmath>
#include <utility>

namespace {

const QString addSleptTimeActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Add Slept Time"));
const QString leaveSleptTimeActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Leave Slept Time"));

/// Seconds slept before a moment of the recorded time.
double secondsSleptBefore(double reading, const QList<ZLSleepWhileRecording>& sleeps)
{
    double seconds = 0.0;
    for (const ZLSleepWhileRecording& sleep : sleeps) {
        if (reading >= sleep.reading)
            seconds += sleep.seconds;
    }
    return seconds;
}

}

ZLSleptTime::ZLSleptTime(ZLDocumentBasis& basis, ZLRecordingClock& clock, ZLSleepWatcher& sleepWatcher)
    : m_basis(basis)
    , m_clock(clock)
    , m_sleepWatcher(sleepWatcher)
{
}

void ZLSleptTime::noticeSleep()
{
    // A sleep while the clock stands is not taken here, so it counts after all when the stop is undone.
    if (!m_clock.isRunning())
        return;
    const double seconds = m_sleepWatcher.takeSleep();
    if (seconds == 0.0)
        return;
    m_lastNoticedAt = m_clock.hostTime();
    m_sleeps.append({
        .reading = m_clock.readingAt(m_lastNoticedAt),
        .seconds = seconds,
        .begin = m_basis.environment.wallClock().addMSecs(-std::llround(seconds * 1000.0)),
    });
    m_basis.changes.note(ZLDocumentChange::Sleeps);
}

QList<ZLSleepWhileRecording> ZLSleptTime::undecided() const
{
    QList<ZLSleepWhileRecording> sleeps;
    for (const ZLSleepWhileRecording& sleep : m_sleeps) {
        if (sleep.reading <= m_clock.currentDuration())
            sleeps.append(sleep);
    }
    return sleeps;
}

void ZLSleptTime::add()
{
    const QList<ZLSleepWhileRecording> sleeps = undecided();
    if (sleeps.isEmpty())
        return;
    Q_EMIT m_basis.typing.typedTextShouldBeCommitted();
    ZLRecordedTimes times { .duration = m_clock.duration() + secondsSleptBefore(m_clock.currentDuration(), sleeps) };
    const ZLChapterSequence chapters = m_basis.chapters.allChapters();
    for (const ZLChapterPointer& chapter : chapters) {
        const double slept = secondsSleptBefore(chapter->timeStamp(), sleeps);
        if (slept > 0.0)
            times.timeStamps.append({ chapter, chapter->timeStamp() + slept });
    }
    exchangeTimes(times, addSleptTimeActionName);
}

void ZLSleptTime::leave()
{
    if (!undecided().isEmpty())
        exchangeTimes({ .duration = m_clock.duration() }, leaveSleptTimeActionName);
}

void ZLSleptTime::forget()
{
    m_sleeps.clear();
    m_basis.changes.note(ZLDocumentChange::Sleeps);
}

void ZLSleptTime::exchangeTimes(const ZLRecordedTimes& times, const QString& actionName)
{
    const ZLUndoGroup group(m_basis.undoManager);
    ZLChapterSequence moved;
    ZLRecordedTimes former { .duration = m_clock.duration(), .sleeps = std::exchange(m_sleeps, times.sleeps) };
    for (const auto& [chapter, timeStamp] : times.timeStamps) {
        former.timeStamps.append({ chapter, chapter->timeStamp() });
        chapter->setTimeStamp(timeStamp);
        moved.append(chapter);
    }
    m_clock.setDuration(times.duration);
    m_basis.undoManager.registerStep([this, former, actionName] { exchangeTimes(former, actionName); });
    m_basis.undoManager.setActionName(actionName);
    m_basis.changes.note(ZLDocumentChange::Sleeps | ZLDocumentChange::Reading);
    if (!moved.isEmpty())
        m_basis.noteEdit(ZLDocumentChange::Times, moved);
}
