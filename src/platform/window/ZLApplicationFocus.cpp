#include "platform/window/ZLApplicationFocus.h"

#include <QEvent>
#include <QGuiApplication>

#include <chrono>

namespace {

/// A window manager gives the keyboard to the next window within this.
constexpr std::chrono::milliseconds longestHandOver { 100 };

}

ZLApplicationFocus::ZLApplicationFocus(QObject* parent)
    : QObject(parent)
{
    m_closing.setSingleShot(true);
    m_closing.setInterval(longestHandOver);
    connect(&m_closing, &QTimer::timeout, this, &ZLApplicationFocus::announce);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &ZLApplicationFocus::followWindow);
    followWindow(QGuiApplication::focusWindow());
}

bool ZLApplicationFocus::isActive()
{
    const QWindow* window = QGuiApplication::focusWindow();
    return window && window->isVisible();
}

bool ZLApplicationFocus::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide || event->type() == QEvent::PlatformSurface)
        m_closing.start();
    return QObject::eventFilter(watched, event);
}

void ZLApplicationFocus::followWindow(QWindow* window)
{
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (window)
        window->installEventFilter(this);
    announce();
}

void ZLApplicationFocus::announce()
{
    if (m_wasActive == isActive())
        return;
    m_wasActive = !m_wasActive;
    Q_EMIT didChange(m_wasActive);
}
