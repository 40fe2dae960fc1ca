#include "document/ZLChapterDocument.h"

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

void ZLChapterDocument::noticeSleep()
{
    // While the clock stands nobody asks, so a sleep then counts after all when the stop is undone.
    if (!isRecording())
        return;
    const double seconds = m_sleepWatcher.takeSleep();
    if (seconds == 0.0)
        return;
    m_sleeps.append({
        .reading = currentDuration(),
        .seconds = seconds,
        .begin = wallClockTime().addMSecs(-std::llround(seconds * 1000.0)),
    });
    m_changes.note(ZLDocumentChange::Sleeps);
}

QList<ZLSleepWhileRecording> ZLChapterDocument::undecidedSleeps() const
{
    QList<ZLSleepWhileRecording> sleeps;
    for (const ZLSleepWhileRecording& sleep : m_sleeps) {
        if (sleep.reading <= currentDuration())
            sleeps.append(sleep);
    }
    return sleeps;
}

void ZLChapterDocument::addSleptTime()
{
    const QList<ZLSleepWhileRecording> sleeps = undecidedSleeps();
    if (sleeps.isEmpty())
        return;
    Q_EMIT typedTextShouldBeCommitted();
    ZLRecordedTimes times { .duration = duration() + secondsSleptBefore(currentDuration(), sleeps) };
    const ZLChapterSequence chapters = m_chapterManager.allChapters();
    for (const ZLChapterPointer& chapter : chapters) {
        const double slept = secondsSleptBefore(chapter->timeStamp(), sleeps);
        if (slept > 0.0)
            times.timeStamps.append({ chapter, chapter->timeStamp() + slept });
    }
    exchangeRecordedTimes(times, addSleptTimeActionName);
}

void ZLChapterDocument::leaveSleptTime()
{
    if (!undecidedSleeps().isEmpty())
        exchangeRecordedTimes({ .duration = duration() }, leaveSleptTimeActionName);
}

void ZLChapterDocument::exchangeRecordedTimes(const ZLRecordedTimes& times, const QString& actionName)
{
    const ZLUndoGroup group(m_undoManager);
    ZLChapterSequence moved;
    ZLRecordedTimes former { .duration = duration(), .sleeps = std::exchange(m_sleeps, times.sleeps) };
    for (const auto& [chapter, timeStamp] : times.timeStamps) {
        former.timeStamps.append({ chapter, chapter->timeStamp() });
        chapter->setTimeStamp(timeStamp);
        moved.append(chapter);
    }
    m_clock.setDuration(times.duration);
    m_undoManager.registerStep([this, former, actionName] { exchangeRecordedTimes(former, actionName); });
    m_undoManager.setActionName(actionName);
    m_changes.note(ZLDocumentChange::Sleeps | ZLDocumentChange::Reading);
    if (!moved.isEmpty())
        noteEdit(ZLDocumentChange::Times, moved);
}
