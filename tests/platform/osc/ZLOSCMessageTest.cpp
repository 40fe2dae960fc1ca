#include "platform/osc/ZLOSCMessage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

double valueOf(const ZLOSCArgument& argument)
{
    return ZLOSCMessage(u"/a"_s, { argument }).floatValue();
}

}

TEST(ZLOSCMessage, numbersOfEveryKindCountAsTheyAre)
{
    EXPECT_EQ(valueOf(qint32(-7)), -7.0);
    EXPECT_EQ(valueOf(qint64(1) << 40), std::pow(2.0, 40));
    EXPECT_EQ(valueOf(0.25F), 0.25);
    EXPECT_EQ(valueOf(1e-300), 1e-300);
    EXPECT_EQ(valueOf(true), 1.0);
    EXPECT_EQ(valueOf(false), 0.0);
}

TEST(ZLOSCMessage, aStringCountsByTheNumberItBeginsWith)
{
    EXPECT_EQ(valueOf(u"1"_s), 1.0);
    EXPECT_EQ(valueOf(u"  +2.5e1 px"_s), 25.0);
    EXPECT_EQ(valueOf(u"-3"_s), -3.0);
    EXPECT_EQ(valueOf(u".5"_s), 0.5);
    EXPECT_EQ(valueOf(u"0,9"_s), 0.0);
    for (const QString& text :
        { u""_s, u" "_s, u"on"_s, u"inf"_s, u"info"_s, u"nan"_s, u"-inf"_s, u"+-1"_s, u"-"_s, u"."_s })
        EXPECT_EQ(valueOf(text), 0.0) << qPrintable(text);
}

TEST(ZLOSCMessage, whatIsNoNumberIsNotGreaterThanZero)
{
    EXPECT_FALSE(ZLOSCMessage(u"/a"_s).floatValue() > 0);
    EXPECT_FALSE(valueOf(std::numeric_limits<float>::quiet_NaN()) > 0);
    EXPECT_FALSE(valueOf(std::numeric_limits<double>::quiet_NaN()) > 0);
    EXPECT_FALSE(valueOf(ZLOSCNil()) > 0);
    EXPECT_FALSE(valueOf(ZLOSCInfinitum()) > 0);
    EXPECT_FALSE(valueOf(ZLOSCTimeTag { 9 }) > 0);
    EXPECT_FALSE(valueOf(ZLOSCOpaque { 'c', 49 }) > 0);
    EXPECT_FALSE(valueOf(QByteArray("1")) > 0);
}

TEST(ZLOSCMessage, onlyTheFirstArgumentIsTheValue)
{
    EXPECT_EQ(ZLOSCMessage(u"/a"_s, { qint32(0), qint32(1) }).floatValue(), 0.0);
    EXPECT_EQ(ZLOSCMessage(u"/a"_s, { QByteArray("x"), qint32(1) }).floatValue(), 0.0);
}

TEST(ZLOSCMessage, theDescriptionIsOneShortPrintableLine)
{
    EXPECT_EQ(ZLOSCMessage(u"/a"_s, { qint32(1), 0.5F, u"Grün"_s, true, QByteArray("abc"), ZLOSCNil() }).description(),
        u"/a 1 0.5 \"Grün\" true blob of 3 bytes nil"_s);
    EXPECT_EQ(ZLOSCMessage(u"/a\nb"_s, { u"\x1b[2J"_s }).description(), u"/a\\u000ab \"\\u001b[2J\""_s);
    const QString longText(5000, u'x');
    const QString described = ZLOSCMessage(u"/a"_s, QList<ZLOSCArgument>(100, longText)).description();
    EXPECT_LT(described.size(), 1000);
    EXPECT_TRUE(described.endsWith(u'…'));
}
