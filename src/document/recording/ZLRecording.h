#pragma once

#include "document/recording/ZLCommandTime.h"
#include "document/recording/ZLRecordingClock.h"
#include "document/recording/ZLRecordingInterruption.h"
#include "document/recording/ZLSleptTime.h"
#include "document/shared/ZLDocumentBasis.h"
#include "platform/activity/ZLSleepWatcher.h"

#include <QObject>

#include <functional>
#include <memory>

/// The recording clock with its undoable commands and the beep before a start. Times are seconds, `hostTime` those of
/// the host clock.
class ZLRecording : public QObject {
    Q_OBJECT

public:
    /// Takes the first mark of a start, see ZLSettingsManager::createNewChapterOnStart().
    using Mark = std::function<void()>;

    ZLRecording(ZLDocumentBasis& basis, Mark mark);

    [[nodiscard]] ZLRecordingClock& clock() { return m_clock; }
    [[nodiscard]] const ZLRecordingClock& clock() const { return m_clock; }
    [[nodiscard]] ZLRecordingInterruption& interruption() { return m_interruption; }
    [[nodiscard]] const ZLRecordingInterruption& interruption() const { return m_interruption; }
    [[nodiscard]] ZLSleptTime& sleptTime() { return m_sleptTime; }
    [[nodiscard]] const ZLSleptTime& sleptTime() const { return m_sleptTime; }

    /// When the command was given that is being carried out.
    [[nodiscard]] const ZLCommandTime& commandTime() const { return m_commandTime; }

    /// Whether the start beep is playing, after which the clock starts.
    [[nodiscard]] bool isWaitingForBeep() const { return m_beep != nullptr; }
    /// "00:01:05.3": the clock, truncated to tenths.
    [[nodiscard]] QString clockText() const;

    /// Starts the clock, after the beep where one is wanted, or stops it.
    void recordButtonPressed();
    /// Starts the clock at this moment: the press that had the beep played came before it.
    void soundDidFinishPlaying();
    void startWithTime(double hostTime);
    void undoStartWithTime(double hostTime);
    void stop(double originalDuration, double newDuration, double startTime);
    void undoStop(double originalDuration, double newDuration, double startTime);
    /// Stops the clock at `duration` and forgets what waits for a decision. This is no step.
    void beginAnewAt(double duration);

Q_SIGNALS:
    /// The clock goes on: ten times a second, after a sleep was noticed.
    void clockDidTick();

private:
    void _realStartWithTime(double hostTime);
    void _realStop();
    void beginSpanAt(double hostTime);
    void playStartBeep();
    void createAutomaticChapter();
    void tick();

    ZLDocumentBasis& m_basis;
    const Mark m_mark;
    ZLRecordingClock m_clock;
    ZLSleepWatcher m_sleepWatcher;
    ZLRecordingInterruption m_interruption;
    ZLSleptTime m_sleptTime;
    ZLCommandTime m_commandTime;
    std::unique_ptr<ZLSound> m_beep;
};
