#include "platform/hotkey/ZLXPeer.h"

#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

#include <xcb/xcb.h>
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace {

constexpr int peerDeadlineMilliseconds = 30000;

struct PeerRelease {
    void operator()(void* pointer) const { std::free(pointer); }
};
template <typename Reply>
using PeerReply = std::unique_ptr<Reply, PeerRelease>;

bool isViewable(xcb_connection_t* connection, xcb_window_t window)
{
    const PeerReply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool hasFocus(xcb_connection_t* connection, xcb_window_t window)
{
    const PeerReply<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    return focus && focus->focus == window;
}

}

ZLXPeer::ZLXPeer()
    : m_connection(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_connection))
        qFatal("the peer has no connection to the X server");
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    m_root = screen->root;
    m_window = xcb_generate_id(m_connection);
    const quint32 values[] = { XCB_EVENT_MASK_KEY_PRESS };
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, m_root, 0, 0, 100, 100, 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_EVENT_MASK, values);
    xcb_map_window(m_connection, m_window);
    xcb_flush(m_connection);
    const PeerReply<xcb_xkb_use_extension_reply_t> xkb(xcb_xkb_use_extension_reply(
        m_connection, xcb_xkb_use_extension(m_connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION), nullptr));
}

ZLXPeer::~ZLXPeer()
{
    xcb_disconnect(m_connection);
}

bool ZLXPeer::takeFocus()
{
    return QTest::qWaitFor(
        [this] {
            if (!isViewable(m_connection, m_window))
                return false;
            if (hasFocus(m_connection, m_window))
                return true;
            xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
            return hasFocus(m_connection, m_window);
        },
        peerDeadlineMilliseconds);
}

QList<quint8> ZLXPeer::receivedKeycodes()
{
    // An answer to a question comes after every event that the server had for this client by then.
    (void)modifierState();
    while (const PeerReply<xcb_generic_event_t> event { xcb_poll_for_event(m_connection) }) {
        if (event->response_type == XCB_KEY_PRESS)
            m_received.append(reinterpret_cast<xcb_key_press_event_t*>(event.get())->detail);
    }
    return m_received;
}

bool ZLXPeer::grabKey(quint8 keycode, quint16 modifiers)
{
    const PeerReply<xcb_generic_error_t> error(xcb_request_check(m_connection,
        xcb_grab_key_checked(m_connection, 0, m_root, modifiers, keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !error;
}

void ZLXPeer::releaseKey(quint8 keycode, quint16 modifiers)
{
    xcb_ungrab_key(m_connection, keycode, m_root, modifiers);
    (void)modifierState();
}

quint16 ZLXPeer::modifierState()
{
    const PeerReply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, m_root), nullptr));
    return pointer ? pointer->mask & 0xffU : 0;
}

void ZLXPeer::lockGroup(quint8 group)
{
    xcb_xkb_latch_lock_state(m_connection, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
    (void)modifierState();
}

void ZLXPeer::moveModifier(int from, int to)
{
    const PeerReply<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(m_connection, xcb_get_modifier_mapping(m_connection), nullptr));
    const int width = mapping->keycodes_per_modifier;
    const xcb_keycode_t* old = xcb_get_modifier_mapping_keycodes(mapping.get());
    std::vector<xcb_keycode_t> keycodes(old, old + 8 * width);
    std::swap_ranges(
        keycodes.begin() + from * width, keycodes.begin() + (from + 1) * width, keycodes.begin() + to * width);
    const PeerReply<xcb_set_modifier_mapping_reply_t> done(xcb_set_modifier_mapping_reply(
        m_connection, xcb_set_modifier_mapping(m_connection, static_cast<quint8>(width), keycodes.data()), nullptr));
}

void ZLXPeer::forgeKeyPress(quint8 keycode)
{
    xcb_key_press_event_t event {};
    event.response_type = XCB_KEY_PRESS;
    event.detail = keycode;
    event.root = m_root;
    event.event = m_root;
    event.same_screen = 1;
    xcb_send_event(m_connection, 0, m_root,
        XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE,
        reinterpret_cast<const char*>(&event));
    (void)modifierState();
}
