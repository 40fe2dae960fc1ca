#include "settings/ui/MASPreferencesGeometryText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
namespace Text = MASPreferencesGeometryText;

TEST(MASPreferencesGeometryTextTest, PointsAndSizesAreWrittenWithBracesAndABlank)
{
    EXPECT_EQ(Text::fromPoint({ 80, -12 }), u"{80, -12}"_s);
    EXPECT_EQ(Text::fromSize({ 480, 270 }), u"{{0, 0}, {480, 270}}"_s);
}

TEST(MASPreferencesGeometryTextTest, WhatIsWrittenIsReadBack)
{
    EXPECT_EQ(Text::toPoint(Text::fromPoint({ -80, 640 })), QPoint(-80, 640));
    EXPECT_EQ(Text::toSize(Text::fromSize({ 480, 270 })), QSize(480, 270));
}

TEST(MASPreferencesGeometryTextTest, SpacingAndFractionsAreForgiven)
{
    EXPECT_EQ(Text::toPoint(u" { 80.5 ,640. } "_s), QPoint(81, 640));
    EXPECT_EQ(Text::toSize(u"{{0,0},{480.25,270}}"_s), QSize(480, 270));
}

TEST(MASPreferencesGeometryTextTest, OtherTextsStandForNothing)
{
    for (const QString& text : { u""_s, u"80, 640"_s, u"{80}"_s, u"{80, 640} "_s + u"x"_s, u"{99999999, 0}"_s,
             u"{{0, 0}, {1, 1}}"_s, u"{a, b}"_s })
        EXPECT_EQ(Text::toPoint(text), std::nullopt) << qPrintable(text);
    for (const QString& text : { u""_s, u"{1, 1}"_s, u"{{0, 0}}"_s, u"{{0, 0}, {0, 10}}"_s, u"{{0, 0}, {10, -1}}"_s })
        EXPECT_EQ(Text::toSize(text), std::nullopt) << qPrintable(text);
}
