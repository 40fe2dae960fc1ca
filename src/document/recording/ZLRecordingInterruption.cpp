#include "document/recording/ZLRecordingInterruption.h"

#include "document/recording/ZLRecordingClock.h"
#include "platform/activity/ZLSleepWatcher.h"

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

ZLRecordingInterruption::ZLRecordingInterruption(
    ZLDocumentBasis& basis, ZLRecordingClock& clock, ZLSleepWatcher& sleepWatcher)
    : m_basis(basis)
    , m_clock(clock)
    , m_sleepWatcher(sleepWatcher)
{
}

void ZLRecordingInterruption::setPending(const std::optional<ZLInterruptedRecording>& interruption)
{
    if (m_pending == interruption)
        return;
    m_pending = interruption;
    m_basis.changes.note(ZLDocumentChange::Interruption);
}

void ZLRecordingInterruption::continueRecording()
{
    if (!m_pending || m_clock.isRunning())
        return;
    const ZLInterruptedRecording interruption = *m_pending;
    Q_EMIT m_basis.typing.typedTextShouldBeCommitted();
    // The wall clock, by which the recording goes on, has counted every sleep.
    m_sleepWatcher.restart();
    resume(interruption, hostTimeOfMoment(interruption.lastSeen, m_basis.environment.wallClock(), m_clock.hostTime()));
}

void ZLRecordingInterruption::keepPaused()
{
    if (!m_pending)
        return;
    const ZLUndoGroup group(m_basis.undoManager);
    const ZLInterruptedRecording interruption = *m_pending;
    setPending(std::nullopt);
    m_basis.undoManager.registerStep([this, interruption] {
        const ZLUndoGroup undoGroup(m_basis.undoManager);
        setPending(interruption);
        m_basis.undoManager.registerStep([this] { keepPaused(); });
        m_basis.undoManager.setActionName(keepRecordingPausedActionName);
    });
    m_basis.undoManager.setActionName(keepRecordingPausedActionName);
}

void ZLRecordingInterruption::resume(const ZLInterruptedRecording& interruption, double hostTime)
{
    const ZLUndoGroup group(m_basis.undoManager);
    setPending(std::nullopt);
    // No automatic chapter: the recording does not begin here, it goes on.
    m_clock.startAt(hostTime);
    m_basis.changes.note(ZLDocumentChange::Recording);
    m_basis.undoManager.registerStep([this, interruption, hostTime] { offerAgain(interruption, hostTime); });
    m_basis.undoManager.setActionName(continueRecordingActionName);
}

void ZLRecordingInterruption::offerAgain(const ZLInterruptedRecording& interruption, double hostTime)
{
    const ZLUndoGroup group(m_basis.undoManager);
    m_clock.stop();
    m_basis.changes.note(ZLDocumentChange::Recording);
    setPending(interruption);
    m_basis.undoManager.registerStep([this, interruption, hostTime] { resume(interruption, hostTime); });
    m_basis.undoManager.setActionName(continueRecordingActionName);
}
