#include "document/ZLChapterDocument.h"

#include <algorithm>
#include <cmath>

namespace {

const QString continueRecordingActionName =
    QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Continue Recording"));
const QString keepRecordingPausedActionName =
    QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Keep Recording Paused"));

/// Host time at which a span began that reads 0 at `lastSeen`.
double hostTimeOfMoment(const QDateTime& lastSeen, const QDateTime& wallClockNow, double hostTimeNow)
{
    // A wall clock that was put back must not make the recording shorter than it was.
    const double gap = std::max(0.0, double(lastSeen.msecsTo(wallClockNow)) / 1000.0);
    const double begin = hostTimeNow - gap;
    // The host clock may have begun after that moment, so negative times are right; 0 means that the clock stands.
    return begin == 0.0 ? -0.001 : begin;
}

}

void ZLChapterDocument::setInterruptedRecording(const std::optional<ZLInterruptedRecording>& interruption)
{
    if (m_interruption == interruption)
        return;
    m_interruption = interruption;
    m_changes.note(ZLDocumentChange::Interruption);
}

void ZLChapterDocument::continueInterruptedRecording()
{
    if (!m_interruption || isRecording())
        return;
    const ZLInterruptedRecording interruption = *m_interruption;
    Q_EMIT typedTextShouldBeCommitted();
    // The wall clock, by which the recording goes on, has counted every sleep.
    m_sleepWatcher.restart();
    resumeInterruptedRecording(
        interruption, hostTimeOfMoment(interruption.lastSeen, wallClockTime(), m_clock.hostTime()));
}

void ZLChapterDocument::keepInterruptedRecordingPaused()
{
    if (!m_interruption)
        return;
    const ZLUndoGroup group(m_undoManager);
    const ZLInterruptedRecording interruption = *m_interruption;
    setInterruptedRecording(std::nullopt);
    m_undoManager.registerStep([this, interruption] {
        const ZLUndoGroup undoGroup(m_undoManager);
        setInterruptedRecording(interruption);
        m_undoManager.registerStep([this] { keepInterruptedRecordingPaused(); });
        m_undoManager.setActionName(keepRecordingPausedActionName);
    });
    m_undoManager.setActionName(keepRecordingPausedActionName);
}

void ZLChapterDocument::resumeInterruptedRecording(const ZLInterruptedRecording& interruption, double hostTime)
{
    const ZLUndoGroup group(m_undoManager);
    setInterruptedRecording(std::nullopt);
    // No automatic chapter: the recording does not begin here, it goes on.
    m_clock.startAt(hostTime);
    m_undoManager.registerStep(
        [this, interruption, hostTime] { offerInterruptedRecordingAgain(interruption, hostTime); });
    m_undoManager.setActionName(continueRecordingActionName);
    m_changes.note(ZLDocumentChange::Recording);
}

void ZLChapterDocument::offerInterruptedRecordingAgain(const ZLInterruptedRecording& interruption, double hostTime)
{
    const ZLUndoGroup group(m_undoManager);
    _realStopRecording();
    setInterruptedRecording(interruption);
    m_undoManager.registerStep([this, interruption, hostTime] { resumeInterruptedRecording(interruption, hostTime); });
    m_undoManager.setActionName(continueRecordingActionName);
}
