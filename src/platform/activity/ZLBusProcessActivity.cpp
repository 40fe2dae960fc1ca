#include "platform/activity/ZLBusProcessActivity.h"

#include <QLoggingCategory>

using namespace Qt::StringLiterals;
using Operation = ZLLogindInhibitor::Operation;
using Mode = ZLLogindInhibitor::Mode;

namespace {

Q_LOGGING_CATEGORY(processActivityLog, "zelta.platform.activity.process", QtInfoMsg)

}

ZLBusProcessActivity::ZLBusProcessActivity(const QDBusConnection& systemBus, const QDBusConnection& sessionBus)
    : m_idle(systemBus, Operation::Idle, Mode::Block)
    , m_suspend(sessionBus, ZLSessionManagerInhibitor::Suspend)
    , m_portalSuspend(sessionBus, ZLPortalInhibitor::Suspend)
    , m_shutdownDelay(systemBus, Operation::Shutdown, Mode::Delay)
    , m_shutdown(systemBus, Operation::Shutdown, Mode::Block)
    , m_logOut(sessionBus, ZLSessionManagerInhibitor::LogOut)
    , m_portalLogOut(sessionBus, ZLPortalInhibitor::LogOut)
{
    standIn(m_idle, m_portalSuspend);
    standIn(m_logOut, m_portalLogOut);
    QDBusConnection bus = systemBus;
    // From any sender: naming the login manager here would wait for the bus, and a false alarm only saves.
    if (bus.isConnected()
        && !bus.connect({}, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, u"PrepareForShutdown"_s,
            this, SLOT(prepareForShutdown(bool))))
        qCWarning(processActivityLog) << "cannot listen for a shutdown";
}

void ZLBusProcessActivity::begin(const QString& reason)
{
    m_idle.hold(reason);
    m_suspend.hold(reason);
    m_shutdownDelay.hold(reason);
}

void ZLBusProcessActivity::end()
{
    allowLogOut();
    m_idle.release();
    m_suspend.release();
    m_shutdownDelay.release();
}

void ZLBusProcessActivity::holdBackLogOut(const QString& reason)
{
    m_logOut.hold(reason);
    m_shutdown.hold(reason);
}

void ZLBusProcessActivity::allowLogOut()
{
    m_logOut.release();
    m_shutdown.release();
}

void ZLBusProcessActivity::prepareForShutdown(bool isComing)
{
    if (m_shutdownDelay.state() == ZLBusInhibitor::State::Released && isComing)
        return;
    if (isComing) {
        qCInfo(processActivityLog) << "the system shuts down";
        Q_EMIT systemWillShutDown();
        m_shutdownDelay.release();
    } else if (m_idle.state() != ZLBusInhibitor::State::Released) {
        // It was called off, and the next one shall wait again.
        m_shutdownDelay.hold(m_idle.reason());
    }
}

void ZLBusProcessActivity::standIn(ZLBusInhibitor& inhibitor, ZLBusInhibitor& fallback)
{
    connect(&inhibitor, &ZLBusInhibitor::stateDidChange, this, [&inhibitor, &fallback] {
        switch (inhibitor.state()) {
        case ZLBusInhibitor::State::Unavailable:
            fallback.hold(inhibitor.reason());
            break;
        case ZLBusInhibitor::State::Asking:
            break;
        case ZLBusInhibitor::State::Held:
        case ZLBusInhibitor::State::Released:
            fallback.release();
        }
    });
}
