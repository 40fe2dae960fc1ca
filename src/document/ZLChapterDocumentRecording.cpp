#include "document/ZLChapterDocument.h"

#include "settings/ZLSettingsManager.h"

using namespace Qt::StringLiterals;

namespace {

const QString startRecordingActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Start Recording"));
const QString stopRecordingActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Stop Recording"));

}

void ZLChapterDocument::recordButtonPressed()
{
    if (isRecording()) {
        noticeSleep();
        const double originalDuration = duration();
        stopRecording(originalDuration, currentDuration(), startTime());
    } else if (ZLSettingsManager::playSoundBeforeRecording()) {
        playStartBeep();
        m_changes.note(ZLDocumentChange::Recording);
    } else {
        m_sleepWatcher.restart();
        startRecordingWithTime(m_clock.hostTime());
    }
}

void ZLChapterDocument::soundDidFinishPlaying()
{
    // The sound may be the sender of the signal that is being handled.
    if (m_beep)
        m_beep.release()->deleteLater();
    // An undo or redo may have started the clock while the beep was playing.
    if (isRecording())
        return;
    m_sleepWatcher.restart();
    startRecordingWithTime(m_clock.hostTime());
}

void ZLChapterDocument::startRecordingWithTime(double hostTime)
{
    Q_EMIT typedTextShouldBeCommitted();
    const ZLUndoGroup group(m_undoManager);
    // Whoever starts the clock himself wants it to go on from where it stands.
    keepInterruptedRecordingPaused();
    _realStartRecordingWithTime(hostTime);
    m_undoManager.registerStep([this, hostTime] { undoStartRecordingWithTime(hostTime); });
    m_undoManager.setActionName(startRecordingActionName);
}

void ZLChapterDocument::undoStartRecordingWithTime(double hostTime)
{
    const ZLUndoGroup group(m_undoManager);
    _realStopRecording();
    m_undoManager.registerStep([this, hostTime] { startRecordingWithTime(hostTime); });
    m_undoManager.setActionName(startRecordingActionName);
}

void ZLChapterDocument::stopRecording(double originalDuration, double newDuration, double startTime)
{
    const ZLUndoGroup group(m_undoManager);
    m_clock.setDuration(newDuration);
    _realStopRecording();
    m_undoManager.registerStep([this, originalDuration, newDuration, startTime] {
        undoStopRecording(originalDuration, newDuration, startTime);
    });
    m_undoManager.setActionName(stopRecordingActionName);
}

void ZLChapterDocument::undoStopRecording(double originalDuration, double newDuration, double startTime)
{
    const ZLUndoGroup group(m_undoManager);
    m_clock.setDuration(originalDuration);
    _realStartRecordingWithTime(startTime);
    m_undoManager.registerStep(
        [this, originalDuration, newDuration, startTime] { stopRecording(originalDuration, newDuration, startTime); });
    m_undoManager.setActionName(startRecordingActionName);
}

void ZLChapterDocument::_realStartRecordingWithTime(double hostTime)
{
    m_clock.startAt(hostTime);
    // Before anybody does something about the running clock, so that the chapter stands at its very beginning.
    createAutomaticChapter();
    m_changes.note(ZLDocumentChange::Recording);
}

void ZLChapterDocument::_realStopRecording()
{
    m_clock.stop();
    m_changes.note(ZLDocumentChange::Recording);
}

void ZLChapterDocument::playStartBeep()
{
    // A second press while the beep plays must not start the clock twice.
    if (m_beep)
        return;
    m_beep = m_environment.soundNamed(u"beep.aiff"_s);
    m_beep->setPlaybackDeviceIdentifier(ZLSettingsManager::audioOutputDevice());
    connect(m_beep.get(), &ZLSound::didFinishPlaying, this, &ZLChapterDocument::soundDidFinishPlaying);
    m_beep->play();
}

void ZLChapterDocument::createAutomaticChapter()
{
    if (!ZLSettingsManager::createNewChapterOnStart())
        return;
    const bool isFirstStart = duration() == 0.0;
    if (isFirstStart || ZLSettingsManager::createNewChapterAfterPause())
        addChapterButtonPressed();
}
