#include "lists/ZLListTime.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLListTime, FieldsAreReadWithAnyNumberOfDecimals)
{
    EXPECT_EQ(ZLListTime::fromClock(u"01:02:03.500"), 3723.5);
    EXPECT_EQ(ZLListTime::fromClock(u"1:02:03,5"), 3723.5);
    EXPECT_EQ(ZLListTime::fromClock(u"62:03"), 3723.0);
    EXPECT_EQ(ZLListTime::fromClock(u"100:00:00.000000001"), 360000.000000001);
    EXPECT_EQ(ZLListTime::fromClock(u"-00:00:01.5"), -1.5);
    EXPECT_EQ(ZLListTime::fromClock(u"3723.25", 1), 3723.25);
    EXPECT_EQ(ZLListTime::fromClock(u"00:00:01.001"), 1.001);
}

TEST(ZLListTime, WhatIsNoTimeIsNone)
{
    for (const auto* text : { u"", u":", u"12", u"1:2:3:4", u"00:75", u"00:00:60", u"a:10", u"1:1 0", u"1:10.", u"1:.5",
             u"+1:10", u"--1:10", u"1:10e3", u"1:+1", u"٠١:٠٢", u"9999999999:00", u"1:10 " })
        EXPECT_FALSE(ZLListTime::fromClock(QString::fromUtf16(text))) << qPrintable(QString::fromUtf16(text));
    EXPECT_FALSE(ZLListTime::fromClock(u"62:03", 3));
}

TEST(ZLListTime, NumbersHaveNoExponentAndNoNames)
{
    EXPECT_EQ(ZLListTime::fromNumber(u"12.5"), 12.5);
    EXPECT_EQ(ZLListTime::fromNumber(u"-12,5"), -12.5);
    for (const auto* text : { u"", u"nan", u"inf", u"1e3", u"0x10", u"1.", u".5", u" 1" })
        EXPECT_FALSE(ZLListTime::fromNumber(QString::fromUtf16(text))) << qPrintable(QString::fromUtf16(text));
}

TEST(ZLListTime, TimesAreCutOffButADecimalFractionIsKept)
{
    EXPECT_EQ(ZLListTime::clock(3723.5), u"01:02:03.500"_s);
    EXPECT_EQ(ZLListTime::clock(1.001), u"00:00:01.001"_s);
    EXPECT_EQ(ZLListTime::clock(1.0019), u"00:00:01.001"_s);
    EXPECT_EQ(ZLListTime::clock(359999.999), u"99:59:59.999"_s);
    EXPECT_EQ(ZLListTime::clock(360000.0, 9), u"100:00:00.000000000"_s);
    EXPECT_EQ(ZLListTime::number(1.000001, 6), u"1.000001"_s);
    EXPECT_EQ(ZLListTime::shortClock(59.9), u"0:59"_s);
    EXPECT_EQ(ZLListTime::shortClock(3723.9), u"1:02:03"_s);
}

TEST(ZLListTime, EveryMillisecondComesBackAsItself)
{
    constexpr int checked = 200'000;
    constexpr quint64 step = 1801;
    for (quint64 milliseconds = 0; milliseconds < checked * step; milliseconds += step)
        ASSERT_EQ(ZLListTime::units(double(milliseconds) / 1000.0, 1000.0), milliseconds);
    for (quint64 frames = 0; frames < checked; ++frames)
        ASSERT_EQ(ZLListTime::units(double(frames) / 75.0, 75.0), frames);
}

TEST(ZLListTime, TimesThatNoNumberHoldsAreBounded)
{
    EXPECT_EQ(ZLListTime::units(-1.0, 1000.0), 0U);
    EXPECT_EQ(ZLListTime::units(std::numeric_limits<double>::quiet_NaN(), 1000.0), 0U);
    EXPECT_EQ(ZLListTime::units(std::numeric_limits<double>::infinity(), 1000.0), 9007199254740992U);
}
