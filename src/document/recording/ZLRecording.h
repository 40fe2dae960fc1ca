#pragma once

#include "document/recording/ZLCommandTime.h"
#include "document/recording/ZLRecorderDifference.h"
#include "document/recording/ZLRecordingClock.h"
#include "document/recording/ZLRecordingInterruption.h"
#include "document/recording/ZLSleptTime.h"
#include "document/shared/ZLDocumentBasis.h"
#include "platform/activity/ZLSleepWatcher.h"

#include <QObject>

#include <functional>
#include <memory>
#include <utility>

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
    [[nodiscard]] ZLRecorderDifference& recorderDifference() { return m_recorderDifference; }
    [[nodiscard]] const ZLRecorderDifference& recorderDifference() const { return m_recorderDifference; }

    /// Whether an undo or a redo started or stopped the clock last, and no command.
    [[nodiscard]] bool isAsHistoryLeftIt() const { return m_isAsHistoryLeftIt; }

    /// Whether the start beep is playing, after which the clock starts.
    [[nodiscard]] bool isWaitingForBeep() const { return m_beep != nullptr; }
    /// "00:01:05.3": the clock, truncated to tenths.
    [[nodiscard]] QString clockText() const;

    /// Starts the clock, after the beep where one is wanted, or stops it.
    void recordButtonPressed();
    /// A press that starts the clock asks this first, while it is not empty. True: the clock will be started by a
    /// recorder that was told to record, and not by the press.
    void setRecorderStart(std::function<bool()> recorderStart) { m_recorderStart = std::move(recorderStart); }
    /// Starts the clock at once and without a beep; the recorder's recording began at `hostTime`, or its time was read.
    void startWithRecorder(double hostTime);
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
    void noteStartOrStop();
    void createAutomaticChapter();
    void tick();

    ZLDocumentBasis& m_basis;
    const Mark m_mark;
    ZLRecordingClock m_clock;
    ZLSleepWatcher m_sleepWatcher;
    ZLRecordingInterruption m_interruption;
    ZLSleptTime m_sleptTime;
    ZLCommandTime m_commandTime;
    ZLRecorderDifference m_recorderDifference { m_basis, m_clock };
    std::unique_ptr<ZLSound> m_beep;
    std::function<bool()> m_recorderStart;
    bool m_isAsHistoryLeftIt = false;
};
