#include "platform/window/ZLXcbWindows.h"

#include <QGuiApplication>

#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

xcb_connection_t* ZLXcbWindows::connection()
{
    // Other platforms hand out a connection too, one that cannot be used.
    if (QGuiApplication::platformName() != "xcb"_L1)
        return nullptr;
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t ZLXcbWindows::atomNamed(xcb_connection_t* connection, const char* name)
{
    const auto cookie = xcb_intern_atom(connection, 0, quint16(std::strlen(name)), name);
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(connection, cookie, nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(reply);
    return atom;
}

xcb_window_t ZLXcbWindows::rootOf(xcb_connection_t* connection, xcb_window_t window)
{
    xcb_get_geometry_reply_t* reply = xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr);
    const xcb_window_t root = reply ? reply->root : xcb_window_t(XCB_WINDOW_NONE);
    std::free(reply);
    return root;
}

void ZLXcbWindows::setNumber(xcb_connection_t* connection, xcb_window_t window, const char* property, quint32 value)
{
    xcb_change_property(
        connection, XCB_PROP_MODE_REPLACE, window, atomNamed(connection, property), XCB_ATOM_CARDINAL, 32, 1, &value);
}
