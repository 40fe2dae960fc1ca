#include "app/ui/ZLModifierState.h"

#include <QEnterEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <gtest/gtest.h>

class ZLModifierStateTest : public testing::Test {
protected:
    void key(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers)
    {
        m_state.noteEvent(QKeyEvent(type, key, modifiers));
    }
    void mouse(QEvent::Type type, Qt::KeyboardModifiers modifiers)
    {
        m_state.noteEvent(
            QMouseEvent(type, QPointF(1, 1), QPointF(1, 1), QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, modifiers));
    }
    void pressAlt() { key(QEvent::KeyPress, Qt::Key_Alt, Qt::NoModifier); }
    [[nodiscard]] bool isHeld() const { return m_state.isOptionKeyHeld(); }

    ZLModifierState m_state;
};

TEST_F(ZLModifierStateTest, AltIsHeldFromItsPressToItsRelease)
{
    EXPECT_FALSE(isHeld());
    pressAlt();
    EXPECT_TRUE(isHeld());
    // A release still reports the modifiers from before it.
    key(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier);
    EXPECT_FALSE(isHeld());
}

TEST_F(ZLModifierStateTest, EveryKeyAndMouseEventTellsAnew)
{
    for (const auto type :
        { QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick, QEvent::MouseMove }) {
        mouse(type, Qt::AltModifier);
        EXPECT_TRUE(isHeld()) << type;
        mouse(type, Qt::ControlModifier);
        EXPECT_FALSE(isHeld()) << type;
    }
    key(QEvent::KeyPress, Qt::Key_A, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_TRUE(isHeld());
    key(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
    EXPECT_FALSE(isHeld());
}

TEST_F(ZLModifierStateTest, AnotherModifierKeyLeavesAltHeld)
{
    pressAlt();
    key(QEvent::KeyPress, Qt::Key_Shift, Qt::AltModifier);
    EXPECT_TRUE(isHeld());
    key(QEvent::KeyRelease, Qt::Key_Shift, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_TRUE(isHeld());
}

TEST_F(ZLModifierStateTest, EventsThatReportNoModifiersChangeNothing)
{
    pressAlt();
    m_state.noteEvent(QEnterEvent(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1)));
    m_state.noteEvent(QEvent(QEvent::Leave));
    m_state.noteEvent(QEvent(QEvent::Timer));
    EXPECT_TRUE(isHeld());
}

TEST_F(ZLModifierStateTest, LeavingTheProgramEndsIt)
{
    pressAlt();
    m_state.forgetKeys();
    EXPECT_FALSE(isHeld());
}

TEST_F(ZLModifierStateTest, OnlyModifierKeysChangeTheModifiers)
{
    for (const int modifier : { Qt::Key_Alt, Qt::Key_AltGr, Qt::Key_Shift, Qt::Key_Control, Qt::Key_Meta }) {
        EXPECT_TRUE(ZLModifierState::changesModifiers(QKeyEvent(QEvent::KeyPress, modifier, Qt::NoModifier)));
        EXPECT_TRUE(ZLModifierState::changesModifiers(QKeyEvent(QEvent::KeyRelease, modifier, Qt::NoModifier)));
    }
    EXPECT_FALSE(ZLModifierState::changesModifiers(QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::AltModifier)));
    EXPECT_FALSE(ZLModifierState::changesModifiers(QKeyEvent(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::NoModifier)));
    EXPECT_FALSE(ZLModifierState::changesModifiers(QEvent(QEvent::MouseButtonPress)));
}
