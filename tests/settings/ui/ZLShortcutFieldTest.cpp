#include "settings/ui/ZLShortcutField.h"

#include "platform/hotkey/ZLVirtualKeyMap.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLShortcutFieldTest : public testing::Test {
protected:
    void SetUp() override
    {
        auto* column = new QVBoxLayout(&m_window);
        column->addWidget(m_field);
        column->addWidget(m_neighbour);
        m_field->setKeyboardLayout(ZLKeyboardLayout::us());
        m_window.show();
        m_window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_field->setFocus();
    }

    static ZLKeyCombo combo(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        return { ZLVirtualKeyMap::keyForQtKey(key, modifiers)->keyCode,
            ZLKeyCombo::modifiersFromKeyboardModifiers(modifiers) };
    }
    void send(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, int keyCode, bool isRepeat = false)
    {
        const quint32 scanCode = ZLKeyboardLayout::us().nativeScanCodeForKeyCode(keyCode).value();
        QKeyEvent event(type, key, modifiers, scanCode, 0, 0, {}, isRepeat);
        QCoreApplication::sendEvent(m_field, &event);
    }

    QWidget m_window;
    ZLShortcutField* m_field = new ZLShortcutField(&m_window);
    QLineEdit* m_neighbour = new QLineEdit(&m_window);
    QSignalSpy m_starts { m_field, &ZLShortcutField::recordingDidStart };
    QSignalSpy m_changes { m_field, &ZLShortcutField::keyComboDidChange };
    QSignalSpy m_ends { m_field, &ZLShortcutField::recordingDidEnd };
    QSignalSpy m_refusals { m_field, &ZLShortcutField::didRefuse };
};

TEST_F(ZLShortcutFieldTest, AClickRecordsTheNextCombination)
{
    QTest::mouseClick(m_field, Qt::LeftButton);
    EXPECT_TRUE(m_field->isRecording());
    EXPECT_EQ(m_starts.size(), 1);
    QTest::keyClick(m_field, Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(m_field->keyCombo(), combo(Qt::Key_M, Qt::ControlModifier | Qt::AltModifier));
    EXPECT_FALSE(m_field->isRecording());
    EXPECT_EQ(m_changes.size(), 1);
    EXPECT_EQ(m_ends.size(), 1);
    EXPECT_EQ(m_field->text(), u"Ctrl+Alt+M"_s);
}

TEST_F(ZLShortcutFieldTest, SpaceStartsAndEscapeLeavesEverythingAsItWas)
{
    m_field->setKeyCombo(combo(Qt::Key_F6));
    QTest::keyClick(m_field, Qt::Key_Space);
    EXPECT_TRUE(m_field->isRecording());
    QTest::keyClick(m_field, Qt::Key_Escape);
    EXPECT_FALSE(m_field->isRecording());
    EXPECT_EQ(m_field->keyCombo(), combo(Qt::Key_F6));
    EXPECT_EQ(m_changes.size(), 0);
    EXPECT_EQ(m_ends.size(), 1);
}

TEST_F(ZLShortcutFieldTest, AnotherClickEndsTheRecording)
{
    m_field->click();
    m_field->click();
    EXPECT_FALSE(m_field->isRecording());
    EXPECT_EQ(m_changes.size(), 0);
}

TEST_F(ZLShortcutFieldTest, BackspaceClearsWithAndWithoutRecording)
{
    m_field->setKeyCombo(combo(Qt::Key_F6));
    m_field->startRecording();
    QTest::keyClick(m_field, Qt::Key_Backspace);
    EXPECT_EQ(m_field->keyCombo(), std::nullopt);
    EXPECT_FALSE(m_field->isRecording());
    EXPECT_EQ(m_changes.size(), 1);

    m_field->setKeyCombo(combo(Qt::Key_F7));
    QTest::keyClick(m_field, Qt::Key_Backspace);
    EXPECT_EQ(m_field->keyCombo(), std::nullopt);
    EXPECT_EQ(m_changes.size(), 2);
    EXPECT_EQ(m_field->text(), u"None"_s);
}

TEST_F(ZLShortcutFieldTest, ClearingAnEmptyFieldChangesNothing)
{
    QTest::keyClick(m_field, Qt::Key_Backspace);
    EXPECT_EQ(m_changes.size(), 0);
}

TEST_F(ZLShortcutFieldTest, BackspaceWithAModifierIsACombination)
{
    m_field->startRecording();
    QTest::keyClick(m_field, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(m_field->keyCombo(), combo(Qt::Key_Backspace, Qt::ControlModifier));
}

TEST_F(ZLShortcutFieldTest, WhatPeopleTypeWithIsRefusedWithAHint)
{
    m_field->startRecording();
    for (const Qt::Key key : { Qt::Key_M, Qt::Key_5, Qt::Key_Space, Qt::Key_Return, Qt::Key_Left, Qt::Key_Home }) {
        QTest::keyClick(m_field, key);
        QTest::keyClick(m_field, key, Qt::ShiftModifier);
    }
    EXPECT_EQ(m_refusals.size(), 12);
    EXPECT_FALSE(m_refusals.first().first().toString().isEmpty());
    EXPECT_TRUE(m_field->isRecording());
    EXPECT_EQ(m_field->keyCombo(), std::nullopt);
    QTest::keyClick(m_field, Qt::Key_F9);
    EXPECT_EQ(m_field->keyCombo(), combo(Qt::Key_F9));
}

TEST_F(ZLShortcutFieldTest, FunctionKeysNeedNoModifier)
{
    EXPECT_FALSE(ZLShortcutField::wouldBlockTyping(combo(Qt::Key_F1)));
    EXPECT_FALSE(ZLShortcutField::wouldBlockTyping(combo(Qt::Key_F20)));
    EXPECT_FALSE(ZLShortcutField::wouldBlockTyping(combo(Qt::Key_F5, Qt::ShiftModifier)));
    EXPECT_FALSE(ZLShortcutField::wouldBlockTyping(combo(Qt::Key_M, Qt::MetaModifier)));
    EXPECT_TRUE(ZLShortcutField::wouldBlockTyping(combo(Qt::Key_M, Qt::ShiftModifier)));
    EXPECT_TRUE(ZLShortcutField::wouldBlockTyping({ 5000, 0 }));
}

TEST_F(ZLShortcutFieldTest, TheCombinationCountsWhenItsKeyIsLetGo)
{
    m_field->startRecording();
    QTest::keyPress(m_field, Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(m_field->text(), u"Ctrl+M"_s);
    EXPECT_TRUE(m_field->isRecording());
    EXPECT_EQ(m_changes.size(), 0);
    QTest::keyRelease(m_field, Qt::Key_M);
    EXPECT_EQ(m_field->keyCombo(), combo(Qt::Key_M, Qt::ControlModifier));
}

TEST_F(ZLShortcutFieldTest, AKeyThatRepeatsIsStillHeld)
{
    const int keyCode = combo(Qt::Key_M).keyCode;
    m_field->startRecording();
    send(QEvent::KeyPress, Qt::Key_M, Qt::ControlModifier, keyCode);
    send(QEvent::KeyRelease, Qt::Key_M, Qt::ControlModifier, keyCode, true);
    send(QEvent::KeyPress, Qt::Key_M, Qt::ControlModifier, keyCode, true);
    EXPECT_TRUE(m_field->isRecording());
    EXPECT_EQ(m_changes.size(), 0);
    send(QEvent::KeyRelease, Qt::Key_M, Qt::ControlModifier, keyCode);
    EXPECT_EQ(m_changes.size(), 1);
}

TEST_F(ZLShortcutFieldTest, ThePlaceOfTheKeyIsRecordedAndNotItsCharacter)
{
    // The key right of P types "ü" on a German keyboard, and with Shift another character again.
    const int keyCode = combo(Qt::Key_BracketLeft).keyCode;
    m_field->startRecording();
    send(QEvent::KeyPress, Qt::Key_Udiaeresis, Qt::ControlModifier | Qt::ShiftModifier, keyCode);
    send(QEvent::KeyRelease, Qt::Key_Udiaeresis, Qt::ControlModifier | Qt::ShiftModifier, keyCode);
    EXPECT_EQ(m_field->keyCombo(), (ZLKeyCombo { keyCode, ZLHotKeyModifier::control | ZLHotKeyModifier::shift }));
}

TEST_F(ZLShortcutFieldTest, TheTextFollowsTheKeyboardLayout)
{
    m_field->setKeyCombo(combo(Qt::Key_BracketLeft, Qt::ControlModifier));
    EXPECT_EQ(m_field->text(), u"Ctrl+["_s);
    QList<ZLKeyboardLayout::Key> german = ZLKeyboardLayout::us().keys();
    for (ZLKeyboardLayout::Key& key : german) {
        if (key.qtKey == Qt::Key_BracketLeft)
            key.text = u"Ü"_s;
    }
    m_field->setKeyboardLayout(ZLKeyboardLayout(german));
    EXPECT_EQ(m_field->text(), u"Ctrl+Ü"_s);
}

TEST_F(ZLShortcutFieldTest, HeldModifiersAreShown)
{
    m_field->startRecording();
    EXPECT_EQ(m_field->text(), u"Press the keys…"_s);
    send(QEvent::KeyPress, Qt::Key_Control, {}, combo(Qt::Key_F1).keyCode);
    EXPECT_EQ(m_field->text(), u"Ctrl+…"_s);
    send(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier, combo(Qt::Key_F1).keyCode);
    EXPECT_EQ(m_field->text(), u"Press the keys…"_s);
    EXPECT_TRUE(m_field->isRecording());
}

TEST_F(ZLShortcutFieldTest, TabLeavesTheFieldForItsNeighbour)
{
    m_field->startRecording();
    QTest::keyClick(m_field, Qt::Key_Tab);
    EXPECT_FALSE(m_field->isRecording());
    EXPECT_EQ(m_window.focusWidget(), m_neighbour);
    EXPECT_EQ(m_changes.size(), 0);
}

TEST_F(ZLShortcutFieldTest, LosingTheKeyboardEndsTheRecording)
{
    m_field->startRecording();
    m_neighbour->setFocus();
    EXPECT_FALSE(m_field->isRecording());
    EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
    m_field->startRecording();
    m_field->hide();
    EXPECT_FALSE(m_field->isRecording());
    EXPECT_EQ(m_ends.size(), 2);
}

TEST_F(ZLShortcutFieldTest, NoShortcutOfTheWindowTakesTheKeysAway)
{
    QAction action;
    action.setShortcut(QKeySequence(u"Ctrl+M"_s));
    m_window.addAction(&action);
    const QSignalSpy triggers(&action, &QAction::triggered);
    m_field->startRecording();
    QTest::keyClick(m_field, Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(triggers.size(), 0);
    EXPECT_EQ(m_field->keyCombo(), combo(Qt::Key_M, Qt::ControlModifier));
    QTest::keyClick(m_field, Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(triggers.size(), 1);
}

TEST_F(ZLShortcutFieldTest, AScreenReaderHearsWhatTheShortcutIsFor)
{
    m_field->setTitle(u"New Chapter"_s);
    EXPECT_EQ(m_field->accessibleName(), u"New Chapter: None"_s);
    m_field->setKeyCombo(combo(Qt::Key_F6));
    EXPECT_EQ(m_field->accessibleName(), u"New Chapter: F6"_s);
    m_field->startRecording();
    EXPECT_EQ(m_field->accessibleName(), u"New Chapter: Press the keys…"_s);
}

TEST_F(ZLShortcutFieldTest, ACodeThatNoKeyHasIsShownAsUnknown)
{
    m_field->setKeyCombo(ZLKeyCombo { 5000, 0 });
    EXPECT_EQ(m_field->text(), u"Unknown key"_s);
}
