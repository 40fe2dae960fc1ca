#pragma once

#include "following/ZLChapterReadings.h"
#include "following/ZLClockTie.h"
#include "following/ZLFollowingState.h"
#include "platform/ZLHostClock.h"
#include "recorder/ZLRecorder.h"

#include <QDateTime>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <optional>

class ZLChapterDocument;
struct ZLDocumentChange;

/// What one follower is given.
struct ZLFollowerSetup {
    std::unique_ptr<ZLRecorder> recorder {};
    /// Of the program, for a person: "OBS Studio".
    QString recorderName {};
    /// Whether a press that starts or stops the clock starts and stops the recorder.
    bool startsRecorder = false;
    /// Whether marks are written into the recorder's own file, where it can do that.
    bool marksChapters = false;
    std::shared_ptr<const ZLHostClock> hostClock = std::make_shared<ZLSteadyHostClock>();
};

/// Lets the clock of one document follow a recorder: it starts, pauses and stops with it, and goes as fast as it does.
class ZLRecorderFollower : public QObject {
    Q_OBJECT

public:
    /// `document` has to outlive it.
    ZLRecorderFollower(ZLChapterDocument& document, ZLFollowerSetup setup, QObject* parent = nullptr);
    ~ZLRecorderFollower() override;

    /// So many seconds without a report, and a recorder that recorded is lost.
    static constexpr double LongestSilence = 2.5;
    /// So long a recorder that was told to record may take, in milliseconds; then the clock starts without it.
    static constexpr int StartPatience = 3000;

    void open() { m_setup.recorder->open(); }

    [[nodiscard]] ZLChapterDocument& document() { return m_document; }
    [[nodiscard]] const QString& recorderName() const { return m_setup.recorderName; }
    [[nodiscard]] ZLFollowingState state() const;
    /// Why the recorder does not answer or will not do; empty otherwise.
    [[nodiscard]] const QString& reason() const { return m_reason; }
    [[nodiscard]] ZLRecorderState recorderState() const { return m_recorderState.value_or(ZLRecorderState::Standing); }
    /// Wall clock; valid while the recorder is lost.
    [[nodiscard]] const QDateTime& lostSince() const { return m_lostSince; }
    /// Seconds of the recorder's recording now; nothing while that is not known.
    [[nodiscard]] std::optional<double> position() const;
    /// By which the recorder is ahead of the clock now, in seconds; nothing while the clock does not follow.
    [[nodiscard]] std::optional<double> distance() const;
    /// Of the recorder's clock, in parts of a second per second; nothing while too little was seen.
    [[nodiscard]] std::optional<double> drift() const;

    /// Looks at the time: what is called ten times a second.
    void update();

Q_SIGNALS:
    void stateDidChange();
    /// Something happened that belongs into a log: a sentence for a person.
    void didHappen(const QString& sentence);

private:
    void takeReport(const ZLRecorderReport& report);
    void takeConnection(ZLRecorderConnection connection, const QString& reason);
    void takeFile(const QString& path, double begin);
    void takeChange(const ZLDocumentChange& change);
    void takeStartOrStop();

    void recordingBegins(const ZLRecorderReport& report, std::optional<ZLRecorderState> former);
    void recordingEnds(const ZLRecorderReport& report);
    void recorderIsBack(const ZLRecorderReport& report);
    void startClock(const ZLRecorderReport& report, std::optional<ZLRecorderState> former);
    [[nodiscard]] double baseForStart(const ZLRecorderReport& report, std::optional<ZLRecorderState> former);
    void tieRunningClock(const ZLRecorderReport& report);
    void stopClock(double hostTime);
    void keepRecording(double base, const ZLRecorderReport& report);
    void loseRecorder();
    void noteMarks();
    void keepWaitingFiles();
    /// Whether the press of a start was handed on to the recorder.
    bool startRecorder();
    void startWithoutRecorder();
    [[nodiscard]] bool isLost() const { return m_lostSince.isValid(); }
    [[nodiscard]] double wallClockSeconds() const;

    ZLChapterDocument& m_document;
    ZLFollowerSetup m_setup;
    ZLClockTie m_tie;
    ZLChapterReadings m_readings;
    ZLRecorderConnection m_connection = ZLRecorderConnection::Off;
    QString m_reason;
    /// Nothing before the first report.
    std::optional<ZLRecorderState> m_recorderState;
    QDateTime m_lostSince;
    double m_lostAt = 0.0;
    /// What the base was before the recorder paused; nothing once the clock went its own way.
    std::optional<double> m_baseOfRecording;
    /// Whether a recording was followed here already.
    bool m_hasTied = false;
    /// Files that were told before the clock was tied.
    /// Each with the moment that stands at its beginning.
    QList<std::pair<QString, double>> m_waitingFiles;
    /// As the clock was when it was looked at last.
    bool m_wasRunning;
    /// When the press came that the recorder was told to record by.
    double m_pressedAt = 0.0;
    QTimer m_startTimer;
    QTimer m_updateTimer;
};
