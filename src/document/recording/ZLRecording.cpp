#include "document/recording/ZLRecording.h"

#include "model/ZLTimeText.h"
#include "settings/ZLSettingsManager.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString startRecordingActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Start Recording"));
const QString stopRecordingActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Stop Recording"));

}

ZLRecording::ZLRecording(ZLDocumentBasis& basis, Mark mark)
    : m_basis(basis)
    , m_mark(std::move(mark))
    , m_clock(basis.environment.hostClock)
    , m_sleepWatcher(basis.environment.hostClock, basis.environment.bootClock)
    , m_interruption(basis, m_clock, m_sleepWatcher)
    , m_sleptTime(basis, m_clock, m_sleepWatcher)
    , m_commandTime(basis.environment, m_clock, m_sleptTime)
{
    connect(&m_clock, &ZLRecordingClock::displayIsDue, this, &ZLRecording::tick);
}

QString ZLRecording::clockText() const
{
    const auto parts = ZLTimeParts::ofMilliseconds(ZLTimeText::truncated(m_clock.currentDuration() * 1000.0));
    return u"%1:%2:%3.%4"_s.arg(ZLTimeText::padded(parts.hours, 2), ZLTimeText::padded(parts.minutes, 2),
        ZLTimeText::padded(parts.seconds, 2), QString::number(parts.milliseconds / 100));
}

void ZLRecording::recordButtonPressed()
{
    if (m_clock.isRunning()) {
        m_sleptTime.noticeSleep();
        const double originalDuration = m_clock.duration();
        stop(originalDuration, m_commandTime.reading(), m_clock.startTime());
    } else if (m_recorderStart && m_recorderStart()) {
        m_basis.changes.note(ZLDocumentChange::Recording);
    } else if (ZLSettingsManager::playSoundBeforeRecording()) {
        playStartBeep();
        m_basis.changes.note(ZLDocumentChange::Recording);
    } else {
        beginSpanAt(m_commandTime.hostTime());
    }
}

void ZLRecording::soundDidFinishPlaying()
{
    // The sound may be the sender of the signal that is being handled.
    if (m_beep)
        m_beep.release()->deleteLater();
    // An undo or redo may have started the clock while the beep was playing.
    if (!m_clock.isRunning())
        beginSpanAt(m_clock.hostTime());
}

void ZLRecording::startWithRecorder(double hostTime)
{
    beginSpanAt(hostTime);
}

void ZLRecording::startWithTime(double hostTime)
{
    Q_EMIT m_basis.typing.typedTextShouldBeCommitted();
    const ZLUndoGroup group(m_basis.undoManager);
    // A user who starts the clock wants it to go on from where it stands.
    m_interruption.keepPaused();
    _realStartWithTime(hostTime);
    m_basis.undoManager.registerStep([this, hostTime] { undoStartWithTime(hostTime); });
    m_basis.undoManager.setActionName(startRecordingActionName);
}

void ZLRecording::undoStartWithTime(double hostTime)
{
    const ZLUndoGroup group(m_basis.undoManager);
    _realStop();
    m_basis.undoManager.registerStep([this, hostTime] { startWithTime(hostTime); });
    m_basis.undoManager.setActionName(startRecordingActionName);
}

void ZLRecording::stop(double originalDuration, double newDuration, double startTime)
{
    const ZLUndoGroup group(m_basis.undoManager);
    m_clock.setDuration(newDuration);
    _realStop();
    m_basis.undoManager.registerStep(
        [this, originalDuration, newDuration, startTime] { undoStop(originalDuration, newDuration, startTime); });
    m_basis.undoManager.setActionName(stopRecordingActionName);
}

void ZLRecording::undoStop(double originalDuration, double newDuration, double startTime)
{
    const ZLUndoGroup group(m_basis.undoManager);
    m_clock.setDuration(originalDuration);
    _realStartWithTime(startTime);
    m_basis.undoManager.registerStep(
        [this, originalDuration, newDuration, startTime] { stop(originalDuration, newDuration, startTime); });
    m_basis.undoManager.setActionName(startRecordingActionName);
}

void ZLRecording::beginAnewAt(double duration)
{
    m_clock.stop();
    m_clock.setDuration(duration);
    m_interruption.setPending(std::nullopt);
    m_sleptTime.forget();
    m_recorderDifference.forget();
    m_basis.changes.note(ZLDocumentChange::Recording | ZLDocumentChange::Reading);
}

void ZLRecording::_realStartWithTime(double hostTime)
{
    m_clock.startAt(hostTime);
    const ZLCommandTime::Moment start(m_commandTime, hostTime);
    createAutomaticChapter();
    noteStartOrStop();
}

void ZLRecording::_realStop()
{
    m_clock.stop();
    noteStartOrStop();
}

void ZLRecording::noteStartOrStop()
{
    m_isAsHistoryLeftIt = m_basis.undoManager.isUndoing() || m_basis.undoManager.isRedoing();
    m_basis.changes.note(ZLDocumentChange::Recording);
}

void ZLRecording::beginSpanAt(double hostTime)
{
    m_sleepWatcher.restart();
    startWithTime(hostTime);
}

void ZLRecording::playStartBeep()
{
    // A second press while the beep plays must not start the clock twice.
    if (m_beep)
        return;
    m_beep = m_basis.environment.soundNamed(u"beep.aiff"_s);
    m_beep->setPlaybackDeviceIdentifier(ZLSettingsManager::audioOutputDevice());
    connect(m_beep.get(), &ZLSound::didFinishPlaying, this, &ZLRecording::soundDidFinishPlaying);
    m_beep->play();
}

void ZLRecording::createAutomaticChapter()
{
    if (!ZLSettingsManager::createNewChapterOnStart())
        return;
    const bool isFirstStart = m_clock.duration() == 0.0;
    if (isFirstStart || ZLSettingsManager::createNewChapterAfterPause())
        m_mark();
}

void ZLRecording::tick()
{
    m_sleptTime.noticeSleep();
    Q_EMIT clockDidTick();
}
