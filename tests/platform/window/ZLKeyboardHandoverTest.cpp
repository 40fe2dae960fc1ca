#include "platform/window/ZLKeyboardHandover.h"

#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLKeyboardHandoverTest, TheWindowGetsTheKeyboard)
{
    QWindow window;
    window.show();
    QWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    ZLKeyboardHandover::giveTo(window, u"token"_s);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"))
        << "a token is no business of programs started later";
}

TEST(ZLKeyboardHandoverTest, AnIdentifierOfStartupNotificationTellsTheMomentOfTheDeed)
{
    EXPECT_EQ(ZLKeyboardHandover::timeInStartupIdentifier(u"shell/zelta/4711-0-host_TIME123456"_s), 123456U);
    EXPECT_EQ(ZLKeyboardHandover::timeInStartupIdentifier(u"host_TIME4294967295"_s), 4294967295U);
    for (const QString& none : { u""_s, u"2d7280470384ee2e"_s, u"_TIME"_s, u"_TIME12a"_s, u"_TIME99999999999"_s })
        EXPECT_EQ(ZLKeyboardHandover::timeInStartupIdentifier(none), 0U) << qPrintable(none);
}
