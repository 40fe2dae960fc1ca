#include "recorder/ZLRecorderLock.h"

#include "recorder/ZLSimulatedRecorder.h"

#include <gtest/gtest.h>

namespace {

constexpr double threeHours = 3.0 * 3600.0;
constexpr double ppm = 1e-6;

class ZLRecorderLockTest : public testing::Test {
protected:
    /// Lets messages come for `seconds` and gives by how much the lock was wrong at most.
    double follow(double seconds)
    {
        double worst = 0.0;
        for (const double end = m_now + seconds; m_now < end; m_now += m_recorder.pause()) {
            m_lock.note(m_recorder.reportAt(m_now));
            worst = std::max(worst, std::abs(m_lock.positionAt(m_now) - m_recorder.positionAt(m_now)));
        }
        return worst;
    }

    double m_now = 1000.0;
    ZLSimulatedRecorder m_recorder;
    ZLRecorderLock m_lock;
};

TEST_F(ZLRecorderLockTest, AnExactRecorderIsKnownExactly)
{
    m_recorder.startAt(m_now);
    EXPECT_FALSE(m_lock.hasPosition());
    EXPECT_LT(follow(60.0), 1e-9);
    EXPECT_NEAR(m_lock.positionAt(m_now + 5.0), m_recorder.positionAt(m_now + 5.0), 1e-6);
    EXPECT_NEAR(m_lock.drift(), 0.0, 1e-9);
}

TEST_F(ZLRecorderLockTest, ThreeHoursOfDriftAndJitterStayWithinTenMilliseconds)
{
    for (const double drift : { 200.0 * ppm, -200.0 * ppm, 30.0 * ppm }) {
        m_lock = {};
        m_recorder = {};
        m_recorder.drift = drift;
        m_recorder.jitter = 0.02;
        m_recorder.startAt(m_now);
        const double first = follow(20.0);
        EXPECT_LT(first, 0.02) << "no report before the first one can tell how late that was";
        EXPECT_LT(follow(threeHours), 0.01) << drift;
        EXPECT_NEAR(m_lock.drift(), drift, 10.0 * ppm);
        EXPECT_TRUE(m_lock.isDriftKnown());
    }
}

TEST_F(ZLRecorderLockTest, StepsOfATenthOfASecondAreSeenThrough)
{
    for (const double drift : { 200.0 * ppm, -200.0 * ppm }) {
        m_lock = {};
        m_recorder = {};
        m_recorder.drift = drift;
        m_recorder.step = 0.1;
        m_recorder.jitter = 0.003;
        m_recorder.startAt(m_now);
        EXPECT_LT(follow(20.0), 0.055) << "at first a step is all that is known";
        EXPECT_LT(follow(threeHours), 0.01) << drift;
        EXPECT_NEAR(m_lock.drift(), drift, 20.0 * ppm);
    }
}

TEST_F(ZLRecorderLockTest, ADriftThatIsKnownOutlastsAPause)
{
    m_recorder.drift = 150.0 * ppm;
    m_recorder.startAt(m_now);
    follow(600.0);
    m_recorder.pauseAt(m_now);
    m_now += 300.0;
    m_recorder.startAt(m_now);
    m_lock.begin();
    EXPECT_FALSE(m_lock.hasPosition());
    EXPECT_LT(follow(30.0), 0.001);
    EXPECT_NEAR(m_lock.drift(), 150.0 * ppm, 5.0 * ppm);
}

TEST_F(ZLRecorderLockTest, WithoutReportsTheLastRateGoesOn)
{
    m_recorder.drift = -200.0 * ppm;
    m_recorder.jitter = 0.005;
    m_recorder.startAt(m_now);
    follow(900.0);
    m_now += 60.0;
    EXPECT_NEAR(m_lock.positionAt(m_now), m_recorder.positionAt(m_now), 0.01);
    EXPECT_LT(follow(60.0), 0.01) << "they lock again";
}

TEST_F(ZLRecorderLockTest, APositionThatJumpsAheadIsBelievedAtOnce)
{
    m_recorder.startAt(m_now);
    follow(60.0);
    m_recorder.jumpBy(5.0);
    follow(1.0);
    EXPECT_NEAR(m_lock.positionAt(m_now), m_recorder.positionAt(m_now), 0.001);
    EXPECT_FALSE(m_lock.isSettledAt(m_now));
    follow(3.0);
    EXPECT_TRUE(m_lock.isSettledAt(m_now));
}

TEST_F(ZLRecorderLockTest, AJumpBackIsTakenForDelayAtFirst)
{
    m_recorder.startAt(m_now);
    follow(60.0);
    const double before = m_lock.positionAt(m_now) - m_now;
    m_recorder.jumpBy(-2.0);
    follow(1.0);
    EXPECT_NEAR(m_lock.positionAt(m_now) - m_now, before, 0.001);
    follow(4.0);
    EXPECT_NEAR(m_lock.positionAt(m_now), m_recorder.positionAt(m_now), 0.001);
}

TEST_F(ZLRecorderLockTest, ARecorderThatSaysWhenAndHasLostTimeIsFollowedAtOnce)
{
    m_recorder.isTimed = true;
    m_recorder.startAt(m_now);
    follow(60.0);
    for (const double lost : { 0.02, 0.5 }) {
        m_recorder.jumpBy(-lost);
        follow(0.7);
        EXPECT_NEAR(m_lock.positionAt(m_now), m_recorder.positionAt(m_now), 0.001) << lost;
    }
}

TEST_F(ZLRecorderLockTest, ASingleWrongPositionChangesNothing)
{
    m_recorder.startAt(m_now);
    follow(60.0);
    ZLRecorderReport wrong = m_recorder.reportAt(m_now);
    wrong.position += 1000.0;
    m_lock.note(wrong);
    EXPECT_LT(follow(10.0), 0.001);
}

TEST_F(ZLRecorderLockTest, MessagesThatAreHeldUpForTwoSecondsChangeNothing)
{
    m_recorder.startAt(m_now);
    follow(60.0);
    for (int count = 0; count < 10; ++count, m_now += 0.2) {
        ZLRecorderReport late = m_recorder.reportAt(m_now);
        late.position -= 1.5;
        m_lock.note(late);
        EXPECT_NEAR(m_lock.positionAt(m_now), m_recorder.positionAt(m_now), 0.001);
    }
    EXPECT_LT(follow(10.0), 0.001);
}

}
