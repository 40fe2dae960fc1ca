#include "platform/hotkey/ZLXcbKeyboard.h"
#include "platform/hotkey/ZLKeyboardLayout.h"
#include "platform/hotkey/ZLVirtualKeyMap.h"
#include "platform/hotkey/ZLXPeer.h"

#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int keyboardDeadlineMilliseconds = 30000;
constexpr int keyCodeOfZ = 6;
constexpr int keyCodeOfSemicolon = 41;
constexpr int keyCodeOfMinus = 27;
constexpr int keyCodeOfGrave = 50;

}

class ZLXcbKeyboardTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(setLayout({ u"us"_s })); }
    void TearDown() override { ASSERT_TRUE(setLayout({ u"us"_s })); }

    static bool setLayout(const QStringList& arguments)
    {
        QProcess process;
        process.start(u"setxkbmap"_s, arguments);
        return process.waitForFinished(keyboardDeadlineMilliseconds) && process.exitCode() == 0;
    }
};

TEST_F(ZLXcbKeyboardTest, PrintsWhatAUsKeyboardPrints)
{
    const ZLKeyboardLayout layout = ZLKeyboardLayout::current();
    for (const ZLVirtualKey& key : ZLVirtualKeyMap::keys()) {
        // The layout of this server has no key there, or has "less" where the ISO keyboards have it.
        if (key.keyCode == 93 || key.keyCode == 94)
            continue;
        EXPECT_EQ(layout.textForKeyCode(key.keyCode), ZLKeyboardLayout::us().textForKeyCode(key.keyCode))
            << key.keyCode;
        EXPECT_EQ(layout.nativeScanCodeForKeyCode(key.keyCode), key.evdevCode + 8U) << key.keyCode;
    }
}

TEST_F(ZLXcbKeyboardTest, PrintsWhatAGermanKeyboardPrintsAtTheSamePositions)
{
    ASSERT_TRUE(setLayout({ u"de"_s }));
    const ZLKeyboardLayout layout = ZLKeyboardLayout::current();
    EXPECT_EQ(layout.textForKeyCode(keyCodeOfZ), u"Y"_s);
    EXPECT_EQ(layout.textForKeyCode(keyCodeOfSemicolon), u"Ö"_s);
    EXPECT_EQ(layout.textForKeyCode(keyCodeOfMinus), u"ß"_s);
    EXPECT_EQ(layout.textForKeyCode(keyCodeOfGrave), u"^"_s);
    EXPECT_EQ(layout.textForKeyCombo({ keyCodeOfZ, 0x1800 }), u"Ctrl+Alt+Y"_s);
    EXPECT_EQ(layout.keyCombinationForKeyCombo({ keyCodeOfZ, 0x1000 }), Qt::CTRL | Qt::Key_Y);
    EXPECT_EQ(layout.keyCombinationForKeyCombo({ keyCodeOfSemicolon, 0 }), QKeyCombination(Qt::Key_Odiaeresis));
    EXPECT_EQ(layout.keyCombinationForKeyCombo({ keyCodeOfMinus, 0 }), QKeyCombination(Qt::Key_ssharp));
    EXPECT_EQ(layout.keyCombinationForKeyCombo({ keyCodeOfGrave, 0 }), QKeyCombination(Qt::Key_Dead_Circumflex));
    EXPECT_EQ(layout.keyComboForKeyCombination(Qt::CTRL | Qt::Key_Y), (ZLKeyCombo { keyCodeOfZ, 0x1000 }));
    EXPECT_EQ(layout.nativeScanCodeForKeyCode(keyCodeOfZ), 52U);
}

TEST_F(ZLXcbKeyboardTest, FollowsTheGroupInForce)
{
    ASSERT_TRUE(setLayout({ u"us,ru"_s }));
    ZLXPeer peer;
    EXPECT_EQ(ZLKeyboardLayout::current().textForKeyCode(keyCodeOfZ), u"Z"_s);
    peer.lockGroup(1);
    EXPECT_EQ(ZLKeyboardLayout::current().textForKeyCode(keyCodeOfZ), u"Я"_s);
    peer.lockGroup(0);
    EXPECT_EQ(ZLKeyboardLayout::current().textForKeyCode(keyCodeOfZ), u"Z"_s);
}

TEST_F(ZLXcbKeyboardTest, FindsKeysByNameWhereTheServerNumbersThemOtherwise)
{
    // The key codes of older servers: the arrows and the keys around them have other numbers.
    ASSERT_TRUE(setLayout({ u"-keycodes"_s, u"xfree86"_s, u"us"_s }));
    const ZLKeyboardLayout layout = ZLKeyboardLayout::current();
    EXPECT_EQ(layout.nativeScanCodeForKeyCode(126), 98U);
    EXPECT_EQ(layout.keyCodeForNativeScanCode(98), 126);
    EXPECT_EQ(layout.nativeScanCodeForKeyCode(keyCodeOfZ), 52U);
    ASSERT_TRUE(setLayout({ u"-keycodes"_s, u"evdev"_s, u"us"_s }));
    EXPECT_EQ(ZLKeyboardLayout::current().nativeScanCodeForKeyCode(126), 111U);
}

TEST_F(ZLXcbKeyboardTest, FindsTheModifierOfNumLock)
{
    xcb_connection_t* connection = ZLXcbKeyboard::applicationConnection();
    ASSERT_NE(connection, nullptr);
    EXPECT_EQ(ZLXcbKeyboard::lockMasks(connection), (QList<quint16> { 0, 0x02, 0x10, 0x12 }));
    ZLXPeer peer;
    peer.moveModifier(4, 5);
    EXPECT_EQ(ZLXcbKeyboard::lockMasks(connection), (QList<quint16> { 0, 0x02, 0x20, 0x22 }));
}
