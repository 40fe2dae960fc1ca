#pragma once

#include <QString>

class QWindow;

/// Gives the keyboard to a window of this program because of something that the user did elsewhere, such as pressing a
/// button of a notification.
namespace ZLKeyboardHandover {

/// Asks the window manager or compositor, which may refuse. `activationToken` is what the other program handed on for
/// this: a token of the compositor's on Wayland, an identifier of startup notification on X11; empty where it had none.
void giveTo(QWindow& window, const QString& activationToken);

/// The moment of the user's deed in the X server's time, if the identifier tells it.
[[nodiscard]] quint32 timeInStartupIdentifier(const QString& identifier);

}
