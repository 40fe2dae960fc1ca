#include "recorder/jack/ZLJackPosition.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

namespace {

constexpr double rate = 48000.0;
constexpr double unevenness = 0.001;

class ZLJackPositionTest : public testing::Test {
protected:
    /// The states that follow from the transport at this position.
    QList<ZLRecorderState> take(bool isRolling, double seconds, double hostTime)
    {
        reports = position.take({ isRolling, qint64(seconds * rate), rate, 0 }, hostTime, unevenness);
        QList<ZLRecorderState> states;
        for (const ZLRecorderReport& report : reports)
            states.append(report.state);
        return states;
    }

    ZLJackPosition position;
    QList<ZLRecorderReport> reports;
};

TEST_F(ZLJackPositionTest, RollingIsRecordingAndStandingIsAPauseOrNothing)
{
    EXPECT_THAT(take(false, 0.0, 100.0), ElementsAre(ZLRecorderState::Standing));
    EXPECT_THAT(take(true, 0.02, 100.02), ElementsAre(ZLRecorderState::Recording));
    EXPECT_EQ(reports.last(), (ZLRecorderReport { ZLRecorderState::Recording, 0.02, 100.02, unevenness, true }));
    EXPECT_THAT(take(true, 5.02, 105.02), ElementsAre(ZLRecorderState::Recording));
    EXPECT_THAT(take(false, 6.0, 106.5), ElementsAre(ZLRecorderState::Paused));
    EXPECT_EQ(reports.last().position, 6.0);
    EXPECT_THAT(take(true, 6.5, 120.0), ElementsAre(ZLRecorderState::Recording));
}

TEST_F(ZLJackPositionTest, LocatingWhileStandingMovesThePause)
{
    (void)take(true, 60.0, 100.0);
    (void)take(false, 61.0, 101.0);
    EXPECT_THAT(take(false, 30.0, 102.0), ElementsAre(ZLRecorderState::Paused));
    EXPECT_EQ(reports.last().position, 30.0);
    EXPECT_THAT(take(false, 0.0, 103.0), ElementsAre(ZLRecorderState::Standing));
}

TEST_F(ZLJackPositionTest, LocatingToTheBeginningWhileRollingBeginsANewRecording)
{
    (void)take(true, 60.0, 100.0);
    EXPECT_THAT(take(true, 0.03, 100.04), ElementsAre(ZLRecorderState::Standing, ZLRecorderState::Recording));
    EXPECT_EQ(reports.first().position, 0.0);
    EXPECT_NEAR(reports.last().position, 0.03, 1e-4);
    EXPECT_NEAR(reports.last().hostTime, 100.04, 1e-4);
}

TEST_F(ZLJackPositionTest, AnyOtherLeapShowsInThePosition)
{
    (void)take(true, 60.0, 100.0);
    for (const double there : { 30.0, 300.0 }) {
        EXPECT_THAT(take(true, there, 100.04), ElementsAre(ZLRecorderState::Recording));
        EXPECT_EQ(reports.last().position, there);
        EXPECT_NEAR(reports.last().hostTime, 100.04, 1e-4);
    }
}

TEST_F(ZLJackPositionTest, AServerThatWakesUpLateDoesNotMoveTheClock)
{
    (void)take(true, 10.0, 100.0);
    (void)take(true, 10.04, 100.048);
    EXPECT_NEAR(reports.last().hostTime, 100.04, 1e-4);
}

TEST_F(ZLJackPositionTest, AServerThatHasLostTimeIsFollowedSoon)
{
    for (int look = 0; look < 20; ++look)
        (void)take(true, 10.0 + look * 0.04, 100.0 + look * 0.04);
    for (int look = 20; look < 40; ++look)
        (void)take(true, 10.0 + look * 0.04, 100.02 + look * 0.04);
    EXPECT_NEAR(reports.last().hostTime - reports.last().position, 90.02, 1e-4);
}

TEST_F(ZLJackPositionTest, AServerWithoutARateSaysNothing)
{
    EXPECT_TRUE(position.take({ true, 480, 0.0, 0 }, 100.0, unevenness).isEmpty());
}

}
