#include "document/recording/ZLRecordingClock.h"

#include "support/ZLFakeHostClock.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

class ZLRecordingClockTest : public testing::Test {
protected:
    std::shared_ptr<ZLFakeHostClock> m_hostClock = std::make_shared<ZLFakeHostClock>();
    ZLRecordingClock m_clock { m_hostClock };
};

TEST_F(ZLRecordingClockTest, ANewClockStandsAtZero)
{
    EXPECT_FALSE(m_clock.isRunning());
    EXPECT_EQ(m_clock.currentDuration(), 0.0);
    EXPECT_EQ(m_clock.startTime(), 0.0);
    m_hostClock->advance(50.0);
    EXPECT_EQ(m_clock.currentDuration(), 0.0);
}

TEST_F(ZLRecordingClockTest, ItCountsFromItsStartOnTopOfWhatWasRecorded)
{
    m_clock.setDuration(60.0);
    m_hostClock->setNow(500.0);
    m_clock.startAt(490.0);
    EXPECT_TRUE(m_clock.isRunning());
    EXPECT_EQ(m_clock.currentDuration(), 70.0);
    EXPECT_EQ(m_clock.duration(), 60.0);
    m_hostClock->setNow(530.0);
    EXPECT_EQ(m_clock.currentDuration(), 100.0);
    m_clock.stop();
    EXPECT_EQ(m_clock.currentDuration(), 60.0);
    EXPECT_EQ(m_clock.startTime(), 0.0);
}

TEST_F(ZLRecordingClockTest, TheDisplayIsDueOnlyWhileItRuns)
{
    QSignalSpy due(&m_clock, &ZLRecordingClock::displayIsDue);
    m_clock.startAt(100.0);
    EXPECT_TRUE(due.wait(5000));
    m_clock.stop();
    due.clear();
    EXPECT_FALSE(due.wait(250));
    const auto* timer = m_clock.findChild<QTimer*>();
    ASSERT_NE(timer, nullptr);
    EXPECT_EQ(timer->interval(), 100) << "ten times a second";
}

TEST_F(ZLRecordingClockTest, ARateMovesTheStartTimeAndNeverTheReading)
{
    m_clock.setDuration(10.0);
    m_hostClock->setNow(100.0);
    m_clock.startAt(100.0);
    m_hostClock->setNow(200.0);
    m_clock.setRate(0.01);
    EXPECT_DOUBLE_EQ(m_clock.currentDuration(), 110.0);
    m_hostClock->setNow(300.0);
    EXPECT_DOUBLE_EQ(m_clock.currentDuration(), 211.0);
    EXPECT_DOUBLE_EQ(m_clock.startTime(), 99.0);
    EXPECT_DOUBLE_EQ(m_clock.readingAt(290.0), 200.9);
    m_clock.setRate(-0.01);
    EXPECT_DOUBLE_EQ(m_clock.currentDuration(), 211.0);
    m_hostClock->setNow(400.0);
    EXPECT_DOUBLE_EQ(m_clock.currentDuration(), 310.0);
    m_clock.moveBy(5.0);
    EXPECT_DOUBLE_EQ(m_clock.currentDuration(), 315.0);
    m_clock.stop();
    m_clock.moveBy(-4.0);
    EXPECT_EQ(m_clock.currentDuration(), 6.0);
    m_clock.startAt(400.0);
    m_hostClock->setNow(500.0);
    EXPECT_EQ(m_clock.currentDuration(), 106.0) << "a new span begins without a rate";
}
