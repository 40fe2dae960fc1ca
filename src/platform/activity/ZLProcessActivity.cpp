#include "platform/activity/ZLProcessActivity.h"

#include "platform/activity/ZLBusProcessActivity.h"

using namespace Qt::StringLiterals;

std::unique_ptr<ZLProcessActivity> ZLProcessActivity::create()
{
    const auto system = QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"zelta-activity"_s);
    const auto session = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"zelta-activity-session"_s);
    if (!system.isConnected() && !session.isConnected())
        return std::make_unique<ZLNullProcessActivity>();
    return std::make_unique<ZLBusProcessActivity>(system, session);
}
