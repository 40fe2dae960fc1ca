#include "platform/window/ZLWindowInFront.h"

#include <QGuiApplication>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

TEST(ZLWindowInFrontTest, AMinimizedWindowIsShownAgainAndGetsTheKeyboard)
{
    QWindow behind;
    QWindow front;
    behind.showMinimized();
    front.show();
    front.requestActivate();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == &front; }));
    ZLWindowInFront::bring(behind);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QGuiApplication::focusWindow() == &behind; }));
    EXPECT_FALSE(behind.windowStates() & Qt::WindowMinimized);
}

TEST(ZLWindowInFrontTest, AMaximizedWindowStaysSo)
{
    QWindow window;
    window.showMaximized();
    window.setWindowStates(Qt::WindowMaximized | Qt::WindowMinimized);
    ZLWindowInFront::bring(window);
    EXPECT_EQ(window.windowStates(), Qt::WindowMaximized);
}
