#include "platform/window/ZLFloatingWindow.h"

#include "platform/window/ZLXcbWindows.h"

#include <QGuiApplication>
#include <QRect>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int distanceFromPointer = 24;
constexpr int distanceFromOthers = 8;
/// The desktop number that stands for all of them.
constexpr quint32 allDesktops = 0xFFFFFFFF;

}

void ZLFloatingWindow::joinAllDesktops(QWindow& window)
{
    xcb_connection_t* connection = ZLXcbWindows::connection();
    if (!connection)
        return;
    // The window manager reads the desktop when the window is shown, the state for as long as it stands.
    const auto id = xcb_window_t(window.winId());
    ZLXcbWindows::setNumber(connection, id, "_NET_WM_DESKTOP", allDesktops);
    const xcb_atom_t sticky = ZLXcbWindows::atomNamed(connection, "_NET_WM_STATE_STICKY");
    xcb_change_property(connection, XCB_PROP_MODE_APPEND, id, ZLXcbWindows::atomNamed(connection, "_NET_WM_STATE"),
        XCB_ATOM_ATOM, 32, 1, &sticky);
}

bool ZLFloatingWindow::canAppearWithoutKeyboard()
{
    return !QGuiApplication::platformName().startsWith("wayland"_L1);
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

QRect ZLFloatingWindow::geometryBesideOthers(const QRect& place, const QList<QRect>& others, const QRect& available)
{
    const auto isFree = [&](const QRect& candidate) {
        return available.contains(candidate) && std::none_of(others.cbegin(), others.cend(), [&](const QRect& other) {
            return other.intersects(candidate);
        });
    };
    QList<QRect> candidates { place };
    for (const QRect& other : others) {
        candidates += place.translated(0, other.bottom() + 1 + distanceFromOthers - place.top());
        candidates += place.translated(0, other.top() - distanceFromOthers - place.bottom() - 1);
        candidates +=
            place.translated(other.right() + 1 + distanceFromOthers - place.left(), other.top() - place.top());
        candidates +=
            place.translated(other.left() - distanceFromOthers - place.right() - 1, other.top() - place.top());
    }
    const auto found = std::find_if(candidates.cbegin(), candidates.cend(), isFree);
    return found == candidates.cend() ? place : *found;
}
