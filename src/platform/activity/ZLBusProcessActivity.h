#pragma once

#include "platform/activity/ZLLogindInhibitor.h"
#include "platform/activity/ZLPortalInhibitor.h"
#include "platform/activity/ZLProcessActivity.h"
#include "platform/activity/ZLSessionManagerInhibitor.h"

/// The activity as the login manager, the desktop's session manager and the desktop portal know it.
///
/// The login manager's lock is on "idle" and not on "sleep": a sleep that the user asks for, or a closed lid, is no
/// idling, and a lock on "sleep" is refused to users who are not at the computer, such as a service. The session
/// manager falls asleep by a rule of its own and is asked beside it. The portal is asked where the login manager cannot
/// be reached, which is so in a sandbox.
///
/// A log-out is held back by the session manager, or else the portal; a shutdown by the login manager. A lock that only
/// delays a shutdown is held all the time: it gives time to save when an administrator insists.
class ZLBusProcessActivity final : public ZLProcessActivity {
    Q_OBJECT

public:
    /// Either bus may be unconnected.
    ZLBusProcessActivity(const QDBusConnection& systemBus, const QDBusConnection& sessionBus);

    void begin(const QString& reason) override;
    void end() override;
    void holdBackLogOut(const QString& reason) override;
    void allowLogOut() override;

private Q_SLOTS:
    void prepareForShutdown(bool isComing);

private:
    /// Lets `fallback` hold exactly while `inhibitor` wants to and cannot.
    void standIn(ZLBusInhibitor& inhibitor, ZLBusInhibitor& fallback);

    ZLLogindInhibitor m_idle;
    ZLSessionManagerInhibitor m_suspend;
    ZLPortalInhibitor m_portalSuspend;
    ZLLogindInhibitor m_shutdownDelay;
    ZLLogindInhibitor m_shutdown;
    ZLSessionManagerInhibitor m_logOut;
    ZLPortalInhibitor m_portalLogOut;
};
