#include "platform/hotkey/ZLVirtualKeyMap.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr ZLVirtualKey printing(int code, quint16 evdevCode, const char* xkbName, const char* keysymName, Qt::Key key)
{
    return { code, evdevCode, xkbName, keysymName, key, ZLVirtualKey::Kind::Printing, nullptr };
}

constexpr ZLVirtualKey named(
    int code, quint16 evdevCode, const char* xkbName, const char* keysymName, Qt::Key key, const char* title)
{
    return { code, evdevCode, xkbName, keysymName, key, ZLVirtualKey::Kind::Named, title };
}

constexpr ZLVirtualKey keypad(
    int code, quint16 evdevCode, const char* xkbName, const char* keysymName, Qt::Key key, const char* title)
{
    return { code, evdevCode, xkbName, keysymName, key, ZLVirtualKey::Kind::Keypad, title };
}

// In the order of the virtual key codes. The code that a Mac calls help is where other keyboards have Insert, and its
// clear is where they have Num Lock.
// clang-format off
constexpr ZLVirtualKey virtualKeys[] = {
    printing(0, 30, "AC01", "a", Qt::Key_A),
    printing(1, 31, "AC02", "s", Qt::Key_S),
    printing(2, 32, "AC03", "d", Qt::Key_D),
    printing(3, 33, "AC04", "f", Qt::Key_F),
    printing(4, 35, "AC06", "h", Qt::Key_H),
    printing(5, 34, "AC05", "g", Qt::Key_G),
    printing(6, 44, "AB01", "z", Qt::Key_Z),
    printing(7, 45, "AB02", "x", Qt::Key_X),
    printing(8, 46, "AB03", "c", Qt::Key_C),
    printing(9, 47, "AB04", "v", Qt::Key_V),
    printing(10, 86, "LSGT", "less", Qt::Key_Less),
    printing(11, 48, "AB05", "b", Qt::Key_B),
    printing(12, 16, "AD01", "q", Qt::Key_Q),
    printing(13, 17, "AD02", "w", Qt::Key_W),
    printing(14, 18, "AD03", "e", Qt::Key_E),
    printing(15, 19, "AD04", "r", Qt::Key_R),
    printing(16, 21, "AD06", "y", Qt::Key_Y),
    printing(17, 20, "AD05", "t", Qt::Key_T),
    printing(18, 2, "AE01", "1", Qt::Key_1),
    printing(19, 3, "AE02", "2", Qt::Key_2),
    printing(20, 4, "AE03", "3", Qt::Key_3),
    printing(21, 5, "AE04", "4", Qt::Key_4),
    printing(22, 7, "AE06", "6", Qt::Key_6),
    printing(23, 6, "AE05", "5", Qt::Key_5),
    printing(24, 13, "AE12", "equal", Qt::Key_Equal),
    printing(25, 10, "AE09", "9", Qt::Key_9),
    printing(26, 8, "AE07", "7", Qt::Key_7),
    printing(27, 12, "AE11", "minus", Qt::Key_Minus),
    printing(28, 9, "AE08", "8", Qt::Key_8),
    printing(29, 11, "AE10", "0", Qt::Key_0),
    printing(30, 27, "AD12", "bracketright", Qt::Key_BracketRight),
    printing(31, 24, "AD09", "o", Qt::Key_O),
    printing(32, 22, "AD07", "u", Qt::Key_U),
    printing(33, 26, "AD11", "bracketleft", Qt::Key_BracketLeft),
    printing(34, 23, "AD08", "i", Qt::Key_I),
    printing(35, 25, "AD10", "p", Qt::Key_P),
    named(36, 28, "RTRN", "Return", Qt::Key_Return, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Return")),
    printing(37, 38, "AC09", "l", Qt::Key_L),
    printing(38, 36, "AC07", "j", Qt::Key_J),
    printing(39, 40, "AC11", "apostrophe", Qt::Key_Apostrophe),
    printing(40, 37, "AC08", "k", Qt::Key_K),
    printing(41, 39, "AC10", "semicolon", Qt::Key_Semicolon),
    printing(42, 43, "BKSL", "backslash", Qt::Key_Backslash),
    printing(43, 51, "AB08", "comma", Qt::Key_Comma),
    printing(44, 53, "AB10", "slash", Qt::Key_Slash),
    printing(45, 49, "AB06", "n", Qt::Key_N),
    printing(46, 50, "AB07", "m", Qt::Key_M),
    printing(47, 52, "AB09", "period", Qt::Key_Period),
    named(48, 15, "TAB", "Tab", Qt::Key_Tab, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Tab")),
    named(49, 57, "SPCE", "space", Qt::Key_Space, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Space")),
    printing(50, 41, "TLDE", "grave", Qt::Key_QuoteLeft),
    named(51, 14, "BKSP", "BackSpace", Qt::Key_Backspace, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Backspace")),
    named(53, 1, "ESC", "Escape", Qt::Key_Escape, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Escape")),
    named(64, 187, "FK17", "F17", Qt::Key_F17, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F17")),
    keypad(65, 83, "KPDL", "KP_Decimal", Qt::Key_Period, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num .")),
    keypad(67, 55, "KPMU", "KP_Multiply", Qt::Key_Asterisk, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num *")),
    keypad(69, 78, "KPAD", "KP_Add", Qt::Key_Plus, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num +")),
    named(71, 69, "NMLK", "Num_Lock", Qt::Key_NumLock, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num Lock")),
    named(72, 115, "VOL+", "XF86AudioRaiseVolume", Qt::Key_VolumeUp, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Volume Up")),
    named(73, 114, "VOL-", "XF86AudioLowerVolume", Qt::Key_VolumeDown, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Volume Down")),
    named(74, 113, "MUTE", "XF86AudioMute", Qt::Key_VolumeMute, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Mute")),
    keypad(75, 98, "KPDV", "KP_Divide", Qt::Key_Slash, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num /")),
    keypad(76, 96, "KPEN", "KP_Enter", Qt::Key_Enter, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num Enter")),
    keypad(78, 74, "KPSU", "KP_Subtract", Qt::Key_Minus, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num -")),
    named(79, 188, "FK18", "F18", Qt::Key_F18, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F18")),
    named(80, 189, "FK19", "F19", Qt::Key_F19, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F19")),
    keypad(81, 117, "KPEQ", "KP_Equal", Qt::Key_Equal, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num =")),
    keypad(82, 82, "KP0", "KP_0", Qt::Key_0, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num 0")),
    keypad(83, 79, "KP1", "KP_1", Qt::Key_1, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num 1")),
    keypad(84, 80, "KP2", "KP_2", Qt::Key_2, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num 2")),
    keypad(85, 81, "KP3", "KP_3", Qt::Key_3, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num 3")),
    keypad(86, 75, "KP4", "KP_4", Qt::Key_4, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num 4")),
    keypad(87, 76, "KP5", "KP_5", Qt::Key_5, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num 5")),
    keypad(88, 77, "KP6", "KP_6", Qt::Key_6, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num 6")),
    keypad(89, 71, "KP7", "KP_7", Qt::Key_7, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num 7")),
    named(90, 190, "FK20", "F20", Qt::Key_F20, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F20")),
    keypad(91, 72, "KP8", "KP_8", Qt::Key_8, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num 8")),
    keypad(92, 73, "KP9", "KP_9", Qt::Key_9, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num 9")),
    printing(93, 124, "AE13", "yen", Qt::Key_yen),
    printing(94, 89, "AB11", "underscore", Qt::Key_Underscore),
    keypad(95, 121, "I129", "KP_Separator", Qt::Key_Comma, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Num ,")),
    named(96, 63, "FK05", "F5", Qt::Key_F5, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F5")),
    named(97, 64, "FK06", "F6", Qt::Key_F6, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F6")),
    named(98, 65, "FK07", "F7", Qt::Key_F7, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F7")),
    named(99, 61, "FK03", "F3", Qt::Key_F3, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F3")),
    named(100, 66, "FK08", "F8", Qt::Key_F8, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F8")),
    named(101, 67, "FK09", "F9", Qt::Key_F9, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F9")),
    named(103, 87, "FK11", "F11", Qt::Key_F11, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F11")),
    named(105, 183, "FK13", "F13", Qt::Key_F13, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F13")),
    named(106, 186, "FK16", "F16", Qt::Key_F16, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F16")),
    named(107, 184, "FK14", "F14", Qt::Key_F14, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F14")),
    named(109, 68, "FK10", "F10", Qt::Key_F10, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F10")),
    named(110, 127, "COMP", "Menu", Qt::Key_Menu, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Menu")),
    named(111, 88, "FK12", "F12", Qt::Key_F12, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F12")),
    named(113, 185, "FK15", "F15", Qt::Key_F15, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F15")),
    named(114, 110, "INS", "Insert", Qt::Key_Insert, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Insert")),
    named(115, 102, "HOME", "Home", Qt::Key_Home, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Home")),
    named(116, 104, "PGUP", "Prior", Qt::Key_PageUp, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Page Up")),
    named(117, 111, "DELE", "Delete", Qt::Key_Delete, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Delete")),
    named(118, 62, "FK04", "F4", Qt::Key_F4, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F4")),
    named(119, 107, "END", "End", Qt::Key_End, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "End")),
    named(120, 60, "FK02", "F2", Qt::Key_F2, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F2")),
    named(121, 109, "PGDN", "Next", Qt::Key_PageDown, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Page Down")),
    named(122, 59, "FK01", "F1", Qt::Key_F1, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "F1")),
    named(123, 105, "LEFT", "Left", Qt::Key_Left, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Left")),
    named(124, 106, "RGHT", "Right", Qt::Key_Right, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Right")),
    named(125, 108, "DOWN", "Down", Qt::Key_Down, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Down")),
    named(126, 103, "UP", "Up", Qt::Key_Up, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Up")),
};
// clang-format on

template <typename Predicate>
const ZLVirtualKey* firstVirtualKey(Predicate predicate)
{
    const auto* const found = std::find_if(std::begin(virtualKeys), std::end(virtualKeys), predicate);
    return found == std::end(virtualKeys) ? nullptr : found;
}

}

std::span<const ZLVirtualKey> ZLVirtualKeyMap::keys()
{
    return virtualKeys;
}

const ZLVirtualKey* ZLVirtualKeyMap::keyForKeyCode(int keyCode)
{
    return firstVirtualKey([keyCode](const ZLVirtualKey& key) { return key.keyCode == keyCode; });
}

const ZLVirtualKey* ZLVirtualKeyMap::keyForQtKey(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    // Tab with Shift has a name of its own in Qt.
    const Qt::Key wanted = key == Qt::Key_Backtab ? Qt::Key_Tab : key;
    const bool onKeypad = modifiers.testFlag(Qt::KeypadModifier);
    const ZLVirtualKey* exact = firstVirtualKey([=](const ZLVirtualKey& candidate) {
        return candidate.qtKey == wanted && (candidate.kind == ZLVirtualKey::Kind::Keypad) == onKeypad;
    });
    if (exact)
        return exact;
    // Qt marks the arrows as keypad keys on some systems, and Enter is on the keypad with or without the mark.
    return firstVirtualKey([=](const ZLVirtualKey& candidate) {
        return candidate.qtKey == wanted && candidate.kind != ZLVirtualKey::Kind::Printing;
    });
}

Qt::KeyboardModifiers ZLVirtualKeyMap::keypadModifierForKey(const ZLVirtualKey& key)
{
    return key.kind == ZLVirtualKey::Kind::Keypad ? Qt::KeypadModifier : Qt::NoModifier;
}
