#include "ZLFollowerFixture.h"

#include "document/ZLChapterDocument.h"
#include "document/shared/ZLRecorderFiles.h"
#include "following/ZLFollowedRecording.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double threeHours = 3.0 * 3600.0;
constexpr double ppm = 1e-6;

class ZLRecorderFollowerTest : public ZLFollowerFixture { };

TEST_F(ZLRecorderFollowerTest, ThreeHoursOfARecorderThatDriftsStayWithinTenMilliseconds)
{
    for (const double drift : { 200.0 * ppm, -200.0 * ppm }) {
        m_recorder = {};
        m_recorder.drift = drift;
        m_recorder.jitter = 0.004;
        const double base = m_document.currentDuration();
        reportStanding();
        startRecorder();
        EXPECT_LT(run(threeHours, base), 0.01) << drift;
        EXPECT_NEAR(m_follower->drift().value(), drift, 10.0 * ppm);
        EXPECT_NEAR(m_document.currentDuration(), m_document.duration() + (now() - m_document.startTime()), 1e-6)
            << "duration and start time keep their meaning";
        reportStanding();
        EXPECT_FALSE(m_document.isRecording());
    }
}

TEST_F(ZLRecorderFollowerTest, StepsJitterAndPausesDoNoHarm)
{
    m_recorder.drift = 200.0 * ppm;
    m_recorder.step = 0.1;
    m_recorder.jitter = 0.003;
    reportStanding();
    startRecorder();
    EXPECT_LT(run(3.0), 0.06) << "at first a step is all that is known";
    EXPECT_LT(run(27.0), 0.02);
    for (int pause = 0; pause < 3; ++pause) {
        EXPECT_LT(run(1200.0), 0.01) << pause;
        pauseRecorder();
        EXPECT_FALSE(m_document.isRecording());
        advance(300.0);
        m_recorder.startAt(now());
        report();
        EXPECT_TRUE(m_document.isRecording());
        EXPECT_LT(run(3.0), 0.06) << "a step again";
        EXPECT_LT(run(27.0), 0.02);
    }
    EXPECT_TRUE(m_document.recording().recorderDifference().undecided() == std::nullopt);
}

TEST_F(ZLRecorderFollowerTest, ANewDocumentBeginsAtTheZeroOfTheRecording)
{
    ZLSettingsManager::setPlaySoundBeforeRecording(true);
    reportStanding();
    m_recorder.startAt(now());
    advance(0.4);
    report();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_TRUE(m_soundNames.isEmpty()) << "no beep";
    EXPECT_NEAR(m_document.currentDuration(), 0.4, 1e-9) << "the report of the start came late";
    EXPECT_EQ(m_follower->state(), ZLFollowingState::Following);
}

TEST_F(ZLRecorderFollowerTest, AFurtherRecordingCountsOnFromWhatIsRecorded)
{
    record(65.5);
    reportStanding();
    startRecorder();
    run(10.0, 65.5);
    EXPECT_NEAR(m_document.currentDuration(), 75.5, 0.002);
    EXPECT_EQ(m_document.duration(), 65.5);
}

TEST_F(ZLRecorderFollowerTest, ALateJoinIsAStartToThePosition)
{
    m_recorder.startAt(now() - 751.0);
    report();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_NEAR(m_document.currentDuration(), 751.0, 1e-9);
    EXPECT_TRUE(m_events.contains(u"Joined Fake at 00:12:31."_s)) << m_events.join(u'\n').toStdString();
    history().undo();
    EXPECT_FALSE(m_document.isRecording());
    EXPECT_EQ(m_document.currentDuration(), 0.0);
}

TEST_F(ZLRecorderFollowerTest, ARunningClockIsNeverSet)
{
    m_document.recordButtonPressed();
    advance(100.0);
    m_recorder.startAt(now() - 300.0);
    report();
    EXPECT_NEAR(m_document.currentDuration(), 100.0, 1e-9);
    m_recorder.drift = 100.0 * ppm;
    run(600.0, -200.0);
    EXPECT_EQ(m_follower->state(), ZLFollowingState::Following);
    EXPECT_NEAR(m_follower->distance().value(), 0.0, 0.005);
}

TEST_F(ZLRecorderFollowerTest, UndoOfAStartEndsTheFollowingUntilTheRecorderStartsAgain)
{
    reportStanding();
    startRecorder();
    run(10.0);
    history().undo();
    EXPECT_FALSE(m_document.isRecording());
    advance(0.1);
    report();
    m_follower->update();
    EXPECT_FALSE(m_document.isRecording()) << "the recorder goes on, and did not start";
    EXPECT_EQ(m_follower->state(), ZLFollowingState::Ready);
    reportStanding();
    m_recorder = {};
    startRecorder();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_NEAR(m_document.currentDuration(), 0.0, 0.001);
}

TEST_F(ZLRecorderFollowerTest, UndoOfAStopLetsTheClockRunAsIfItHadNeverStopped)
{
    reportStanding();
    startRecorder();
    run(10.0);
    reportStanding();
    EXPECT_NEAR(m_document.currentDuration(), 10.0, 0.01);
    advance(50.0);
    history().undo();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_NEAR(m_document.currentDuration(), 60.0, 0.01);
    reportStanding();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(m_follower->state(), ZLFollowingState::Ready);
}

TEST_F(ZLRecorderFollowerTest, AJumpIsToldAndEitherTimeCanBeTaken)
{
    reportStanding();
    startRecorder();
    run(60.0);
    m_recorder.jumpBy(2.5);
    run(10.0);
    EXPECT_NEAR(m_document.currentDuration(), 70.0, 0.01) << "it does not jump by itself";
    const auto& difference = m_document.recording().recorderDifference();
    ASSERT_TRUE(difference.undecided());
    EXPECT_NEAR(difference.undecided()->seconds, 2.5, 0.01);
    EXPECT_NEAR(difference.undecided()->reading, 60.0, 0.5);
    EXPECT_TRUE(m_events.last().contains("by 2.50 s"_L1)) << m_events.last().toStdString();
    m_document.recording().recorderDifference().takeRecorders();
    EXPECT_NEAR(m_document.currentDuration(), 72.5, 0.01);
    run(10.0);
    EXPECT_FALSE(difference.undecided());
    history().undo();
    run(5.0);
    EXPECT_NEAR(m_document.currentDuration(), 85.0, 0.02);
    EXPECT_TRUE(difference.undecided()) << "it waits for a decision again";
    m_document.recording().recorderDifference().keepZeltas();
    run(20.0);
    EXPECT_FALSE(difference.undecided());
    EXPECT_NEAR(m_document.currentDuration(), 105.0, 0.02);
    EXPECT_NEAR(m_follower->distance().value(), 0.0, 0.01) << "and follows on";
}

TEST_F(ZLRecorderFollowerTest, FramesThatAreLostAreTold)
{
    reportStanding();
    startRecorder();
    run(60.0);
    m_recorder.jumpBy(-0.5);
    run(10.0);
    ASSERT_TRUE(m_document.recording().recorderDifference().undecided());
    EXPECT_NEAR(m_document.recording().recorderDifference().undecided()->seconds, -0.5, 0.01);
    m_recorder.jumpBy(0.5);
    run(30.0);
    EXPECT_FALSE(m_document.recording().recorderDifference().undecided()) << "it went away by itself";
}

TEST_F(ZLRecorderFollowerTest, WithoutTheRecorderTheClockGoesOnAsItWentLast)
{
    m_recorder.drift = 200.0 * ppm;
    reportStanding();
    startRecorder();
    run(900.0);
    runInSilence(60.0);
    EXPECT_EQ(m_follower->state(), ZLFollowingState::Lost);
    EXPECT_TRUE(m_follower->lostSince().isValid());
    EXPECT_NEAR(m_document.currentDuration(), m_recorder.positionAt(now()), 0.005);
    EXPECT_LT(run(60.0), 0.01);
    EXPECT_EQ(m_follower->state(), ZLFollowingState::Following);
}

TEST_F(ZLRecorderFollowerTest, ARecorderThatWasKilledStopsNothing)
{
    reportStanding();
    startRecorder();
    run(60.0);
    Q_EMIT m_fake->connectionDidChange(ZLRecorderConnection::Connecting, u"Gone."_s);
    EXPECT_EQ(m_follower->state(), ZLFollowingState::Lost);
    runInSilence(20.0);
    Q_EMIT m_fake->connectionDidChange(ZLRecorderConnection::Connected, {});
    reportStanding();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_NEAR(m_document.currentDuration(), 80.0, 0.2);
    m_recorder = {};
    startRecorder();
    const double base = m_document.currentDuration();
    run(10.0, base);
    EXPECT_EQ(m_follower->state(), ZLFollowingState::Following);
    EXPECT_FALSE(m_document.recording().recorderDifference().undecided());
}

TEST_F(ZLRecorderFollowerTest, ANewRecordingThatBeganMeanwhileIsNoJump)
{
    reportStanding();
    startRecorder();
    run(60.0);
    runInSilence(20.0);
    m_recorder = {};
    m_recorder.startAt(now() - 5.0);
    report();
    run(10.0, m_document.currentDuration() - 5.0);
    EXPECT_FALSE(m_document.recording().recorderDifference().undecided());
    EXPECT_NEAR(m_document.currentDuration(), 90.0, 0.2);
}

TEST_F(ZLRecorderFollowerTest, AfterARestartInTheMiddleTheBaseIsKnownAgain)
{
    record(100.0);
    reportStanding();
    startRecorder();
    run(60.0, 100.0);
    m_follower.reset();
    // What the journal gives back: the clock stands at its last reading.
    m_document.recordButtonPressed();
    advance(30.0);
    follow({});
    // Some kinds need a moment until they know that it records.
    reportStanding();
    report();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_NEAR(m_document.currentDuration(), 190.0, 0.05);
}

TEST_F(ZLRecorderFollowerTest, AnotherRecordingAfterARestartCountsOn)
{
    reportStanding();
    startRecorder();
    run(60.0);
    m_follower.reset();
    m_document.recordButtonPressed();
    advance(600.0);
    m_recorder = {};
    m_recorder.startAt(now() - 20.0);
    follow({});
    report();
    EXPECT_NEAR(m_document.currentDuration(), 80.0, 0.05);
}

TEST_F(ZLRecorderFollowerTest, ItsFilesAreKeptWithTheDocument)
{
    reportStanding();
    Q_EMIT m_fake->fileDidChange(u"/tmp/one.mkv"_s, now());
    startRecorder();
    run(60.0);
    // Its encoder holds the sound back.
    Q_EMIT m_fake->fileDidChange(u"/tmp/two.mkv"_s, now() - 0.5);
    Q_EMIT m_fake->fileDidChange(u"/tmp/two.mkv"_s, now());
    const QVariantList files = m_document.extras().value(ZLRecorderFiles::Key).toList();
    ASSERT_EQ(files.size(), 2);
    EXPECT_EQ(files.first().toMap().value(u"Path"_s).toString(), u"/tmp/one.mkv");
    EXPECT_EQ(files.first().toMap().value(u"Reading"_s).toDouble(), 0.0);
    EXPECT_EQ(files.last().toMap().value(u"Path"_s).toString(), u"/tmp/two.mkv");
    EXPECT_NEAR(files.last().toMap().value(u"Reading"_s).toDouble(), 59.5, 0.01);
}

TEST_F(ZLRecorderFollowerTest, TheFileOfARecordingThatIsJoinedLateBeginsWithTheRecording)
{
    record(20.0);
    m_recorder.startAt(now());
    advance(300.0);
    Q_EMIT m_fake->fileDidChange(u"/tmp/one.mkv"_s, now());
    report();
    Q_EMIT m_fake->fileDidChange(u"/tmp/two.mkv"_s, now());
    const QVariantList files = m_document.extras().value(ZLRecorderFiles::Key).toList();
    ASSERT_EQ(files.size(), 2);
    EXPECT_EQ(files.first().toMap().value(u"Reading"_s).toDouble(), 20.0);
    EXPECT_NEAR(files.last().toMap().value(u"Reading"_s).toDouble(), 320.0, 0.01);
}

TEST_F(ZLRecorderFollowerTest, AnotherDocumentWithoutARecorderIsAsBefore)
{
    m_follower.reset();
    m_document.recordButtonPressed();
    advance(10.0);
    m_document.addChapterButtonPressed();
    m_document.recordButtonPressed();
    EXPECT_TRUE(m_document.extras().values().isEmpty());
}

class ZLRecorderFollowerStartTest : public ZLFollowerFixture {
protected:
    ZLRecorderFollowerStartTest() { follow({ .startsRecorder = true }); }
};

TEST_F(ZLRecorderFollowerStartTest, APressStartsTheRecorderAndTheClockWithIt)
{
    reportStanding();
    m_document.recordButtonPressed();
    m_document.recordButtonPressed();
    EXPECT_EQ(m_fake->starts, 1);
    EXPECT_FALSE(m_document.isRecording());
    advance(0.7);
    startRecorder();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_NEAR(m_document.currentDuration(), 0.0, 1e-9) << "the zero is that of the recording";
    run(10.0);
    m_document.recordButtonPressed();
    EXPECT_FALSE(m_document.isRecording());
    EXPECT_EQ(m_fake->stops, 1);
}

TEST_F(ZLRecorderFollowerStartTest, ARecorderThatDoesNotStartHoldsNothingUp)
{
    reportStanding();
    m_document.recordButtonPressed();
    advance(3.0);
    QSignalSpy happened(m_follower.get(), &ZLRecorderFollower::didHappen);
    ASSERT_TRUE(happened.wait(60000));
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_NEAR(m_document.currentDuration(), 3.0, 1e-9) << "from the press on";
}

TEST_F(ZLRecorderFollowerStartTest, WithoutAnAnswerThePressStartsTheClockAlone)
{
    Q_EMIT m_fake->connectionDidChange(ZLRecorderConnection::Connecting, u"Gone."_s);
    m_document.recordButtonPressed();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(m_fake->starts, 0);
}

}
