#include "platform/window/ZLWindowPlace.h"

#include <gtest/gtest.h>

namespace {

constexpr QRect smallScreen(0, 20, 1024, 580);
constexpr QSize least(640, 400);

/// With the frame of a large title bar.
bool isOnScreen(const QRect& place, const QRect& screen)
{
    return screen.contains(QRect(place.topLeft(), place.size() + QSize(8, 34)));
}

}

TEST(ZLWindowPlaceTest, WhatFitsStaysWhereItIs)
{
    EXPECT_EQ(ZLWindowPlace::fitted({ 100, 50 }, { 700, 420 }, smallScreen), QRect(100, 50, 700, 420));
}

TEST(ZLWindowPlaceTest, ALargeOrLostWindowComesOntoTheScreenAsAWhole)
{
    for (const QPoint place : { QPoint(0, 0), QPoint(-5000, 300), QPoint(5000, 5000), QPoint(900, 550) }) {
        for (const QSize size : { QSize(1000, 620), QSize(99999, 99999), QSize(300, 200) })
            EXPECT_TRUE(isOnScreen(ZLWindowPlace::fitted(place, size, smallScreen), smallScreen))
                << place.x() << ' ' << size.width();
    }
}

TEST(ZLWindowPlaceTest, AWindowThatComesBackDoesNotWanderFromStartToStart)
{
    EXPECT_EQ(ZLWindowPlace::returned({ 100, 70, 700, 420 }, smallScreen), QRect(100, 70, 700, 420));
    for (const QPoint place : { QPoint(0, 0), QPoint(-5000, 300), QPoint(5000, 5000), QPoint(900, 50) }) {
        for (const QSize size : { QSize(700, 420), QSize(99999, 99999) }) {
            const QRect first = ZLWindowPlace::returned({ place, size }, smallScreen);
            EXPECT_TRUE(smallScreen.contains(first)) << place.x();
            EXPECT_EQ(ZLWindowPlace::returned(first, smallScreen), first) << place.x();
        }
    }
}

TEST(ZLWindowPlaceTest, ANewWindowStandsBesideTheFrontOne)
{
    const QRect large(0, 0, 1920, 1080);
    const QPoint front(100, 60);
    EXPECT_EQ(ZLWindowPlace::cascaded(front, { 1000, 620 }, least, { front }, large), QRect(132, 92, 1000, 620));
    EXPECT_EQ(ZLWindowPlace::cascaded(front, { 1000, 620 }, least, { front, { 130, 91 } }, large),
        QRect(164, 124, 1000, 620));
}

TEST(ZLWindowPlaceTest, OnASmallScreenWindowsBecomeSmallerAndBeginAgainAtTheEdge)
{
    QList<QPoint> taken { smallScreen.topLeft() };
    for (int window = 0; window < 12; ++window) {
        const QRect place = ZLWindowPlace::cascaded(taken.constLast(), { 1000, 540 }, least, taken, smallScreen);
        EXPECT_TRUE(isOnScreen(place, smallScreen)) << window;
        EXPECT_FALSE(taken.contains(place.topLeft())) << window;
        EXPECT_EQ(place.size().expandedTo(least), place.size()) << window;
        taken.append(place.topLeft());
    }
}
