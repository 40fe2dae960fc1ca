#include "platform/window/ZLApplicationFocus.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>

class ZLApplicationFocusTest : public testing::Test {
protected:
    /// Shows the window and gives it the keyboard.
    static void show(QWindow& window)
    {
        window.show();
        window.requestActivate();
        ASSERT_TRUE(QTest::qWaitFor([&window] { return QGuiApplication::focusWindow() == &window; }));
    }
    [[nodiscard]] QList<bool> changes() const
    {
        QList<bool> all;
        for (const auto& change : m_changes)
            all.append(change.first().toBool());
        return all;
    }

    ZLApplicationFocus m_focus;
    QSignalSpy m_changes { &m_focus, &ZLApplicationFocus::didChange };
};

TEST_F(ZLApplicationFocusTest, TheProgramIsInFrontWhileAWindowHasTheKeyboard)
{
    EXPECT_FALSE(ZLApplicationFocus::isActive());
    QWindow window;
    show(window);
    EXPECT_TRUE(ZLApplicationFocus::isActive());
    EXPECT_EQ(changes(), QList<bool> { true });
}

TEST_F(ZLApplicationFocusTest, AWindowThatIsClosedTakesTheKeyboardAlong)
{
    QWindow window;
    show(window);
    window.close();
    EXPECT_FALSE(ZLApplicationFocus::isActive());
    EXPECT_TRUE(QTest::qWaitFor([this] { return changes() == QList<bool> { true, false }; }));
}

TEST_F(ZLApplicationFocusTest, AWindowThatIsDeletedTakesTheKeyboardAlong)
{
    auto window = std::make_unique<QWindow>();
    show(*window);
    window.reset();
    EXPECT_FALSE(ZLApplicationFocus::isActive());
    EXPECT_TRUE(QTest::qWaitFor([this] { return changes() == QList<bool> { true, false }; }));
}

TEST_F(ZLApplicationFocusTest, FromOneWindowToAnotherTheProgramStaysInFront)
{
    QWindow first;
    QWindow second;
    show(first);
    show(second);
    second.close();
    show(first);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_focus.findChild<QTimer*>()->isActive(); }));
    EXPECT_TRUE(ZLApplicationFocus::isActive());
    EXPECT_EQ(changes(), QList<bool> { true });
}
