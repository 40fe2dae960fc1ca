#include "platform/hotkey/ZLXcbKeyboard.h"

#include "platform/hotkey/ZLVirtualKeyMap.h"

#include <QGuiApplication>

#include <cstdlib>
#include <memory>

#include <xcb/xcb_keysyms.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

using namespace Qt::StringLiterals;

namespace {

template <auto release>
struct ReleaseBy {
    template <typename Pointee>
    void operator()(Pointee* pointer) const
    {
        release(pointer);
    }
};

using XkbContextPointer = std::unique_ptr<xkb_context, ReleaseBy<xkb_context_unref>>;
using XkbKeymapPointer = std::unique_ptr<xkb_keymap, ReleaseBy<xkb_keymap_unref>>;
using XkbStatePointer = std::unique_ptr<xkb_state, ReleaseBy<xkb_state_unref>>;
using XcbKeySymbolsPointer = std::unique_ptr<xcb_key_symbols_t, ReleaseBy<xcb_key_symbols_free>>;
template <typename Reply>
using XcbAllocated = std::unique_ptr<Reply, ReleaseBy<std::free>>;

/// The dead keys in the order of their keysyms, which Qt keeps in its own numbers, as the accents they print.
constexpr QStringView deadAccents = u"`´^~¯˘˙¨˚˝ˇ¸˛";

xkb_keysym_t unshiftedKeysym(xkb_keymap* keymap, xkb_state* state, xkb_keycode_t keycode)
{
    const xkb_layout_index_t layout = xkb_state_key_get_layout(state, keycode);
    if (layout == XKB_LAYOUT_INVALID)
        return XKB_KEY_NoSymbol;
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap, keycode, layout, 0, &symbols);
    return count == 1 ? symbols[0] : static_cast<xkb_keysym_t>(XKB_KEY_NoSymbol);
}

void applyPrintedKeysym(xkb_keysym_t keysym, ZLKeyboardLayout::Key& key)
{
    const qsizetype dead = static_cast<qsizetype>(keysym) - XKB_KEY_dead_grave;
    if (dead >= 0 && dead < deadAccents.size()) {
        key.text = QString(deadAccents.at(dead));
        key.qtKey = static_cast<Qt::Key>(Qt::Key_Dead_Grave + dead);
        return;
    }
    const char32_t character = xkb_keysym_to_utf32(keysym);
    if (character <= U' ' || character == 0x7f)
        return;
    const QString printed = QString::fromUcs4(&character, 1);
    const QString upper = printed.toUpper();
    // A letter whose capital is two letters stays small, in Qt's numbers too.
    key.text = upper.size() == printed.size() ? upper : printed;
    key.qtKey = static_cast<Qt::Key>(key.text.toUcs4().constFirst());
}

xkb_keycode_t serverKeycode(xkb_keymap* keymap, const ZLVirtualKey& key)
{
    const xkb_keycode_t byName = xkb_keymap_key_by_name(keymap, key.xkbName);
    return byName == XKB_KEYCODE_INVALID ? ZLVirtualKeyMap::xkbKeycodeForKey(key) : byName;
}

quint16 numLockMask(xcb_connection_t* connection)
{
    const XcbKeySymbolsPointer symbols(xcb_key_symbols_alloc(connection));
    const XcbAllocated<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr));
    if (!symbols || !mapping)
        return 0;
    const XcbAllocated<xcb_keycode_t> numLocks(xcb_key_symbols_get_keycode(symbols.get(), XKB_KEY_Num_Lock));
    const xcb_keycode_t* keycodes = xcb_get_modifier_mapping_keycodes(mapping.get());
    const int perModifier = mapping->keycodes_per_modifier;
    for (int index = 0; numLocks && index < 8 * perModifier; ++index) {
        for (const xcb_keycode_t* numLock = numLocks.get(); *numLock != XCB_NO_SYMBOL; ++numLock) {
            if (keycodes[index] == *numLock)
                return static_cast<quint16>(1U << (index / perModifier));
        }
    }
    return 0;
}

}

xcb_connection_t* ZLXcbKeyboard::applicationConnection()
{
    // Asked by name first: the offscreen platform offers a connection, too, and using that one crashes.
    if (!qGuiApp || QGuiApplication::platformName() != "xcb"_L1)
        return nullptr;
    auto* const application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application ? application->connection() : nullptr;
}

void ZLXcbKeyboard::applyServerLayout(xcb_connection_t* connection, QList<ZLKeyboardLayout::Key>& keys)
{
    const XkbContextPointer context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    const int32_t device = xkb_x11_get_core_keyboard_device_id(connection);
    if (!context || device < 0)
        return;
    const XkbKeymapPointer keymap(
        xkb_x11_keymap_new_from_device(context.get(), connection, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap)
        return;
    const XkbStatePointer state(xkb_x11_state_new_from_device(keymap.get(), connection, device));
    if (!state)
        return;
    for (ZLKeyboardLayout::Key& key : keys) {
        const ZLVirtualKey* position = ZLVirtualKeyMap::keyForKeyCode(key.keyCode);
        if (!position)
            continue;
        key.scanCode = serverKeycode(keymap.get(), *position);
        if (position->kind == ZLVirtualKey::Kind::Printing)
            applyPrintedKeysym(unshiftedKeysym(keymap.get(), state.get(), key.scanCode), key);
    }
}

QList<quint16> ZLXcbKeyboard::lockMasks(xcb_connection_t* connection)
{
    const quint16 capsLock = XCB_MOD_MASK_LOCK;
    const quint16 numLock = numLockMask(connection);
    if (numLock == 0)
        return { 0, capsLock };
    return { 0, capsLock, numLock, static_cast<quint16>(capsLock | numLock) };
}
