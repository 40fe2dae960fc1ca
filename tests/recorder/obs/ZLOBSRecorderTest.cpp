#include "recorder/obs/ZLOBSRecorder.h"
#include "recorder/obs/ZLStandInOBS.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <cmath>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

constexpr int obsPatience = 20000;

/// Events are taken as they come: QTest would look for them every ten milliseconds, which is long on the way of an
/// answer.
template <typename Condition>
[[nodiscard]] bool waitFor(const Condition& condition, int milliseconds)
{
    QTimer heart;
    heart.start(20);
    const QDeadlineTimer deadline(milliseconds);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return condition();
}

/// Time runs ten times as fast.
std::unique_ptr<ZLOneShotTimer> quickTimers(std::chrono::milliseconds delay, std::function<void()> call)
{
    return ZLStartSystemTimer(delay / 10, std::move(call));
}

class ZLOBSRecorderTest : public testing::Test {
protected:
    void follow(quint16 port, const QString& password = {}, ZLOneShotTimerStarter timers = ZLStartSystemTimer)
    {
        recorder =
            std::make_unique<ZLOBSRecorder>(ZLOBSAddress { u"127.0.0.1"_s, port, password }, clock, std::move(timers));
        QObject::connect(recorder.get(), &ZLRecorder::didReport, recorder.get(),
            [this](const ZLRecorderReport& report) { reports.append(report); });
        QObject::connect(recorder.get(), &ZLRecorder::connectionDidChange, recorder.get(),
            [this](ZLRecorderConnection connection, const QString& reason) {
                connections.append(connection);
                reasons.append(reason);
            });
        QObject::connect(
            recorder.get(), &ZLRecorder::fileDidChange, recorder.get(), [this](const QString& path, double begin) {
                files.append(path);
                heldBack.append(clock.now() - begin);
            });
        recorder->open();
    }
    void followStandIn(const QString& password = {})
    {
        follow(obs.port(), password);
        ASSERT_TRUE(comesTo(ZLRecorderConnection::Connected));
        // The first look has been answered.
        ASSERT_TRUE(waitFor([this] { return !reports.isEmpty(); }, obsPatience));
    }

    /// A chapter that waits in a recording.
    void markInStandIn()
    {
        followStandIn();
        obs.startRecording(u"/show/1.mkv"_s);
        ASSERT_TRUE(comesTo(ZLRecorderState::Recording));
        ASSERT_TRUE(waitFor([this] { return recorder->canMarkChapters(); }, obsPatience));
        recorder->markChapter(u"one"_s);
    }

    [[nodiscard]] bool comesTo(ZLRecorderConnection connection)
    {
        return waitFor([&] { return !connections.isEmpty() && connections.last() == connection; }, obsPatience);
    }
    [[nodiscard]] bool comesTo(const QString& reason)
    {
        return waitFor([&] { return reasons.contains(reason); }, obsPatience);
    }
    [[nodiscard]] bool comesTo(ZLRecorderState state)
    {
        return waitFor([&] { return !reports.isEmpty() && reports.last().state == state; }, obsPatience);
    }
    /// Waits until its position is as exact, and returns by how much it misses the truth.
    [[nodiscard]] double error(double exactness = 0.004)
    {
        const qsizetype from = reports.size();
        const auto isExact = [&] {
            return reports.size() > from && reports.last().state == ZLRecorderState::Recording
                && reports.last().uncertainty < exactness;
        };
        if (!waitFor(isExact, obsPatience))
            return INFINITY;
        return reports.last().position - obs.recording.positionAt(reports.last().hostTime);
    }

    const ZLSteadyHostClock clock;
    ZLStandInOBS obs;
    std::unique_ptr<ZLOBSRecorder> recorder;
    QList<ZLRecorderReport> reports;
    QList<ZLRecorderConnection> connections;
    QStringList reasons;
    QStringList files;
    /// By how long each file's beginning was before it was told, in seconds.
    QList<double> heldBack;
};

const QString refusedPassword =
    u"OBS Studio refuses the password. It is shown in OBS under Tools, WebSocket Server Settings."_s;
const QString wantedPassword =
    u"OBS Studio wants a password. It is shown in OBS under Tools, WebSocket Server Settings."_s;
const QString otherVersion = u"This OBS Studio speaks another version of its protocol. It has to be OBS 28 or newer."_s;

TEST_F(ZLOBSRecorderTest, FollowsARecordingWithAPauseAndItsFiles)
{
    followStandIn();
    EXPECT_EQ(reports.last().state, ZLRecorderState::Standing);
    obs.startRecording(u"/show/1.mkv"_s);
    ASSERT_TRUE(comesTo(ZLRecorderState::Recording));
    EXPECT_NEAR(error(), 0.0, 0.01);
    obs.pauseRecording();
    ASSERT_TRUE(comesTo(ZLRecorderState::Paused));
    obs.resumeRecording();
    EXPECT_NEAR(error(), 0.0, 0.01);
    obs.splitTo(u"/show/2.mkv"_s);
    ASSERT_TRUE(waitFor([this] { return files.size() == 2; }, obsPatience));
    EXPECT_NEAR(error(), 0.0, 0.01);
    // What is written into the second file went into the encoder before.
    EXPECT_GE(heldBack.last(), 0.3);
    obs.stopRecording();
    ASSERT_TRUE(comesTo(ZLRecorderState::Standing));
    EXPECT_THAT(files, ElementsAre(u"/show/1.mkv"_s, u"/show/2.mkv"_s));
}

TEST_F(ZLOBSRecorderTest, JoinsLateAndTellsTheFile)
{
    obs.recording.start(clock.now() - 751.3);
    obs.path = u"/show/late.mkv"_s;
    followStandIn();
    EXPECT_NEAR(error(), 0.0, 0.01);
    EXPECT_GT(reports.last().position, 751.0);
    EXPECT_THAT(files, ElementsAre(u"/show/late.mkv"_s));
}

TEST_F(ZLOBSRecorderTest, AfterARestartInTheMiddleThePausesAreStillKnown)
{
    followStandIn();
    obs.startRecording(u"/show/1.mkv"_s);
    ASSERT_TRUE(waitFor([this] { return obs.received().contains(u"SetPersistentData"_s); }, obsPatience));
    obs.pauseRecording();
    ASSERT_TRUE(comesTo(ZLRecorderState::Paused));
    ASSERT_TRUE(waitFor([this] { return obs.recording.status(clock.now(), clock.now()).frames > 250; }, obsPatience));
    obs.resumeRecording();
    reports.clear();
    connections.clear();
    followStandIn();
    // The encoder may be a frame early or late.
    EXPECT_NEAR(error(), 0.0, 0.01 + obs.recording.frameSeconds);
}

TEST_F(ZLOBSRecorderTest, ServerKilledAndBack)
{
    followStandIn();
    obs.startRecording(u"/show/1.mkv"_s);
    ASSERT_TRUE(comesTo(ZLRecorderState::Recording));
    obs.kill();
    ASSERT_TRUE(comesTo(ZLRecorderConnection::Connecting));
    EXPECT_TRUE(comesTo(u"OBS Studio has ended the connection."_s));
    obs.listen();
    ASSERT_TRUE(comesTo(ZLRecorderConnection::Connected));
    EXPECT_NEAR(error(), 0.0, 0.01);
}

TEST_F(ZLOBSRecorderTest, SendsStartStopAndChapters)
{
    followStandIn();
    ASSERT_TRUE(waitFor([this] { return recorder->canMarkChapters(); }, obsPatience));
    recorder->startRecording();
    recorder->markChapter(u"Gäste"_s);
    ASSERT_TRUE(waitFor([this] { return obs.received().contains(u"CreateRecordChapter"_s); }, obsPatience));
    EXPECT_EQ(obs.lastData().value(u"chapterName"_s).toString(), u"Gäste"_s);
    // OBS would refuse an empty name.
    recorder->markChapter({});
    ASSERT_TRUE(waitFor([this] { return obs.received().count(u"CreateRecordChapter"_s) == 2; }, obsPatience));
    EXPECT_FALSE(obs.lastData().contains(u"chapterName"_s));
    recorder->stopRecording();
    ASSERT_TRUE(waitFor([this] { return obs.received().contains(u"StopRecord"_s); }, obsPatience));
    EXPECT_TRUE(obs.received().contains(u"StartRecord"_s));
}

TEST_F(ZLOBSRecorderTest, AChapterIsSentWhenItsPicturesLeaveTheEncoder)
{
    obs.recording.heldBack = 40.0;
    followStandIn();
    obs.startRecording(u"/show/1.mkv"_s);
    // How long the encoder holds them is measured now.
    ASSERT_TRUE(waitFor([this] { return obs.received().contains(u"SetPersistentData"_s); }, obsPatience));
    const double pressed = clock.now();
    recorder->markChapter(u"Guests"_s);
    ASSERT_TRUE(waitFor([this] { return !obs.chapters().isEmpty(); }, obsPatience));
    // Later only by as much as the machine is late.
    EXPECT_GE(obs.chapters().first(), obs.recording.positionAt(pressed) - 0.1);
}

TEST_F(ZLOBSRecorderTest, AChapterWaitsForTheEndOfAPauseAndNotForTheEndOfTheRecording)
{
    followStandIn();
    obs.startRecording(u"/show/1.mkv"_s);
    ASSERT_TRUE(waitFor([this] { return obs.received().contains(u"SetPersistentData"_s); }, obsPatience));
    obs.pauseRecording();
    ASSERT_TRUE(comesTo(ZLRecorderState::Paused));
    recorder->markChapter(u"in the pause"_s);
    const int looks = obs.looks();
    ASSERT_TRUE(waitFor([&] { return obs.looks() > looks + 15; }, obsPatience));
    EXPECT_TRUE(obs.chapters().isEmpty());
    obs.resumeRecording();
    ASSERT_TRUE(waitFor([this] { return obs.chapters().size() == 1; }, obsPatience));

    recorder->markChapter(u"at the end"_s);
    recorder->stopRecording();
    ASSERT_TRUE(waitFor([this] { return obs.received().contains(u"StopRecord"_s); }, obsPatience));
    EXPECT_EQ(
        obs.received().mid(obs.received().size() - 2), (QStringList { u"CreateRecordChapter"_s, u"StopRecord"_s }));
}

TEST_F(ZLOBSRecorderTest, AChapterThatWaitsWhenTheRecordingEndsIsSentAtOnce)
{
    markInStandIn();
    obs.stopRecording();
    ASSERT_TRUE(waitFor([this] { return obs.chapters().size() == 1; }, obsPatience));
}

TEST_F(ZLOBSRecorderTest, AChapterThatWaitsWhenTheConnectionIsLostComesWhenItIsBack)
{
    markInStandIn();
    obs.kill();
    ASSERT_TRUE(comesTo(ZLRecorderConnection::Connecting));
    EXPECT_TRUE(obs.chapters().isEmpty());
    obs.listen();
    EXPECT_TRUE(waitFor([this] { return obs.chapters().size() == 1; }, obsPatience));
}

TEST_F(ZLOBSRecorderTest, AnOlderOBSGetsNoChapters)
{
    obs.requests.removeAll(u"CreateRecordChapter"_s);
    followStandIn();
    recorder->markChapter(u"Guests"_s);
    recorder->stopRecording();
    ASSERT_TRUE(waitFor([this] { return obs.received().contains(u"StopRecord"_s); }, obsPatience));
    EXPECT_FALSE(recorder->canMarkChapters());
    EXPECT_FALSE(obs.received().contains(u"CreateRecordChapter"_s));
}

TEST_F(ZLOBSRecorderTest, TheRightPasswordIsTakenAndNeverSent)
{
    const ZLStandInOBS guarded(u"open sesame"_s);
    follow(guarded.port(), u"open sesame"_s);
    EXPECT_TRUE(comesTo(ZLRecorderConnection::Connected));
    EXPECT_EQ(guarded.identified(), 1);
    EXPECT_FALSE(guarded.allText().contains(u"sesame"_s));
}

TEST_F(ZLOBSRecorderTest, AWrongPasswordIsRefusedAndNotTriedAgain)
{
    const ZLStandInOBS guarded(u"open sesame"_s);
    follow(guarded.port(), u"open barley"_s);
    EXPECT_TRUE(comesTo(ZLRecorderConnection::Refused));
    EXPECT_EQ(reasons.last(), refusedPassword);
    connections.clear();
    EXPECT_FALSE(waitFor([this] { return !connections.isEmpty(); }, 1500));
}

TEST_F(ZLOBSRecorderTest, AMissingPasswordIsAskedFor)
{
    const ZLStandInOBS guarded(u"open sesame"_s);
    follow(guarded.port());
    EXPECT_TRUE(comesTo(ZLRecorderConnection::Refused));
    EXPECT_EQ(reasons.last(), wantedPassword);
}

TEST_F(ZLOBSRecorderTest, AnotherVersionOfTheProtocolIsTold)
{
    for (const int version : { 0, 2 }) {
        connections.clear();
        obs.procedureVersion = version;
        follow(obs.port());
        EXPECT_TRUE(comesTo(ZLRecorderConnection::Refused)) << version;
        EXPECT_EQ(reasons.last(), otherVersion);
    }
}

TEST_F(ZLOBSRecorderTest, GarbageEndsTheConnectionAndItComesBack)
{
    followStandIn();
    for (const QString& garbage : { u"no message"_s, u"{\"op\":5}"_s, QString(200000, u'[') }) {
        reasons.clear();
        obs.sendToAll(garbage);
        EXPECT_TRUE(comesTo(u"What answers at 127.0.0.1:%1 is not OBS Studio."_s.arg(obs.port())));
        EXPECT_TRUE(comesTo(ZLRecorderConnection::Connected));
    }
    reasons.clear();
    obs.sendBytesToAll("\x00\xff\x13");
    EXPECT_TRUE(comesTo(u"What answers at 127.0.0.1:%1 is not OBS Studio."_s.arg(obs.port())));
}

TEST_F(ZLOBSRecorderTest, MessagesWithStrangeValuesChangeNothing)
{
    followStandIn();
    for (const QString& strange : { u"{\"op\":5,\"d\":{}}"_s, u"{\"op\":5,\"d\":{\"eventType\":7,\"eventData\":[1]}}"_s,
             u"{\"op\":9,\"d\":{\"requestId\":\"1000000\",\"results\":[1,2]}}"_s, u"{\"op\":9,\"d\":{\"results\":3}}"_s,
             u"{\"op\":7,\"d\":{\"requestId\":\"file\",\"responseData\":{\"outputSettings\":{\"path\":5}}}}"_s,
             u"{\"op\":-1,\"d\":{}}"_s, u"{\"op\":1e300,\"d\":{}}"_s,
             u"{\"op\":5,\"d\":{\"eventType\":\"RecordStateChanged\",\"eventData\":{\"outputState\":\"x\"}}}"_s })
        obs.sendToAll(strange);
    reports.clear();
    ASSERT_TRUE(comesTo(ZLRecorderState::Standing));
    EXPECT_EQ(connections.last(), ZLRecorderConnection::Connected);
    EXPECT_TRUE(files.isEmpty());
}

TEST_F(ZLOBSRecorderTest, AFloodIsCutOff)
{
    followStandIn();
    for (int message = 0; message < 20000; ++message)
        obs.sendToAll(u"{\"op\":5,\"d\":{\"eventType\":\"Noise\"}}"_s);
    EXPECT_TRUE(comesTo(u"OBS Studio sends more than it should."_s));
    EXPECT_TRUE(comesTo(ZLRecorderConnection::Connected));
}

TEST_F(ZLOBSRecorderTest, ManyLargeMessagesAreCutOff)
{
    followStandIn();
    const QString large = u"{\"op\":5,\"d\":{\"eventType\":\""_s + QString(200000, u'x') + u"\"}}"_s;
    for (int message = 0; message < 20; ++message)
        obs.sendToAll(large);
    EXPECT_TRUE(comesTo(u"OBS Studio sends more than it should."_s));
    EXPECT_TRUE(comesTo(ZLRecorderConnection::Connected));
}

TEST_F(ZLOBSRecorderTest, AHugeMessageIsNotTaken)
{
    followStandIn();
    obs.sendToAll(u"{\"op\":5,\"d\":{\"eventType\":\""_s + QString(qsizetype(8) << 20, u'x') + u"\"}}"_s);
    EXPECT_TRUE(comesTo(ZLRecorderConnection::Connecting));
    EXPECT_TRUE(comesTo(ZLRecorderConnection::Connected));
}

TEST_F(ZLOBSRecorderTest, WhatIsNoWebsocketIsTold)
{
    QTcpServer other;
    ASSERT_TRUE(other.listen(QHostAddress::LocalHost));
    QObject::connect(&other, &QTcpServer::newConnection, &other,
        [&other] { other.nextPendingConnection()->write("220 a mail server\r\n\r\n"); });
    follow(other.serverPort(), {}, quickTimers);
    EXPECT_TRUE(comesTo(u"OBS Studio does not answer at 127.0.0.1:%1."_s.arg(other.serverPort())));
    EXPECT_EQ(connections.last(), ZLRecorderConnection::Connecting);
}

TEST_F(ZLOBSRecorderTest, AServerThatSaysNothingIsLeft)
{
    obs.isMute = true;
    follow(obs.port(), {}, quickTimers);
    EXPECT_TRUE(comesTo(u"OBS Studio does not answer at 127.0.0.1:%1."_s.arg(obs.port())));
}

TEST_F(ZLOBSRecorderTest, ThePausesBetweenTriesGrowAndStayTheSame)
{
    // A timer that notes its time and runs out at once, but for the one that waits for an answer.
    QList<int> pauses;
    const auto starter = [&pauses](std::chrono::milliseconds delay, std::function<void()> call) {
        const bool isPause = delay != std::chrono::seconds(5);
        if (isPause)
            pauses.append(int(delay.count()));
        return ZLStartSystemTimer(isPause ? std::chrono::milliseconds(0) : delay, std::move(call));
    };
    obs.kill();
    follow(obs.port(), {}, starter);
    ASSERT_TRUE(waitFor([&pauses] { return pauses.size() >= 7; }, obsPatience));
    EXPECT_THAT(pauses.first(7), ElementsAre(1000, 2000, 4000, 8000, 10000, 10000, 10000));
    EXPECT_TRUE(reasons.contains(u"OBS Studio does not answer at 127.0.0.1:%1."_s.arg(obs.port())));
    EXPECT_EQ(connections.last(), ZLRecorderConnection::Connecting);
}

TEST_F(ZLOBSRecorderTest, ClosedItIsSilent)
{
    followStandIn();
    recorder->close();
    EXPECT_EQ(connections.last(), ZLRecorderConnection::Off);
    reports.clear();
    const int looks = obs.looks();
    EXPECT_FALSE(waitFor([this] { return !reports.isEmpty(); }, 1000));
    EXPECT_EQ(obs.looks(), looks);
    recorder->open();
    EXPECT_TRUE(comesTo(ZLRecorderConnection::Connected));
}

}
