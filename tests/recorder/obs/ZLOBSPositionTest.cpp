#include "recorder/obs/ZLOBSPosition.h"
#include "recorder/obs/ZLSimulatedRecording.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double wayThere = 0.0005;
constexpr double fine = 0.004;

class ZLOBSPositionTest : public testing::Test {
protected:
    ZLOBSPositionTest() { position.setFrameSeconds(obs.frameSeconds); }

    /// Looks at uneven intervals until so many seconds have gone.
    void watch(double seconds)
    {
        const double end = now + seconds;
        while (now < end) {
            position.take(obs.status(now, now + 2 * wayThere));
            pause = 0.013 + std::fmod(pause * 7.0, 0.017);
            now += pause;
        }
    }

    void start()
    {
        obs.start(now + 0.02);
        position.began(now, now + 0.03);
        now += 0.03;
    }
    void pauseRecording()
    {
        obs.pause(now);
        position.paused(now + wayThere);
    }
    void resumeRecording()
    {
        obs.resume(now);
        position.resumed(now + wayThere);
    }

    /// By how many seconds the last report misses the truth.
    [[nodiscard]] double error() const
    {
        const std::optional<ZLRecorderReport> report = position.report();
        if (!report)
            return INFINITY;
        return report->position - obs.positionAt(report->hostTime);
    }
    [[nodiscard]] ZLRecorderState state() const { return position.state(); }

    double now = 5000.0;
    double pause = 0.013;
    ZLSimulatedRecording obs;
    ZLOBSPosition position;
};

TEST_F(ZLOBSPositionTest, StandsBeforeAnythingIsRecorded)
{
    watch(1.0);
    EXPECT_EQ(state(), ZLRecorderState::Standing);
    EXPECT_EQ(position.report()->position, 0.0);
}

TEST_F(ZLOBSPositionTest, IsExactLongBeforeTheFirstFrameHasLeftTheEncoder)
{
    start();
    watch(0.2);
    ASSERT_EQ(obs.status(now, now).duration, 0.0);
    EXPECT_NEAR(error(), 0.0, obs.frameSeconds);
    watch(5.0);
    EXPECT_NEAR(error(), 0.0, fine);
    EXPECT_LT(position.report()->uncertainty, 2 * fine);
}

TEST_F(ZLOBSPositionTest, ACounterThatWaitsForTheFirstFrameTellsNoMoment)
{
    start();
    position.take({ now - 0.025, now - 0.024, true, false, 0.0, 0 });
    position.take({ now + 0.001, now + 0.002, true, false, 0.0, 0 });
    EXPECT_FALSE(position.report());
    watch(4.0);
    EXPECT_NEAR(error(), 0.0, fine);
}

TEST_F(ZLOBSPositionTest, ACounterThatNeverCountsTellsNothing)
{
    position.began(now, now + 0.03);
    for (int look = 1; look < 1000; ++look)
        position.take({ now + look * 0.05, now + look * 0.05 + 0.001, true, false, look * 0.05, 0 });
    EXPECT_FALSE(position.report());
}

TEST_F(ZLOBSPositionTest, CoarseFramesBecomeFineToo)
{
    obs.frameSeconds = 0.1;
    position.setFrameSeconds(0.1);
    start();
    watch(6.0);
    EXPECT_NEAR(error(), 0.0, fine);
}

TEST_F(ZLOBSPositionTest, PausesAreLeftOutExactly)
{
    start();
    watch(6.0);
    for (const double length : { 1.7, 0.43, 12.0 }) {
        pauseRecording();
        const double stands = position.report()->position;
        watch(length);
        EXPECT_EQ(state(), ZLRecorderState::Paused);
        EXPECT_EQ(position.report()->position, stands);
        resumeRecording();
        watch(0.1);
        EXPECT_NEAR(error(), 0.0, fine);
        watch(4.0);
        EXPECT_NEAR(error(), 0.0, fine);
    }
}

TEST_F(ZLOBSPositionTest, APauseWhoseEventsWereMissedIsMeasured)
{
    start();
    watch(6.0);
    obs.pause(now);
    watch(3.0);
    EXPECT_EQ(state(), ZLRecorderState::Paused);
    obs.resume(now);
    watch(5.0);
    EXPECT_EQ(state(), ZLRecorderState::Recording);
    EXPECT_NEAR(error(), 0.0, obs.frameSeconds + fine);
}

TEST_F(ZLOBSPositionTest, EventsThatComeAFrameLateAreSetRight)
{
    start();
    watch(6.0);
    for (const double late : { 0.03, -0.03 }) {
        obs.pause(now);
        position.paused(now + std::max(late, 0.0));
        watch(1.7);
        obs.resume(now);
        position.resumed(now - std::min(late, 0.0));
        watch(0.1);
        EXPECT_GT(std::abs(error()), 0.02) << "by the events alone";
        watch(3.0);
        EXPECT_NEAR(error(), 0.0, fine);
    }
}

TEST_F(ZLOBSPositionTest, AnEncoderThatHoldsBackForLongerMovesNothing)
{
    start();
    watch(6.0);
    obs.heldBack += 14;
    watch(4.0);
    EXPECT_NEAR(error(), 0.0, fine);
    EXPECT_NEAR(*position.encoderDelay(), obs.heldBack * obs.frameSeconds, 1e-6);
    pauseRecording();
    watch(1.0);
    obs.heldBack += 5;
    resumeRecording();
    watch(4.0);
    EXPECT_NEAR(error(), 0.0, fine);
}

TEST_F(ZLOBSPositionTest, ASecondRecordingBeginsAtItsOwnZero)
{
    start();
    watch(6.0);
    position.ended(now);
    obs.isActive = false;
    watch(1.0);
    // The counter of the frames shows the old recording a little longer.
    const ZLOBSStatus old = obs.status(now, now + wayThere);
    start();
    position.take({ now + 0.001, now + 0.002, true, false, 0.0, old.frames });
    watch(5.0);
    EXPECT_NEAR(error(), 0.0, fine);
}

TEST_F(ZLOBSPositionTest, AnOutputThatRanBeforeIsLeftOut)
{
    obs.framesBefore = 54321;
    start();
    watch(0.5);
    EXPECT_FALSE(position.report());
    watch(5.0);
    EXPECT_NEAR(error(), 0.0, 2 * obs.frameSeconds);
}

TEST_F(ZLOBSPositionTest, ALateJoinIsExactWithoutPauses)
{
    obs.start(now - 751.3);
    watch(4.0);
    EXPECT_NEAR(error(), 0.0, fine);
    EXPECT_LT(position.report()->uncertainty, 2 * fine);
}

TEST_F(ZLOBSPositionTest, ALateJoinAfterPausesIsExactWhenTheDelayIsKnown)
{
    obs.start(now - 751.3);
    obs.pause(now - 300.0);
    obs.resume(now - 290.0);
    obs.pause(now - 200.0);
    obs.resume(now - 199.0);
    position.setEncoderDelay(obs.heldBack * obs.frameSeconds, true);
    watch(4.0);
    EXPECT_NEAR(error(), 0.0, fine);
}

TEST_F(ZLOBSPositionTest, ALateJoinAfterAShortPauseIsExactWhenTheDelayOfAnEarlierRecordingIsKnown)
{
    obs.start(now - 751.3);
    obs.pause(now - 300.0);
    obs.resume(now - 298.3);
    position.setEncoderDelay(obs.heldBack * obs.frameSeconds, false);
    watch(4.0);
    EXPECT_NEAR(error(), 0.0, fine);
}

TEST_F(ZLOBSPositionTest, ALateJoinAfterPausesSaysThatItDoesNotKnowTheDelay)
{
    obs.start(now - 751.3);
    obs.pause(now - 300.0);
    obs.resume(now - 290.0);
    watch(4.0);
    EXPECT_LE(std::abs(error()), position.report()->uncertainty);
    EXPECT_GT(position.report()->uncertainty, 0.9);
}

TEST_F(ZLOBSPositionTest, ALateJoinInAPauseTellsItsPosition)
{
    obs.start(now - 751.3);
    obs.pause(now - 10.0);
    position.setEncoderDelay(obs.heldBack * obs.frameSeconds, true);
    watch(1.0);
    EXPECT_EQ(state(), ZLRecorderState::Paused);
    EXPECT_NEAR(position.report()->position, 741.3, obs.frameSeconds + 0.001);
    obs.resume(now);
    position.resumed(now);
    watch(4.0);
    EXPECT_NEAR(error(), 0.0, fine);
}

TEST_F(ZLOBSPositionTest, TheLastFramesOfARecordingDoNotStartIt)
{
    start();
    watch(6.0);
    position.ended(now);
    const double end = obs.positionAt(now);
    watch(1.0);
    EXPECT_EQ(state(), ZLRecorderState::Standing);
    EXPECT_NEAR(position.report()->position, end, fine);
    obs.isActive = false;
    watch(1.0);
    EXPECT_EQ(state(), ZLRecorderState::Standing);
}

TEST_F(ZLOBSPositionTest, AnAnswerFromBeforeTheStartDoesNotEndIt)
{
    const ZLOBSStatus old = obs.status(now, now + 0.2);
    start();
    position.take(old);
    EXPECT_EQ(state(), ZLRecorderState::Recording);
}

TEST_F(ZLOBSPositionTest, ARecordingWhoseEndWasMissedEnds)
{
    start();
    watch(3.0);
    obs.isActive = false;
    watch(0.2);
    EXPECT_EQ(state(), ZLRecorderState::Standing);
}

}
