#include "recorder/obs/ZLOBSRecorder.h"

#include <QDateTime>
#include <QLoggingCategory>
#include <QRandomGenerator>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(obsRecorderLog, "zelta.recorder.obs")

// Between two looks, in milliseconds. Uneven, for even ones could always meet a counter in the same phase.
constexpr int firstLookPause = 10;
constexpr int firstLookSpread = 20;
constexpr int usualLookPause = 80;
constexpr int usualLookSpread = 80;
constexpr int standingLookPause = 400;

/// A frame takes no longer, and no less, whatever is answered; in seconds.
constexpr double longestFrame = 1.0;
constexpr double shortestFrame = 0.001;
/// From the moment it is told to start until it has started, in seconds.
constexpr double longestStart = 5.0;
constexpr qsizetype longestPath = 4096;
constexpr qsizetype longestTitle = 1000;
constexpr double millisecondsInSecond = 1000.0;

/// What OBS calls the notes that belong to its profile.
const QString profileRealm = u"OBS_WEBSOCKET_DATA_REALM_PROFILE"_s;
const QString versionAnswer = u"version"_s;
const QString noteAnswer = u"note"_s;
const QString fileAnswer = u"file"_s;
const QString otherAnswer = u"other"_s;

QJsonObject dataOfAnswer(const QJsonValue& answer)
{
    return answer.toObject().value("responseData"_L1).toObject();
}

}

ZLOBSRecorder::ZLOBSRecorder(
    const ZLOBSAddress& address, const ZLHostClock& clock, ZLOneShotTimerStarter startTimer, QObject* parent)
    : ZLRecorder(parent)
    , m_clock(clock)
    , m_startTimer(std::move(startTimer))
    , m_connection(address, clock, m_startTimer)
    , m_lateChapters(clock, m_startTimer)
{
    connect(&m_lateChapters, &ZLOBSLateChapters::isDue, this, &ZLOBSRecorder::sendChapter);
    connect(&m_connection, &ZLOBSConnection::stateDidChange, this, &ZLOBSRecorder::connectionStateDidChange);
    connect(&m_connection, &ZLOBSConnection::messageDidArrive, this, &ZLOBSRecorder::messageDidArrive);
}

void ZLOBSRecorder::open()
{
    m_connection.open();
}

void ZLOBSRecorder::close()
{
    m_connection.close();
}

void ZLOBSRecorder::startRecording()
{
    request(u"StartRecord"_s, otherAnswer);
}

void ZLOBSRecorder::stopRecording()
{
    // Behind the end they would find no file.
    m_lateChapters.finish();
    request(u"StopRecord"_s, otherAnswer);
}

void ZLOBSRecorder::markChapter(const QString& title)
{
    if (!m_canMarkChapters)
        return;
    const bool isStanding = m_position.state() == ZLRecorderState::Standing;
    m_lateChapters.add(title, isStanding ? 0.0 : m_position.expectedEncoderDelay());
}

void ZLOBSRecorder::sendChapter(const QString& title)
{
    // OBS refuses an empty name, but finds one where there is none.
    QJsonObject data;
    if (!title.isEmpty())
        data.insert(u"chapterName"_s, title.left(longestTitle));
    request(u"CreateRecordChapter"_s, otherAnswer, data);
}

void ZLOBSRecorder::connectionStateDidChange(ZLRecorderConnection state, const QString& reason)
{
    m_lookTimer.reset();
    // Until a look tells that OBS still records.
    m_lateChapters.setReachable(false);
    m_position = ZLOBSPosition();
    m_delayNote.reset();
    m_canMarkChapters = false;
    m_file.clear();
    Q_EMIT connectionDidChange(state, reason);
    if (state != ZLRecorderConnection::Connected)
        return;
    request(u"GetVersion"_s, versionAnswer);
    request(u"GetPersistentData"_s, noteAnswer,
        { { u"realm"_s, profileRealm }, { u"slotName"_s, QLatin1StringView(ZLOBSDelayNote::Slot) } });
    look();
}

void ZLOBSRecorder::messageDidArrive(const ZLOBSMessage& message)
{
    const QJsonObject& data = message.data;
    const QString identifier = data.value("requestId"_L1).toString();
    if (message.kind == ZLOBSMessage::Kind::BatchResponse) {
        // Only the answer to the last question has a time.
        if (identifier == QString::number(m_look) && !m_lookTimer)
            lookDidArrive(data.value("results"_L1).toArray());
    } else if (message.kind == ZLOBSMessage::Kind::Response) {
        answerDidArrive(identifier, data);
    } else if (message.kind == ZLOBSMessage::Kind::Event) {
        const QString type = data.value("eventType"_L1).toString();
        const QJsonObject event = data.value("eventData"_L1).toObject();
        if (type == "RecordStateChanged"_L1)
            recordStateDidChange(event.value("outputState"_L1).toString(), event.value("outputPath"_L1).toString());
        else if (type == "RecordFileChanged"_L1)
            setFile(event.value("newOutputPath"_L1).toString(), m_clock.now() - m_position.expectedEncoderDelay());
    }
}

void ZLOBSRecorder::look()
{
    m_lookTimer.reset();
    ++m_look;
    m_asked = m_clock.now();
    m_connection.send(
        ZLOBSMessage::batch({ u"GetRecordStatus"_s, u"GetStats"_s, u"GetVideoSettings"_s }, QString::number(m_look)));
}

void ZLOBSRecorder::lookSoon()
{
    int pause = standingLookPause;
    if (m_position.state() != ZLRecorderState::Standing) {
        const bool isMeasured = m_position.isMeasured();
        pause = isMeasured ? usualLookPause : firstLookPause;
        pause += QRandomGenerator::global()->bounded(isMeasured ? usualLookSpread : firstLookSpread);
    }
    // A timer must not go during its own call.
    m_lookTimer = m_startTimer(std::chrono::milliseconds(pause),
        [this] { QMetaObject::invokeMethod(this, &ZLOBSRecorder::look, Qt::QueuedConnection); });
}

void ZLOBSRecorder::lookDidArrive(const QJsonArray& answers)
{
    const double answered = m_clock.now();
    const QJsonObject recording = dataOfAnswer(answers.at(0));
    const QJsonObject statistics = dataOfAnswer(answers.at(1));
    const QJsonObject video = dataOfAnswer(answers.at(2));
    const double frame = video.value("fpsDenominator"_L1).toDouble() / video.value("fpsNumerator"_L1).toDouble();
    if (frame >= shortestFrame && frame <= longestFrame && statistics.contains("outputTotalFrames"_L1)) {
        const bool wasStanding = m_position.state() == ZLRecorderState::Standing;
        m_position.setFrameSeconds(frame);
        m_position.take({ .asked = m_asked,
            .answered = answered,
            .isActive = recording.value("outputActive"_L1).toBool(),
            .isPaused = recording.value("outputPaused"_L1).toBool(),
            .duration = recording.value("outputDuration"_L1).toDouble() / millisecondsInSecond,
            .frames = statistics.value("outputTotalFrames"_L1).toInteger() });
        if (wasStanding && m_position.state() != ZLRecorderState::Standing)
            askForFile();
        useDelayNote();
        keepDelayNote();
        updateLateChapters();
        report();
    }
    lookSoon();
}

void ZLOBSRecorder::answerDidArrive(const QString& identifier, const QJsonObject& answer)
{
    const QJsonObject data = dataOfAnswer(answer);
    if (identifier == versionAnswer) {
        m_canMarkChapters = data.value("availableRequests"_L1).toArray().contains(u"CreateRecordChapter"_s);
    } else if (identifier == noteAnswer) {
        m_delayNote = ZLOBSDelayNote::read(data.value("slotValue"_L1));
    } else if (identifier == fileAnswer) {
        const QString path = data.value("outputSettings"_L1).toObject().value("path"_L1).toString();
        if (m_position.state() != ZLRecorderState::Standing)
            setFile(path, m_clock.now());
    } else if (identifier == otherAnswer) {
        const QJsonObject status = answer.value("requestStatus"_L1).toObject();
        if (!status.value("result"_L1).toBool())
            qCWarning(obsRecorderLog, "refused with code %d", status.value("code"_L1).toInt());
    }
}

void ZLOBSRecorder::recordStateDidChange(const QString& state, const QString& path)
{
    const double now = m_clock.now();
    if (state == "OBS_WEBSOCKET_OUTPUT_STARTING"_L1) {
        m_starting = now;
        return;
    }
    if (state == "OBS_WEBSOCKET_OUTPUT_STARTED"_L1) {
        m_position.began(std::max(m_starting, now - longestStart), now);
        m_file.clear();
        setFile(path, now);
    } else if (state == "OBS_WEBSOCKET_OUTPUT_PAUSED"_L1) {
        m_position.paused(now);
    } else if (state == "OBS_WEBSOCKET_OUTPUT_RESUMED"_L1) {
        m_position.resumed(now);
    } else if (state == "OBS_WEBSOCKET_OUTPUT_STOPPING"_L1 || state == "OBS_WEBSOCKET_OUTPUT_STOPPED"_L1) {
        if (m_position.state() != ZLRecorderState::Standing)
            m_position.ended(now);
    } else {
        return;
    }
    updateLateChapters();
    report();
    if (m_lookTimer)
        look();
}

void ZLOBSRecorder::useDelayNote()
{
    if (!m_delayNote || m_position.isDelayOfThisRecording())
        return;
    const std::optional<double> zero = zeroOfFramesSince1970();
    if (zero && !m_position.isSeenFromStart())
        m_position.setEncoderDelay(m_delayNote->encoderDelay, m_delayNote->isOfRecording(*zero));
}

void ZLOBSRecorder::keepDelayNote()
{
    const std::optional<double> zero = zeroOfFramesSince1970();
    if (!zero || !m_position.isDelayOfThisRecording() || m_position.isDelayGuessed())
        return;
    const double delay = *m_position.encoderDelay();
    if (m_delayNote && m_delayNote->isOfRecording(*zero) && m_delayNote->encoderDelay == delay)
        return;
    m_delayNote = ZLOBSDelayNote { delay, *zero };
    qCDebug(obsRecorderLog, "the encoder holds frames back for %.3f s", m_delayNote->encoderDelay);
    request(u"SetPersistentData"_s, otherAnswer,
        { { u"realm"_s, profileRealm }, { u"slotName"_s, QLatin1StringView(ZLOBSDelayNote::Slot) },
            { u"slotValue"_s, m_delayNote->value() } });
}

void ZLOBSRecorder::updateLateChapters()
{
    if (m_position.state() == ZLRecorderState::Standing)
        m_lateChapters.finish();
    m_lateChapters.setRecording(m_position.state() != ZLRecorderState::Paused);
    m_lateChapters.setReachable(true);
}

void ZLOBSRecorder::askForFile()
{
    // One for each of the two modes in which OBS can record; the other one is not there.
    for (const QString& output : { u"simple_file_output"_s, u"adv_file_output"_s })
        request(u"GetOutputSettings"_s, fileAnswer, { { u"outputName"_s, output } });
}

void ZLOBSRecorder::report()
{
    if (const std::optional<ZLRecorderReport> known = m_position.report())
        Q_EMIT didReport(*known);
}

void ZLOBSRecorder::setFile(const QString& path, double begin)
{
    if (path.isEmpty() || path.size() > longestPath || path == m_file)
        return;
    m_file = path;
    Q_EMIT fileDidChange(path, begin);
}

void ZLOBSRecorder::request(const QString& type, const QString& identifier, const QJsonObject& data)
{
    m_connection.send(ZLOBSMessage::request(type, identifier, data));
}

std::optional<double> ZLOBSRecorder::zeroOfFramesSince1970() const
{
    const std::optional<double> zero = m_position.zeroOfFrames();
    if (!zero || m_position.state() == ZLRecorderState::Standing)
        return std::nullopt;
    return double(QDateTime::currentMSecsSinceEpoch()) / millisecondsInSecond - (m_clock.now() - *zero);
}
