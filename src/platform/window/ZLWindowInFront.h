#pragma once

class QWindow;

/// A window that the user is led to.
namespace ZLWindowInFront {

/// Shows the window in front of the others and asks for the keyboard, also when it was minimized. It has to be shown
/// already.
void bring(QWindow& window);

}
