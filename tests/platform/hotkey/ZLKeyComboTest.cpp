#include "platform/hotkey/ZLKeyCombo.h"
#include "platform/hotkey/ZLHotKey.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 storedShift = 0x20000;
constexpr quint32 storedControl = 0x40000;
constexpr quint32 storedOption = 0x80000;
constexpr quint32 storedCommand = 0x100000;

}

TEST(ZLKeyCombo, MovesEachModifierToItsHotKeyBit)
{
    EXPECT_EQ(ZLKeyCombo::modifiersFromStoredFlags(storedCommand), 0x100U);
    EXPECT_EQ(ZLKeyCombo::modifiersFromStoredFlags(storedShift), 0x200U);
    EXPECT_EQ(ZLKeyCombo::modifiersFromStoredFlags(storedOption), 0x800U);
    EXPECT_EQ(ZLKeyCombo::modifiersFromStoredFlags(storedControl), 0x1000U);
    EXPECT_EQ(ZLKeyCombo::modifiersFromStoredFlags(0), 0U);
}

TEST(ZLKeyCombo, CombinesCommandAndOption)
{
    EXPECT_EQ(ZLKeyCombo::modifiersFromStoredFlags(storedCommand | storedOption), 0x900U);
}

TEST(ZLKeyCombo, DropsEveryOtherStoredBit)
{
    const quint32 capsLock = 0x10000;
    EXPECT_EQ(ZLKeyCombo::modifiersFromStoredFlags(storedCommand | storedOption | capsLock), 0x900U);
    const quint32 all = storedCommand | storedShift | storedOption | storedControl;
    EXPECT_EQ(ZLKeyCombo::modifiersFromStoredFlags(~all), 0U);
    EXPECT_EQ(ZLKeyCombo::modifiersFromStoredFlags(0xffffffff), 0x1b00U);
}

TEST(ZLKeyCombo, EveryModifierSetComesBackFromStoredFlagsAndFromQt)
{
    for (quint32 set = 0; set < 16; ++set) {
        const quint32 modifiers =
            (set & 1U ? 0x100U : 0U) | (set & 2U ? 0x200U : 0U) | (set & 4U ? 0x800U : 0U) | (set & 8U ? 0x1000U : 0U);
        const ZLKeyCombo combo { 46, modifiers };
        EXPECT_EQ(ZLKeyCombo::modifiersFromStoredFlags(combo.storedModifierFlags()), modifiers);
        EXPECT_EQ(ZLKeyCombo::modifiersFromKeyboardModifiers(combo.keyboardModifiers()), modifiers);
        EXPECT_EQ(ZLKeyCombo::fromShortcutDictionary(combo.shortcutDictionary()), combo);
    }
}

TEST(ZLKeyCombo, CommandIsSuperAndOptionIsAlt)
{
    EXPECT_EQ((ZLKeyCombo { 0, ZLHotKeyModifier::command }.keyboardModifiers()), Qt::MetaModifier);
    EXPECT_EQ((ZLKeyCombo { 0, ZLHotKeyModifier::option }.keyboardModifiers()), Qt::AltModifier);
    EXPECT_EQ((ZLKeyCombo { 0, ZLHotKeyModifier::control }.keyboardModifiers()), Qt::ControlModifier);
    EXPECT_EQ((ZLKeyCombo { 0, ZLHotKeyModifier::shift }.keyboardModifiers()), Qt::ShiftModifier);
    EXPECT_EQ(ZLKeyCombo::modifiersFromKeyboardModifiers(Qt::KeypadModifier | Qt::GroupSwitchModifier), 0U);
}

TEST(ZLHotKey, IsMadeFromARecordedShortcut)
{
    const ZLHotKey hotKey = ZLHotKey::hotKeyWithIdentifier(
        u"act"_s, { { u"keyCode"_s, 46 }, { u"modifierFlags"_s, 0x180000U | 0x10000U }, { u"characters"_s, u"m"_s } });
    EXPECT_EQ(hotKey.identifier, u"act"_s);
    EXPECT_EQ(hotKey.keyCombo, (ZLKeyCombo { 46, 0x900 }));
    EXPECT_EQ(hotKey.state, ZLHotKey::State::Unregistered);
}

TEST(ZLHotKey, ReadsMissingEntriesAsZero)
{
    EXPECT_EQ(ZLHotKey::hotKeyWithIdentifier(u"act"_s, {}).keyCombo, (ZLKeyCombo { 0, 0 }));
    EXPECT_EQ(ZLHotKey::hotKeyWithIdentifier(u"act"_s, { { u"keyCode"_s, 7 } }).keyCombo, (ZLKeyCombo { 7, 0 }));
    EXPECT_EQ(ZLHotKey::hotKeyWithIdentifier(u"act"_s, { { u"modifierFlags"_s, 0x20000 } }).keyCombo,
        (ZLKeyCombo { 0, 0x200 }));
}

TEST(ZLHotKey, ReadsEntriesThatCameBackFromSettingsAsText)
{
    const ZLHotKey hotKey =
        ZLHotKey::hotKeyWithIdentifier(u"act"_s, { { u"keyCode"_s, u"-1"_s }, { u"modifierFlags"_s, u"1179648"_s } });
    EXPECT_EQ(hotKey.keyCombo, (ZLKeyCombo { -1, 0x300 }));
}

TEST(ZLHotKey, AltIsAmongItsKeysAsRecordedOrAsTheDesktopNamesThem)
{
    ZLHotKey hotKey;
    hotKey.keyCombo = { 46, ZLHotKeyModifier::control };
    EXPECT_FALSE(hotKey.containsOptionKey());
    hotKey.keyCombo.modifiers |= ZLHotKeyModifier::option;
    EXPECT_TRUE(hotKey.containsOptionKey());
    hotKey.desktopTrigger = u"Press F12"_s;
    EXPECT_FALSE(hotKey.containsOptionKey()) << "the user has chosen other keys";
    hotKey.desktopTrigger = u"Press CTRL+ALT+m"_s;
    EXPECT_TRUE(hotKey.containsOptionKey());
    hotKey.desktopTrigger = u"Press <Control>Halt"_s;
    EXPECT_FALSE(hotKey.containsOptionKey());
}
