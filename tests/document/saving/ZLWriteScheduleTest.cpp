#include "document/saving/ZLWriteSchedule.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace {

using Haste = ZLWriteSchedule::Haste;

class ZLWriteScheduleTest : public testing::Test {
protected:
    struct SettableClock final : ZLHostClock {
        double seconds = 1000.0;
        double now() const override { return seconds; }
    };

    std::shared_ptr<SettableClock> clock = std::make_shared<SettableClock>();
    ZLWriteSchedule schedule { clock };
};

TEST_F(ZLWriteScheduleTest, AChangeIsWrittenAMomentLaterAndAtOnceWhereNoJournalHoldsIt)
{
    EXPECT_EQ(schedule.plannedDelay(), std::nullopt);
    schedule.plan(Haste::None);
    EXPECT_EQ(schedule.plannedDelay(), ZLWriteSchedule::QuietTime);
    schedule.plan(Haste::AtOnce);
    EXPECT_EQ(schedule.plannedDelay(), 0);
    schedule.dropPlannedWrite();
    EXPECT_EQ(schedule.plannedDelay(), std::nullopt);
}

TEST_F(ZLWriteScheduleTest, FurtherChangesPutAWriteOffNoLongerThanTheLongestWait)
{
    schedule.plan(Haste::None);
    clock->seconds += 0.6;
    schedule.plan(Haste::None);
    EXPECT_EQ(schedule.plannedDelay(), 150);
    clock->seconds += 10.0;
    schedule.plan(Haste::None);
    EXPECT_EQ(schedule.plannedDelay(), 0);
    schedule.dropPlannedWrite();
    schedule.plan(Haste::None);
    EXPECT_EQ(schedule.plannedDelay(), ZLWriteSchedule::QuietTime) << "the wait begins with the first change";
}

TEST_F(ZLWriteScheduleTest, AFailureIsTriedAgainAtASteadyPace)
{
    schedule.planRetry();
    EXPECT_EQ(schedule.plannedDelay(), ZLWriteSchedule::RetryInterval);
}

TEST_F(ZLWriteScheduleTest, ItKnowsWhetherTheNewestStateIsWritten)
{
    EXPECT_TRUE(schedule.isEverythingWritten());
    schedule.noteChange();
    const quint64 written = schedule.revision();
    EXPECT_FALSE(schedule.isEverythingWritten());
    schedule.noteChange();
    schedule.noteWritten(written);
    EXPECT_FALSE(schedule.isEverythingWritten()) << "there is a newer one";
    schedule.noteWritten(schedule.revision());
    EXPECT_TRUE(schedule.isEverythingWritten());
}

TEST_F(ZLWriteScheduleTest, TheReadingIsStoredRegularlyExactlyWhileTheClockRuns)
{
    const auto* timer = schedule.findChild<QTimer*>();
    ASSERT_NE(timer, nullptr);
    EXPECT_FALSE(timer->isActive());
    schedule.followClock(true);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), ZLWriteSchedule::ReadingInterval);
    schedule.followClock(false);
    EXPECT_FALSE(timer->isActive());
}

TEST_F(ZLWriteScheduleTest, ItSaysWhenAWriteIsDueUntilItIsStopped)
{
    int due = 0;
    QObject::connect(&schedule, &ZLWriteSchedule::writeIsDue, &schedule, [&due] { ++due; });
    schedule.plan(Haste::AtOnce);
    for (int turn = 0; turn < 1000 && due == 0; ++turn)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(due, 1);
    EXPECT_EQ(schedule.plannedDelay(), std::nullopt);
    schedule.followClock(true);
    schedule.plan(Haste::None);
    schedule.stop();
    EXPECT_EQ(schedule.plannedDelay(), std::nullopt);
    EXPECT_FALSE(schedule.findChild<QTimer*>()->isActive());
}

}
