#include "recorder/osctime/ZLOSCTimeReading.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ZLOSCTimeReadingTest : public testing::Test {
protected:
    std::optional<ZLRecorderReport> take(const QString& address, double value)
    {
        m_report = m_reading.note(address, value, m_now);
        return m_report;
    }

    /// The time line goes on for `seconds`, 30 times a second.
    void run(double seconds)
    {
        for (int count = 0; count < int(seconds * 30.0); ++count) {
            m_now += 1.0 / 30.0;
            m_time += 1.0 / 30.0;
            take(u"/time"_s, float(m_time));
        }
    }

    void expectRecordingAt(double position)
    {
        ASSERT_TRUE(m_report);
        EXPECT_EQ(m_report->state, ZLRecorderState::Recording);
        EXPECT_NEAR(m_report->position, position, 0.002);
        EXPECT_EQ(m_report->hostTime, m_now);
    }

    double m_now = 500.0;
    double m_time = 0.0;
    ZLOSCTimeReading m_reading { ZLOSCTimeAddresses::reaper() };
    std::optional<ZLRecorderReport> m_report;
};

TEST_F(ZLOSCTimeReadingTest, ARecordingCountsFromWhereTheTimeLineStood)
{
    m_time = 62.5;
    take(u"/time"_s, m_time);
    EXPECT_EQ(m_report->state, ZLRecorderState::Standing);
    m_now += 20.0;
    take(u"/play"_s, 1);
    take(u"/record"_s, 1);
    EXPECT_FALSE(m_report) << "where it is comes with the next time";
    run(10.0);
    expectRecordingAt(10.0);
    EXPECT_LT(m_report->uncertainty, 0.001);
}

TEST_F(ZLOSCTimeReadingTest, APauseKeepsThePositionAndTheNextRecordingBeginsAnew)
{
    take(u"/record"_s, 1);
    run(10.0);
    expectRecordingAt(10.0);
    take(u"/pause"_s, 1);
    EXPECT_EQ(m_report->state, ZLRecorderState::Paused);
    m_now += 60.0;
    take(u"/pause"_s, 0);
    run(5.0);
    expectRecordingAt(15.0);
    take(u"/record"_s, 0);
    EXPECT_EQ(m_report->state, ZLRecorderState::Standing);
    m_now += 60.0;
    take(u"/time"_s, m_time);
    take(u"/record"_s, 1);
    run(2.0);
    expectRecordingAt(2.0);
}

TEST_F(ZLOSCTimeReadingTest, ALateComerCountsFromTheZeroOfTheTimeLine)
{
    m_time = 751.0;
    take(u"/time"_s, float(m_time));
    EXPECT_EQ(m_report->state, ZLRecorderState::Standing);
    run(1.0);
    expectRecordingAt(752.0);
    take(u"/record"_s, 1);
    expectRecordingAt(752.0);
}

TEST_F(ZLOSCTimeReadingTest, PlayingIsNoRecording)
{
    take(u"/play"_s, 1);
    run(5.0);
    EXPECT_EQ(m_report->state, ZLRecorderState::Standing);
    take(u"/record"_s, 1);
    run(2.0);
    expectRecordingAt(2.0);
}

TEST_F(ZLOSCTimeReadingTest, WithTheTimeAloneItRecordsWhileTheTimeGoesOn)
{
    m_reading = ZLOSCTimeReading(ZLOSCTimeAddresses::timeAlone());
    take(u"/record"_s, 1);
    EXPECT_FALSE(m_report) << "not one of its addresses";
    take(u"/time"_s, 0.0);
    run(3.0);
    expectRecordingAt(3.0);
    for (int count = 0; count < 15; ++count) {
        m_now += 1.0 / 30.0;
        take(u"/time"_s, float(m_time));
    }
    EXPECT_EQ(m_report->state, ZLRecorderState::Standing);
}

TEST_F(ZLOSCTimeReadingTest, SomebodyWhoMovesTheCursorRecordsNothing)
{
    for (int count = 0; count < 20; ++count) {
        m_now += 0.1;
        take(u"/time"_s, count * 7.0);
        EXPECT_EQ(m_report->state, ZLRecorderState::Standing);
    }
}

TEST_F(ZLOSCTimeReadingTest, WhatIsNoNumberIsNothing)
{
    take(u"/record"_s, 1);
    EXPECT_FALSE(take(u"/time"_s, std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(take(u"/time"_s, std::numeric_limits<double>::infinity()));
    run(1.0);
    expectRecordingAt(1.0);
}

TEST_F(ZLOSCTimeReadingTest, AfterThreeHoursTheRoundingIsTold)
{
    take(u"/record"_s, 1);
    run(0.1);
    m_time = 10800.0;
    run(0.1);
    EXPECT_GE(m_report->uncertainty, 0.0005) << "a float has steps of a millisecond there";
}

TEST(ZLOSCTimeAddresses, PatternsMatch)
{
    EXPECT_TRUE(ZLOSCTimeAddresses::isMatch(u"/time", u"/time"));
    EXPECT_FALSE(ZLOSCTimeAddresses::isMatch(u"/time", u"/time/str"));
    EXPECT_TRUE(ZLOSCTimeAddresses::isMatch(u"/*/time", u"/daw/main/time"));
    EXPECT_TRUE(ZLOSCTimeAddresses::isMatch(u"/dec?/time*", u"/deck/time"));
    EXPECT_FALSE(ZLOSCTimeAddresses::isMatch(u"/dec?/time", u"/dec/time"));
    EXPECT_FALSE(ZLOSCTimeAddresses::isMatch(u"", u""));
    EXPECT_FALSE(ZLOSCTimeAddresses::isMatch(QString(2000, u'*') + u'x', QString(2000, u'y')));
}

}
