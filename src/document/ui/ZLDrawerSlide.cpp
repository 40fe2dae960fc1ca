#include "document/ui/ZLDrawerSlide.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QMainWindow>
#include <QStyle>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestSlideMilliseconds = 200;
/// A dock of no width at all would take any width.
constexpr int closedWidth = 1;

}

ZLDrawerSlide::ZLDrawerSlide(QMainWindow& window, QDockWidget& drawer)
    : QObject(&window)
    , m_window(window)
    , m_drawer(drawer)
{
    drawer.installEventFilter(this);
    // The toolkit's own description speaks of docks.
    if (auto* button = drawer.findChild<QAbstractButton*>(QStringLiteral("qt_dockwidget_closebutton")))
        button->setAccessibleDescription(tr("Closes the templates"));
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this,
        [this](const QVariant& width) { m_drawer.setFixedWidth(width.toInt()); });
    connect(&m_animation, &QVariantAnimation::finished, this, &ZLDrawerSlide::finish);
}

bool ZLDrawerSlide::isOpen() const
{
    return !m_drawer.isHidden() && !m_isClosing;
}

void ZLDrawerSlide::open()
{
    if (isOpen())
        return;
    const bool comesBack = m_isClosing;
    m_isClosing = false;
    Q_EMIT willOpen();
    m_drawer.show();
    if (!comesBack) {
        // Only the layout knows the width that was remembered.
        m_window.layout()->activate();
        m_openWidth = m_drawer.width();
        if (duration() > 0)
            m_drawer.setFixedWidth(closedWidth);
    }
    slideTo(m_openWidth);
    Q_EMIT didToggle();
}

void ZLDrawerSlide::close()
{
    if (!isOpen())
        return;
    if (m_animation.state() == QAbstractAnimation::Stopped)
        m_openWidth = m_drawer.width();
    m_isClosing = true;
    slideTo(closedWidth);
    Q_EMIT didToggle();
}

void ZLDrawerSlide::finish()
{
    m_animation.stop();
    m_drawer.setMinimumWidth(0);
    m_drawer.setMaximumWidth(QWIDGETSIZE_MAX);
    if (m_drawer.widget())
        m_drawer.widget()->setMinimumWidth(0);
    // The drawer may have that width already and its place in the window not yet.
    if (std::exchange(m_isSliding, false) && !m_drawer.isHidden())
        m_window.resizeDocks({ &m_drawer }, { m_openWidth }, Qt::Horizontal);
    m_openWidth = 0;
    if (m_isClosing)
        m_drawer.hide();
    m_isClosing = false;
}

bool ZLDrawerSlide::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &m_drawer || event->type() != QEvent::Close)
        return QObject::eventFilter(watched, event);
    event->ignore();
    close();
    return true;
}

int ZLDrawerSlide::duration() const
{
    if (m_duration)
        return *m_duration;
    if (!m_window.isVisible() || QGuiApplication::platformName() == "offscreen"_L1)
        return 0;
    const int usual = m_window.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &m_drawer);
    return std::min(usual, longestSlideMilliseconds);
}

void ZLDrawerSlide::slideTo(int width)
{
    m_animation.stop();
    if (duration() <= 0) {
        finish();
        return;
    }
    m_isSliding = true;
    // The contents keep their width and go past the edge instead of being laid out anew with every step.
    if (QWidget* contents = m_drawer.widget())
        contents->setMinimumWidth(m_openWidth);
    m_animation.setDuration(duration());
    m_animation.setStartValue(m_drawer.maximumWidth() == closedWidth ? closedWidth : m_drawer.width());
    m_animation.setEndValue(width);
    m_animation.start();
}
