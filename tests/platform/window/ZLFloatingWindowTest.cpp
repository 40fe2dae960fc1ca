#include "platform/window/ZLFloatingWindow.h"

#include <QRect>
#include <gtest/gtest.h>

namespace {
const QSize panelSize(300, 80);
const QRect screenArea(0, 30, 1280, 770);
}

TEST(ZLFloatingWindowTest, ItStandsBesideThePointerOnTheScreenAndNeverUnderIt)
{
    for (int x = 0; x < 1280; x += 20) {
        for (int y = 30; y < 800; y += 20) {
            const QPoint pointer(x, y);
            const QRect place = ZLFloatingWindow::geometryBeside(pointer, panelSize, screenArea);
            EXPECT_EQ(place.size(), panelSize);
            EXPECT_TRUE(screenArea.contains(place)) << x << ", " << y;
            EXPECT_FALSE(place.contains(pointer)) << x << ", " << y;
        }
    }
}

TEST(ZLFloatingWindowTest, ItStandsBelowThePointerAndAtTheLowerEdgeAboveIt)
{
    EXPECT_EQ(ZLFloatingWindow::geometryBeside({ 640, 400 }, panelSize, screenArea).topLeft(), QPoint(490, 424));
    EXPECT_LT(ZLFloatingWindow::geometryBeside({ 640, 780 }, panelSize, screenArea).bottom(), 780);
}

TEST(ZLFloatingWindowTest, OnAnotherScreenItStaysThere)
{
    const QRect second(1280, 0, 800, 600);
    EXPECT_TRUE(second.contains(ZLFloatingWindow::geometryBeside({ 1285, 20 }, panelSize, second)));
}

TEST(ZLFloatingWindowTest, OnAScreenThatIsTooSmallItsBeginningIsSeen)
{
    EXPECT_EQ(ZLFloatingWindow::geometryBeside({ 50, 30 }, panelSize, { 0, 0, 200, 60 }).topLeft(), QPoint(0, 0));
}

TEST(ZLFloatingWindowTest, PanelsDoNotCoverEachOther)
{
    const QRect screen(0, 0, 1024, 600);
    QList<QRect> places;
    for (int panel = 0; panel < 6; ++panel) {
        const QRect place = ZLFloatingWindow::geometryBesideOthers({ 400, 300, 300, 90 }, places, screen);
        EXPECT_TRUE(screen.contains(place));
        for (const QRect& other : places)
            EXPECT_FALSE(other.intersects(place)) << panel;
        places.append(place);
    }
}
