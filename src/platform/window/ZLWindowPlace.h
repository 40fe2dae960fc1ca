#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

/// Where a window goes, so that it can be reached as a whole. A place is that of the upper left corner of its frame, a
/// size is that of its contents; `available` is the free area of a screen. What window managers draw around a window is
/// allowed for, since they do so only when it is shown.
namespace ZLWindowPlace {

/// How far a new window stands from the one before, to the right and down.
inline constexpr QPoint step { 32, 32 };

/// The largest contents for which a window at this place has room.
[[nodiscard]] QSize roomAt(QPoint place, const QRect& available);

/// The place and size nearest to these with which the window is on the screen as a whole.
[[nodiscard]] QRect fitted(QPoint place, QSize size, const QRect& available);

/// Where the contents of a window stand again that were at `contents`: there, or as near as the window is on the screen
/// as a whole. What was returned is returned unchanged, so that no window wanders from start to start.
[[nodiscard]] QRect returned(const QRect& contents, const QRect& available);

/// Beside the window at `front` and not upon one at a place in `taken`. The window becomes smaller where there is no
/// room for it, but not smaller than `least`: rather it begins again at the upper edge.
[[nodiscard]] QRect cascaded(QPoint front, QSize size, QSize least, const QList<QPoint>& taken, const QRect& available);

}
