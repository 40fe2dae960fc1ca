#include "platform/hotkey/ZLVirtualKeyMap.h"

#include <QSet>

#include <gtest/gtest.h>

TEST(ZLVirtualKeyMap, EveryCodeComesBackFromEachOfItsNames)
{
    QSet<int> keyCodes;
    QSet<int> evdevCodes;
    QSet<QByteArray> xkbNames;
    for (const ZLVirtualKey& key : ZLVirtualKeyMap::keys()) {
        EXPECT_GE(key.keyCode, 0);
        EXPECT_LE(key.keyCode, 127);
        EXPECT_EQ(ZLVirtualKeyMap::keyForKeyCode(key.keyCode), &key) << key.keyCode;
        EXPECT_EQ(ZLVirtualKeyMap::keyForQtKey(key.qtKey, ZLVirtualKeyMap::keypadModifierForKey(key)), &key)
            << key.keyCode;
        keyCodes.insert(key.keyCode);
        evdevCodes.insert(key.evdevCode);
        xkbNames.insert(key.xkbName);
    }
    const auto count = static_cast<qsizetype>(ZLVirtualKeyMap::keys().size());
    EXPECT_EQ(count, 108);
    EXPECT_EQ(keyCodes.size(), count);
    EXPECT_EQ(evdevCodes.size(), count);
    EXPECT_EQ(xkbNames.size(), count);
}

TEST(ZLVirtualKeyMap, KnowsTheKeysOfTheKernelByPosition)
{
    // Virtual key code and the kernel's number of the same key, as its input header lists them.
    const std::pair<int, int> expected[] = {
        { 0x00, 30 }, { 0x06, 44 }, { 0x0c, 16 }, { 0x10, 21 }, { 0x2e, 50 }, // A Z Q Y M
        { 0x12, 2 }, { 0x1d, 11 }, { 0x17, 6 }, { 0x16, 7 }, { 0x1a, 8 }, // 1 0 5 6 7
        { 0x18, 13 }, { 0x1b, 12 }, { 0x2a, 43 }, { 0x32, 41 }, { 0x0a, 86 }, // = - \ ` and the key beside left shift
        { 0x24, 28 }, { 0x30, 15 }, { 0x31, 57 }, { 0x33, 14 }, { 0x35, 1 }, { 0x75, 111 }, // return … forward delete
        { 0x7a, 59 }, { 0x61, 64 }, { 0x6d, 68 }, { 0x67, 87 }, { 0x6f, 88 }, { 0x69, 183 }, { 0x5a, 190 }, // F1 … F20
        { 0x7b, 105 }, { 0x7c, 106 }, { 0x7d, 108 }, { 0x7e, 103 }, // arrows
        { 0x73, 102 }, { 0x77, 107 }, { 0x74, 104 }, { 0x79, 109 }, // home end page up page down
        { 0x52, 82 }, { 0x53, 79 }, { 0x57, 76 }, { 0x5c, 73 }, { 0x4c, 96 }, { 0x41, 83 }, // keypad
        { 0x48, 115 }, { 0x49, 114 }, { 0x4a, 113 }, // volume
    };
    for (const auto& [keyCode, evdevCode] : expected) {
        const ZLVirtualKey* key = ZLVirtualKeyMap::keyForKeyCode(keyCode);
        ASSERT_NE(key, nullptr) << keyCode;
        EXPECT_EQ(key->evdevCode, evdevCode) << keyCode;
    }
}

TEST(ZLVirtualKeyMap, HasNoKeyForOtherNumbers)
{
    EXPECT_EQ(ZLVirtualKeyMap::keyForKeyCode(-1), nullptr);
    EXPECT_EQ(ZLVirtualKeyMap::keyForKeyCode(128), nullptr);
    EXPECT_EQ(ZLVirtualKeyMap::keyForKeyCode(0x37), nullptr);
    EXPECT_EQ(ZLVirtualKeyMap::keyForQtKey(Qt::Key_Hiragana), nullptr);
}

TEST(ZLVirtualKeyMap, TellsTheKeypadFromTheRow)
{
    EXPECT_EQ(ZLVirtualKeyMap::keyForQtKey(Qt::Key_5)->keyCode, 23);
    EXPECT_EQ(ZLVirtualKeyMap::keyForQtKey(Qt::Key_5, Qt::KeypadModifier)->keyCode, 87);
    EXPECT_EQ(ZLVirtualKeyMap::keyForQtKey(Qt::Key_Enter)->keyCode, 76);
    EXPECT_EQ(ZLVirtualKeyMap::keyForQtKey(Qt::Key_Left, Qt::KeypadModifier)->keyCode, 123);
    EXPECT_EQ(ZLVirtualKeyMap::keyForQtKey(Qt::Key_A, Qt::KeypadModifier), nullptr);
}

TEST(ZLVirtualKeyMap, TakesTabWithShiftForTab)
{
    EXPECT_EQ(ZLVirtualKeyMap::keyForQtKey(Qt::Key_Backtab)->keyCode, 48);
}
