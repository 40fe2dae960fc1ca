#include "following/ZLRecorderFollower.h"

#include "document/ZLChapterDocument.h"
#include "document/shared/ZLRecorderFiles.h"
#include "following/ZLFollowedRecording.h"
#include "model/ZLTimeText.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int updateMilliseconds = 100;
/// A recording that is further on when it is first seen has been joined late.
constexpr double latestBeginning = 1.5;
/// By how much less the position may have to be than expected, for the recording to be another one.
constexpr double newRecordingSeconds = 2.0;

QString clockText(double seconds)
{
    return ZLTimeText::hoursMinutesSeconds(ZLTimeText::truncated(std::max(0.0, seconds)));
}

}

ZLRecorderFollower::ZLRecorderFollower(ZLChapterDocument& document, ZLFollowerSetup setup, QObject* parent)
    : QObject(parent)
    , m_document(document)
    , m_setup(std::move(setup))
    , m_tie(document)
    , m_readings(document)
    , m_wasRunning(document.isRecording())
{
    ZLRecorder* recorder = m_setup.recorder.get();
    connect(recorder, &ZLRecorder::didReport, this, &ZLRecorderFollower::takeReport);
    connect(recorder, &ZLRecorder::connectionDidChange, this, &ZLRecorderFollower::takeConnection);
    connect(recorder, &ZLRecorder::fileDidChange, this, &ZLRecorderFollower::takeFile);
    connect(&document, &ZLChapterDocument::changed, this, &ZLRecorderFollower::takeChange);
    if (m_setup.startsRecorder)
        document.recording().setRecorderStart([this] { return startRecorder(); });
    m_startTimer.setSingleShot(true);
    m_startTimer.setInterval(StartPatience);
    connect(&m_startTimer, &QTimer::timeout, this, &ZLRecorderFollower::startWithoutRecorder);
    m_updateTimer.setInterval(updateMilliseconds);
    connect(&m_updateTimer, &QTimer::timeout, this, &ZLRecorderFollower::update);
    m_updateTimer.start();
}

ZLRecorderFollower::~ZLRecorderFollower()
{
    m_document.disconnect(this);
    m_setup.recorder->disconnect(this);
    m_setup.recorder->close();
    m_document.recording().setRecorderStart({});
    // A press that waits for the recorder is not lost with it.
    if (m_startTimer.isActive())
        startWithoutRecorder();
    m_document.recording().recorderDifference().forget();
    m_document.recording().clock().setRate(0.0);
}

ZLFollowingState ZLRecorderFollower::state() const
{
    if (isLost())
        return ZLFollowingState::Lost;
    if (m_connection == ZLRecorderConnection::Refused)
        return ZLFollowingState::Refused;
    if (m_connection != ZLRecorderConnection::Connected)
        return ZLFollowingState::Connecting;
    const bool isFollowing = m_tie.isTied() && m_document.isRecording();
    return isFollowing ? ZLFollowingState::Following : ZLFollowingState::Ready;
}

std::optional<double> ZLRecorderFollower::position() const
{
    if (!m_tie.lock().hasPosition())
        return std::nullopt;
    return m_tie.lock().positionAt(m_setup.hostClock->now());
}

std::optional<double> ZLRecorderFollower::distance() const
{
    if (!m_document.isRecording())
        return std::nullopt;
    return m_tie.distanceAt(m_setup.hostClock->now());
}

std::optional<double> ZLRecorderFollower::drift() const
{
    return m_tie.lock().isDriftKnown() ? std::optional(m_tie.lock().drift()) : std::nullopt;
}

void ZLRecorderFollower::update()
{
    const double now = m_setup.hostClock->now();
    const bool records = m_recorderState == ZLRecorderState::Recording;
    if (records && !isLost() && now - m_tie.lock().lastHostTime() > LongestSilence)
        loseRecorder();
    if (isLost() || !records)
        return;
    const auto noticed = m_tie.followAt(now);
    if (!noticed)
        return;
    m_readings.noteAgainSince(m_document.recording().recorderDifference().undecided()->reading,
        *noticed + m_document.recording().recorderDifference().kept());
    Q_EMIT didHappen(tr("%1 went away from Zelta's clock by %2 s at %3.")
            .arg(recorderName(), QLocale().toString(*noticed, 'f', 2), clockText(m_document.currentDuration())));
}

void ZLRecorderFollower::takeReport(const ZLRecorderReport& report)
{
    const auto former = std::exchange(m_recorderState, report.state);
    if (isLost()) {
        recorderIsBack(report);
    } else if (report.state != ZLRecorderState::Recording) {
        if (former == ZLRecorderState::Recording)
            recordingEnds(report);
        else if (report.state == ZLRecorderState::Standing)
            m_baseOfRecording.reset();
    } else if (former != ZLRecorderState::Recording) {
        recordingBegins(report, former);
    } else {
        m_tie.lock().note(report);
    }
    if (former != report.state)
        Q_EMIT stateDidChange();
}

void ZLRecorderFollower::takeConnection(ZLRecorderConnection connection, const QString& reason)
{
    m_connection = connection;
    m_reason = reason;
    if (connection == ZLRecorderConnection::Connected)
        Q_EMIT didHappen(tr("%1 answers.").arg(recorderName()));
    else if (!reason.isEmpty())
        Q_EMIT didHappen(reason);
    if (connection != ZLRecorderConnection::Connected && m_recorderState == ZLRecorderState::Recording && !isLost())
        loseRecorder();
    Q_EMIT stateDidChange();
}

void ZLRecorderFollower::takeFile(const QString& path, double begin)
{
    m_waitingFiles.append({ path, begin });
    Q_EMIT didHappen(tr("%1 records into %2.").arg(recorderName(), path));
    keepWaitingFiles();
}

void ZLRecorderFollower::takeChange(const ZLDocumentChange& change)
{
    if (change.concerns(ZLDocumentChange::Recording) && m_wasRunning != m_document.isRecording()) {
        m_wasRunning = m_document.isRecording();
        takeStartOrStop();
    }
    if (change.concerns(ZLDocumentChange::Rows))
        noteMarks();
}

/// By a person or another program: what is done here is noted in m_wasRunning before.
void ZLRecorderFollower::takeStartOrStop()
{
    const bool isFromHistory = m_document.recording().isAsHistoryLeftIt();
    const bool records = m_recorderState == ZLRecorderState::Recording;
    m_startTimer.stop();
    m_baseOfRecording.reset();
    m_tie.untie();
    if (isFromHistory) {
        Q_EMIT didHappen(
            tr("An undo started or stopped the clock. It follows again when %1 starts again.").arg(recorderName()));
    } else if (m_wasRunning && records && m_tie.lock().hasPosition()) {
        const double now = m_setup.hostClock->now();
        tieRunningClock({ .state = ZLRecorderState::Recording,
            .position = m_tie.lock().positionAt(now),
            .hostTime = now,
            .uncertainty = 0.0 });
    } else if (!m_wasRunning && records && m_setup.startsRecorder && m_setup.recorder->canBeStarted()) {
        m_setup.recorder->stopRecording();
    }
    Q_EMIT stateDidChange();
}

void ZLRecorderFollower::recordingBegins(const ZLRecorderReport& report, std::optional<ZLRecorderState> former)
{
    m_startTimer.stop();
    m_tie.lock().begin();
    m_tie.lock().note(report);
    if (m_document.isRecording())
        tieRunningClock(report);
    else
        startClock(report, former);
    keepWaitingFiles();
}

void ZLRecorderFollower::recordingEnds(const ZLRecorderReport& report)
{
    if (m_tie.isTied()) {
        m_baseOfRecording = report.state == ZLRecorderState::Paused ? std::optional(m_tie.base()) : std::nullopt;
        if (m_document.isRecording())
            stopClock(report.hostTime);
        if (report.state == ZLRecorderState::Standing)
            m_tie.untie();
    }
    m_tie.lock().begin();
}

void ZLRecorderFollower::recorderIsBack(const ZLRecorderReport& report)
{
    const double silence = report.hostTime - m_lostAt;
    m_lostSince = {};
    if (report.state != ZLRecorderState::Recording) {
        // It may have been killed while the show goes on, so this is no reason to stop the clock.
        m_tie.untie();
        m_tie.lock().begin();
        m_baseOfRecording.reset();
        Q_EMIT didHappen(tr("%1 is back and does not record. Zelta's clock goes on.").arg(recorderName()));
        Q_EMIT stateDidChange();
        return;
    }
    const double missing = m_tie.lock().positionAt(report.hostTime) - report.position;
    const bool isNew = missing > newRecordingSeconds && report.position <= silence + newRecordingSeconds;
    Q_EMIT didHappen(tr("%1 is back after %2 s.").arg(recorderName(), QLocale().toString(silence, 'f', 0)));
    if (isNew)
        recordingBegins(report, ZLRecorderState::Standing);
    else
        m_tie.lock().note(report);
    Q_EMIT stateDidChange();
}

void ZLRecorderFollower::startClock(const ZLRecorderReport& report, std::optional<ZLRecorderState> former)
{
    const double base = baseForStart(report, former);
    if (former != ZLRecorderState::Paused)
        m_document.recording().recorderDifference().forget();
    const double reading = base + report.position + m_document.recording().recorderDifference().kept();
    // A clock that reads a little more already waits for no one; its rate brings both together.
    const double start = report.hostTime - std::max(0.0, reading - m_document.duration());
    m_tie.tie(base);
    keepRecording(base, report);
    m_wasRunning = true;
    m_document.recording().startWithRecorder(start);
    const bool isLate = report.position > latestBeginning && former != ZLRecorderState::Paused;
    Q_EMIT didHappen(
        (isLate ? tr("Joined %1 at %2.") : tr("Started with %1 at %2.")).arg(recorderName(), clockText(reading)));
}

double ZLRecorderFollower::baseForStart(const ZLRecorderReport& report, std::optional<ZLRecorderState> former)
{
    const double recorded = m_document.duration();
    if (former == ZLRecorderState::Paused)
        return m_baseOfRecording.value_or(recorded - report.position);
    if (m_hasTied)
        return recorded;
    // Zelta was started again in the middle: the recording may still be the one that it followed.
    const auto kept = ZLFollowedRecording::keptIn(m_document.extras());
    const bool isKept = kept && kept->isSameAs(recorderName(), wallClockSeconds() - report.position);
    return isKept ? kept->base : recorded;
}

/// A running clock is never set: its base is what it read when the recording began.
void ZLRecorderFollower::tieRunningClock(const ZLRecorderReport& report)
{
    ZLRecording& recording = m_document.recording();
    recording.recorderDifference().forget();
    const double base = recording.clock().readingAt(report.hostTime) - report.position;
    m_tie.tie(base);
    keepRecording(base, report);
    Q_EMIT didHappen(tr("Zelta's clock runs already. From %1 on it goes as fast as %2.")
            .arg(clockText(m_document.currentDuration()), recorderName()));
}

void ZLRecorderFollower::stopClock(double hostTime)
{
    const ZLRecordingClock& clock = m_document.recording().clock();
    const double moment = std::clamp(hostTime, clock.startTime(), clock.hostTime());
    double reading = clock.readingAt(moment);
    const ZLChapterPointer last = m_document.chapterManager().lastChapter();
    // A mark that came before the message stands within what was recorded.
    if (last && last->timeStamp() <= clock.currentDuration())
        reading = std::max(reading, last->timeStamp());
    m_wasRunning = false;
    m_document.stopRecording(clock.duration(), reading, clock.startTime());
    Q_EMIT didHappen(tr("Stopped with %1 at %2.").arg(recorderName(), clockText(reading)));
}

void ZLRecorderFollower::keepRecording(double base, const ZLRecorderReport& report)
{
    const double age = m_setup.hostClock->now() - report.hostTime;
    const ZLFollowedRecording recording {
        .recorder = recorderName(), .base = base, .began = wallClockSeconds() - age - report.position
    };
    recording.keepIn(m_document.extras());
    m_hasTied = true;
}

void ZLRecorderFollower::loseRecorder()
{
    m_lostSince = m_document.wallClockTime();
    m_lostAt = m_tie.lock().lastHostTime();
    m_tie.goOnAlone();
    Q_EMIT didHappen(tr("%1 is lost. Zelta's clock goes on as it went last.").arg(recorderName()));
    Q_EMIT stateDidChange();
}

void ZLRecorderFollower::noteMarks()
{
    const auto ahead = distance();
    if (!ahead)
        return;
    const QStringList titles = m_readings.noteNewChapters(*ahead + m_document.recording().recorderDifference().kept());
    if (!m_setup.marksChapters || isLost() || !m_setup.recorder->canMarkChapters())
        return;
    for (const QString& title : titles)
        m_setup.recorder->markChapter(title);
}

void ZLRecorderFollower::keepWaitingFiles()
{
    if (!m_tie.isTied())
        return;
    const auto files = std::exchange(m_waitingFiles, {});
    for (const auto& [path, begin] : files) {
        const double reading = m_tie.recordersReadingAt(begin).value_or(m_tie.base());
        const QList<ZLRecorderFile> kept = ZLRecorderFiles::in(m_document.extras().value(ZLRecorderFiles::Key));
        // The first one of a recording begins with it, also where it was joined late.
        const bool isFirst = std::ranges::all_of(
            kept, [base = m_tie.base()](const ZLRecorderFile& file) { return file.reading < base; });
        ZLRecorderFiles::add(m_document.extras(), { .path = path, .reading = isFirst ? m_tie.base() : reading });
    }
}

bool ZLRecorderFollower::startRecorder()
{
    if (m_startTimer.isActive())
        return true;
    const bool canStart = m_connection == ZLRecorderConnection::Connected && m_setup.recorder->canBeStarted()
        && recorderState() == ZLRecorderState::Standing;
    if (!canStart)
        return false;
    m_pressedAt = m_document.recording().commandTime().hostTime();
    m_startTimer.start();
    m_setup.recorder->startRecording();
    return true;
}

void ZLRecorderFollower::startWithoutRecorder()
{
    m_startTimer.stop();
    if (m_document.isRecording())
        return;
    Q_EMIT didHappen(tr("%1 did not start. Zelta's clock runs from the press on.").arg(recorderName()));
    m_document.recording().startWithRecorder(m_pressedAt);
}

double ZLRecorderFollower::wallClockSeconds() const
{
    return double(m_document.wallClockTime().toMSecsSinceEpoch()) / 1000.0;
}
