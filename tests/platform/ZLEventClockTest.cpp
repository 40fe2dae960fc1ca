#include "platform/ZLEventClock.h"

#include <gtest/gtest.h>

namespace {

/// In seconds, and a little more than one, since an event may count as the end of its millisecond.
constexpr double aMillisecond = 0.00101;

/// What a clock elsewhere that is `ahead` seconds ahead of the host clock reads.
quint32 readingElsewhere(double hostTime, double ahead = 0.0)
{
    return quint32(qint64((hostTime + ahead) * 1000.0));
}

}

TEST(ZLEventClock, OnTheSameClockEvenTheFirstEventIsStampedByItsOwnTime)
{
    ZLEventClock clock;
    EXPECT_NEAR(clock.stampOf(readingElsewhere(5000.0), 5000.4).hostTime(), 5000.0, aMillisecond);
    EXPECT_NEAR(clock.stampOf(readingElsewhere(5001.0), 5001.0005).hostTime(), 5001.0, aMillisecond);
    EXPECT_NEAR(clock.stampOf(readingElsewhere(5002.0), 5003.5).hostTime(), 5002.0, aMillisecond);
}

TEST(ZLEventClock, WithinItsMillisecondTheArrivalTellsMore)
{
    constexpr double tiny = 1e-6;
    for (const double ahead : { 0.0, 777777.0 }) {
        ZLEventClock clock;
        EXPECT_NEAR(clock.stampOf(readingElsewhere(5000.0, ahead), 5000.0).hostTime(), 5000.0, tiny);
        EXPECT_NEAR(clock.stampOf(readingElsewhere(5001.0007, ahead), 5001.0009).hostTime(), 5001.0009, tiny);
        EXPECT_NEAR(clock.stampOf(readingElsewhere(5002.0007, ahead), 5002.0042).hostTime(), 5002.001, tiny)
            << "it was read late";
    }
    EXPECT_NEAR(ZLEventClock::stampOnHostClock(5000250, 5000.2504).hostTime(), 5000.2504, tiny);
    EXPECT_NEAR(ZLEventClock::stampOnHostClock(5000250, 5000.3).hostTime(), 5000.251, tiny);
}

TEST(ZLEventClock, ATimeOfTheSameClockThatLiesTooFarBackCountsAsItsArrival)
{
    ZLEventClock clock;
    EXPECT_EQ(clock.stampOf(readingElsewhere(5000.0), 5002.5).hostTime(), 5002.5);
    EXPECT_NEAR(clock.stampOf(readingElsewhere(5003.0), 5003.2).hostTime(), 5003.0, aMillisecond);
}

TEST(ZLEventClock, OnAnotherClockTheFastestEventTellsTheDistance)
{
    ZLEventClock clock;
    EXPECT_NEAR(clock.stampOf(readingElsewhere(100.0, 777777.0), 100.5).hostTime(), 100.5, aMillisecond)
        << "nothing is known yet";
    EXPECT_NEAR(clock.stampOf(readingElsewhere(101.0, 777777.0), 101.002).hostTime(), 101.002, aMillisecond);
    EXPECT_NEAR(clock.stampOf(readingElsewhere(102.0, 777777.0), 102.3).hostTime(), 102.002, aMillisecond)
        << "the fastest needed 2 ms";
}

TEST(ZLEventClock, BothClocksMayBeginAnew)
{
    constexpr double round = 4294967.296;
    ZLEventClock clock;
    EXPECT_NEAR(clock.stampOf(readingElsewhere(round - 1.0), round - 0.9).hostTime(), round - 1.0, aMillisecond);
    EXPECT_NEAR(clock.stampOf(readingElsewhere(round + 1.0), round + 1.1).hostTime(), round + 1.0, aMillisecond);
    ZLEventClock other;
    EXPECT_NEAR(other.stampOf(quint32(-1000), 100.0).hostTime(), 100.0, aMillisecond);
    EXPECT_NEAR(other.stampOf(quint32(1000), 102.7).hostTime(), 102.0, aMillisecond);
}

TEST(ZLEventClock, AClockThatFallsBehindIsFollowedAfterAWhile)
{
    ZLEventClock clock;
    double ahead = 777777.0;
    double now = 100.0;
    for (int press = 0; press < int(3.0 * ZLEventClock::Memory / 10.0); ++press) {
        (void)clock.stampOf(readingElsewhere(now, ahead), now + 0.001);
        now += 10.0;
        ahead -= 0.01;
    }
    EXPECT_NEAR(clock.stampOf(readingElsewhere(now, ahead), now + 0.001).hostTime(), now, 0.7)
        << "by what it fell behind in the time that is remembered";
    EXPECT_GT(clock.stampOf(readingElsewhere(now, ahead), now + 0.001).hostTime(),
        now - 0.01 * 2.0 * ZLEventClock::Memory / 10.0 - 0.01);
}

TEST(ZLEventClock, ATimeOfAnyClockIsBelievedOnlyWhenItIsThatOfTheHostClock)
{
    EXPECT_NEAR(ZLEventClock::stampOnHostClock(5000250, 5000.5).hostTime(), 5000.25, aMillisecond);
    EXPECT_EQ(ZLEventClock::stampOnHostClock(5000, 5000.5).hostTime(), 5000.5) << "seconds";
    EXPECT_EQ(ZLEventClock::stampOnHostClock(1'700'000'000'000, 5000.5).hostTime(), 5000.5) << "a wall clock";
    EXPECT_EQ(ZLEventClock::stampOnHostClock(0, 5000.5).hostTime(), 5000.5) << "none";
}
