#include "platform/window/ZLFloatingWindow.h"

#include <QGuiApplication>
#include <QRect>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int distanceFromPointer = 24;
/// The desktop number that stands for all of them.
constexpr quint32 allDesktops = 0xFFFFFFFF;

xcb_atom_t atomNamed(xcb_connection_t* connection, const char* name)
{
    const auto cookie = xcb_intern_atom(connection, 0, quint16(std::strlen(name)), name);
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(connection, cookie, nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(reply);
    return atom;
}

}

void ZLFloatingWindow::joinAllDesktops(QWindow& window)
{
    // Other platforms hand out a connection too, one that cannot be used.
    if (QGuiApplication::platformName() != "xcb"_L1)
        return;
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* connection = x11 ? x11->connection() : nullptr;
    if (!connection)
        return;
    // The window manager reads the desktop when the window is shown, the state for as long as it stands.
    const auto id = xcb_window_t(window.winId());
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, atomNamed(connection, "_NET_WM_DESKTOP"),
        XCB_ATOM_CARDINAL, 32, 1, &allDesktops);
    const xcb_atom_t sticky = atomNamed(connection, "_NET_WM_STATE_STICKY");
    xcb_change_property(
        connection, XCB_PROP_MODE_APPEND, id, atomNamed(connection, "_NET_WM_STATE"), XCB_ATOM_ATOM, 32, 1, &sticky);
}

QRect ZLFloatingWindow::geometryBeside(const QPoint& pointer, const QSize& size, const QRect& available)
{
    QRect place({}, size);
    place.moveTopLeft(pointer + QPoint(-size.width() / 2, distanceFromPointer));
    if (place.bottom() > available.bottom())
        place.moveBottom(pointer.y() - distanceFromPointer);
    place.moveLeft(
        std::clamp(place.left(), available.left(), std::max(available.left(), available.right() + 1 - size.width())));
    place.moveTop(std::max(place.top(), available.top()));
    return place;
}
