#include "document/concerns/ZLSleepText.h"

#include <QLocale>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLSleepTextTest, ALengthIsToldInTheUnitThatFits)
{
    EXPECT_EQ(ZLSleepText::length(1.2), u"1 s"_s);
    EXPECT_EQ(ZLSleepText::length(59.4), u"59 s"_s);
    EXPECT_EQ(ZLSleepText::length(59.6), u"1 min"_s);
    EXPECT_EQ(ZLSleepText::length(720.0), u"12 min"_s);
    EXPECT_EQ(ZLSleepText::length(3599.0), u"1 h 0 min"_s);
    EXPECT_EQ(ZLSleepText::length(7510.0), u"2 h 5 min"_s);
}

TEST(ZLSleepTextTest, TheSentenceSaysHowLongAndFromWhen)
{
    const QDateTime begin(QDate(2024, 5, 1), QTime(14, 3));
    const QString time = QLocale().toString(begin.time(), QLocale::ShortFormat);
    EXPECT_EQ(ZLSleepText::sentence({}), QString());
    EXPECT_EQ(ZLSleepText::sentence({ { 30.0, 720.0, begin } }),
        u"The computer slept for 12 min from %1. The clock stood still."_s.arg(time));
    EXPECT_EQ(ZLSleepText::sentence({ { 30.0, 720.0, begin }, { 50.0, 120.0, begin.addSecs(900) } }),
        u"The computer slept 2 times, for 14 min altogether, first from %1. The clock stood still."_s.arg(time));
}
