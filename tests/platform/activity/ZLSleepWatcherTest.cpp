#include "platform/activity/ZLSleepWatcher.h"

#include "platform/activity/ZLBootClock.h"
#include "support/ZLFakeHostClock.h"

#include <gtest/gtest.h>

class ZLSleepWatcherTest : public testing::Test {
protected:
    void pass(double seconds)
    {
        m_steadyClock->advance(seconds);
        m_bootClock->advance(seconds);
    }
    void sleep(double seconds) { m_bootClock->advance(seconds); }

    std::shared_ptr<ZLFakeHostClock> m_steadyClock = std::make_shared<ZLFakeHostClock>();
    std::shared_ptr<ZLFakeHostClock> m_bootClock = std::make_shared<ZLFakeHostClock>();
    ZLSleepWatcher m_watcher { m_steadyClock, m_bootClock };
};

TEST_F(ZLSleepWatcherTest, TimeThatPassesAwakeIsNoSleep)
{
    pass(36000.0);
    EXPECT_EQ(m_watcher.takeSleep(), 0.0);
}

TEST_F(ZLSleepWatcherTest, ASleepIsToldOnce)
{
    pass(10.0);
    sleep(720.0);
    pass(0.5);
    EXPECT_EQ(m_watcher.takeSleep(), 720.0);
    EXPECT_EQ(m_watcher.takeSleep(), 0.0);
}

TEST_F(ZLSleepWatcherTest, ShortSleepsAddUp)
{
    sleep(0.75);
    EXPECT_EQ(m_watcher.takeSleep(), 0.0);
    sleep(0.75);
    EXPECT_EQ(m_watcher.takeSleep(), 1.5);
}

TEST_F(ZLSleepWatcherTest, ASleepBeforeItWatchesDoesNotCount)
{
    sleep(720.0);
    m_watcher.restart();
    EXPECT_EQ(m_watcher.takeSleep(), 0.0);
}

TEST_F(ZLSleepWatcherTest, AnEarlierSleepThatTheClocksBeganWithDoesNotCount)
{
    m_bootClock->advance(86400.0);
    ZLSleepWatcher watcher(m_steadyClock, m_bootClock);
    EXPECT_EQ(watcher.takeSleep(), 0.0);
}

TEST_F(ZLSleepWatcherTest, WithoutABootClockNoSleepIsNoticed)
{
    ZLSleepWatcher watcher(m_steadyClock, nullptr);
    pass(10.0);
    EXPECT_EQ(watcher.takeSleep(), 0.0);
}

TEST(ZLBootClockTest, ItIsNeverBehindTheSteadyClockAndNeverGoesBack)
{
    const ZLSteadyHostClock steady;
    const ZLBootClock boot;
    const double steadyNow = steady.now();
    const double bootNow = boot.now();
    EXPECT_GE(bootNow, steadyNow);
    EXPECT_GE(boot.now(), bootNow);
}
