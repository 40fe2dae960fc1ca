#include "model/ZLStoredValue.h"

#include <QVariantMap>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLStoredValueTest, NumbersAreReadFromTheBeginningOfATextToo)
{
    EXPECT_EQ(ZLStoredValue::number(65.5), 65.5);
    EXPECT_EQ(ZLStoredValue::number(-3), -3.0);
    EXPECT_EQ(ZLStoredValue::number(true), 1.0);
    EXPECT_EQ(ZLStoredValue::number(u"65.5"_s), 65.5);
    EXPECT_EQ(ZLStoredValue::number(u"  -2.5e1 seconds"_s), -25.0);
    EXPECT_EQ(ZLStoredValue::number(u".5"_s), 0.5);
    EXPECT_EQ(ZLStoredValue::number(u"1,5"_s), 1.0);
    EXPECT_EQ(ZLStoredValue::number(u"about 5"_s), 0.0);
    EXPECT_EQ(ZLStoredValue::number(QVariant()), 0.0);
    EXPECT_EQ(ZLStoredValue::number(QVariantList { 5 }), 0.0);
}

TEST(ZLStoredValueTest, BooleansAreReadFromNumbersAndWords)
{
    for (const QVariant& yes : { QVariant(true), QVariant(1), QVariant(0.5), QVariant(u"YES"_s), QVariant(u" true"_s),
             QVariant(u"2"_s), QVariant(u"-1"_s) })
        EXPECT_TRUE(ZLStoredValue::boolean(yes)) << qPrintable(yes.toString());
    for (const QVariant& no : { QVariant(), QVariant(false), QVariant(0), QVariant(u"NO"_s), QVariant(u"0"_s),
             QVariant(u""_s), QVariant(u"maybe"_s), QVariant(QVariantMap()) })
        EXPECT_FALSE(ZLStoredValue::boolean(no)) << qPrintable(no.toString());
}

TEST(ZLStoredValueTest, AnEmptyTextIsNotAnAbsentOne)
{
    EXPECT_FALSE(ZLStoredValue::text(u""_s).isNull());
    EXPECT_TRUE(ZLStoredValue::text(QVariant()).isNull());
    EXPECT_TRUE(ZLStoredValue::text(QVariant::fromValue(nullptr)).isNull());
    EXPECT_EQ(ZLStoredValue::text(42), u"42"_s);
}
