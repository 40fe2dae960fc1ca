#include "platform/window/ZLWindowInFront.h"

#include <QWindow>

void ZLWindowInFront::bring(QWindow& window)
{
    window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.raise();
    window.requestActivate();
}
