#pragma once

#include <QtGlobal>

#include <xcb/xcb.h>

class QWindow;

/// The program's windows as the X server knows them.
namespace ZLXcbWindows {

/// The program's own connection to the X server; null on other platforms.
[[nodiscard]] xcb_connection_t* connection();
[[nodiscard]] xcb_atom_t atomNamed(xcb_connection_t* connection, const char* name);
[[nodiscard]] xcb_window_t rootOf(xcb_connection_t* connection, xcb_window_t window);
/// Puts one number into a property of the window.
void setNumber(xcb_connection_t* connection, xcb_window_t window, const char* property, quint32 value);

}
