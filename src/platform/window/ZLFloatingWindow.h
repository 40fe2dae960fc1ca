#pragma once

#include <QList>

class QRect;
class QPoint;
class QSize;
class QWindow;

/// What a small window needs that floats above the windows of other programs.
namespace ZLFloatingWindow {

/// Lets the window show on whichever desktop is the current one. To be called before it is shown. Only X11 has a word
/// for it; a Wayland compositor decides by itself.
void joinAllDesktops(QWindow& window);

/// Whether a window can be shown while the keyboard surely stays where it is. On Wayland that is the compositor's to
/// decide, and many give the keyboard to every new window.
[[nodiscard]] bool canAppearWithoutKeyboard();

/// Where the window goes: beside the pointer, so that the way to it is short, and never under it, so that a keyboard
/// that follows the pointer stays where it is. All in the coordinates of one screen, whose free area is `available`.
[[nodiscard]] QRect geometryBeside(const QPoint& pointer, const QSize& size, const QRect& available);

/// Where the window goes that would stand at `place`, so that it covers none of the `others`: beside, below or above
/// one of them. Stays at `place` where nothing is in the way, or no place is free.
[[nodiscard]] QRect geometryBesideOthers(const QRect& place, const QList<QRect>& others, const QRect& available);

}
