#include "platform/activity/ZLPortalInhibitor.h"

#include <QVariantMap>

using namespace Qt::StringLiterals;

ZLPortalInhibitor::ZLPortalInhibitor(const QDBusConnection& sessionBus, Flag flag, QObject* parent)
    : ZLBusInhibitor(sessionBus, u"org.freedesktop.portal.Desktop"_s, parent)
    , m_flag(flag)
{
}

ZLPortalInhibitor::~ZLPortalInhibitor()
{
    ZLPortalInhibitor::giveBack();
}

QDBusMessage ZLPortalInhibitor::question() const
{
    QDBusMessage call =
        methodCall(u"/org/freedesktop/portal/desktop"_s, u"org.freedesktop.portal.Inhibit"_s, u"Inhibit"_s);
    const QString noWindow;
    call.setArguments({ noWindow, quint32(m_flag), QVariantMap { { u"reason"_s, reason() } } });
    return call;
}

bool ZLPortalInhibitor::keep(const QDBusMessage& answer)
{
    m_request = answer.arguments().value(0).value<QDBusObjectPath>();
    return !m_request.path().isEmpty();
}

void ZLPortalInhibitor::giveBack()
{
    if (m_request.path().isEmpty())
        return;
    QDBusMessage call = methodCall(m_request.path(), u"org.freedesktop.portal.Request"_s, u"Close"_s);
    call.setAutoStartService(false);
    bus().send(call);
    m_request = {};
}
