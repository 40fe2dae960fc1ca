#include "platform/hotkey/ZLKeyboardLayout.h"
#include "platform/hotkey/ZLVirtualKeyMap.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLKeyboardLayout, IsTheUsOneWhereNoSystemSaysOtherwise)
{
    EXPECT_EQ(ZLKeyboardLayout::current(), ZLKeyboardLayout::us());
}

TEST(ZLKeyboardLayout, CallsKeysByWhatTheyPrintOrByName)
{
    const ZLKeyboardLayout layout = ZLKeyboardLayout::us();
    EXPECT_EQ(layout.textForKeyCode(46), u"M"_s);
    EXPECT_EQ(layout.textForKeyCode(18), u"1"_s);
    EXPECT_EQ(layout.textForKeyCode(50), u"`"_s);
    EXPECT_EQ(layout.textForKeyCode(49), u"Space"_s);
    EXPECT_EQ(layout.textForKeyCode(97), u"F6"_s);
    EXPECT_EQ(layout.textForKeyCode(116), u"Page Up"_s);
    EXPECT_EQ(layout.textForKeyCode(89), u"Num 7"_s);
    EXPECT_EQ(layout.textForKeyCode(55), QString());
}

TEST(ZLKeyboardLayout, SpellsAWholeCombination)
{
    const ZLKeyboardLayout layout = ZLKeyboardLayout::us();
    EXPECT_EQ(layout.textForKeyCombo({ 46, 0x1800 }), u"Ctrl+Alt+M"_s);
    EXPECT_EQ(layout.textForKeyCombo({ 46, 0x1b00 }), u"Super+Ctrl+Alt+Shift+M"_s);
    EXPECT_EQ(layout.textForKeyCombo({ 97, 0 }), u"F6"_s);
    EXPECT_EQ(layout.textForKeyCombo({ 55, 0x100 }), QString());
}

TEST(ZLKeyboardLayout, EveryCombinationComesBackFromQtAndFromItsScanCode)
{
    const ZLKeyboardLayout layout = ZLKeyboardLayout::us();
    for (const ZLVirtualKey& key : ZLVirtualKeyMap::keys()) {
        const ZLKeyCombo combo { key.keyCode, 0x1200 };
        const auto combination = layout.keyCombinationForKeyCombo(combo);
        ASSERT_TRUE(combination.has_value()) << key.keyCode;
        EXPECT_EQ(layout.keyComboForKeyCombination(*combination), combo) << key.keyCode;
        const auto scanCode = layout.nativeScanCodeForKeyCode(key.keyCode);
        ASSERT_TRUE(scanCode.has_value()) << key.keyCode;
        EXPECT_EQ(layout.keyCodeForNativeScanCode(*scanCode), key.keyCode);
    }
}

TEST(ZLKeyboardLayout, GivesMenuShortcuts)
{
    const ZLKeyboardLayout layout = ZLKeyboardLayout::us();
    EXPECT_EQ(layout.keyCombinationForKeyCombo({ 46, 0x1800 }), Qt::CTRL | Qt::ALT | Qt::Key_M);
    EXPECT_EQ(layout.keyCombinationForKeyCombo({ 87, 0x100 }), (Qt::MetaModifier | Qt::KeypadModifier) | Qt::Key_5);
    EXPECT_FALSE(layout.keyCombinationForKeyCombo({ 200, 0 }).has_value());
    EXPECT_EQ(layout.keyComboForKeyCombination(Qt::ALT | Qt::Key_Enter), (ZLKeyCombo { 76, 0x800 }));
    EXPECT_EQ(layout.keyComboForKeyCombination(Qt::SHIFT | Qt::Key_Backtab), (ZLKeyCombo { 48, 0x200 }));
    EXPECT_FALSE(layout.keyComboForKeyCombination(QKeyCombination(Qt::Key_Odiaeresis)).has_value());
    EXPECT_FALSE(layout.keyCodeForNativeScanCode(0).has_value());
}
