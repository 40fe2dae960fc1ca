#include "platform/activity/ZLSessionManagerInhibitor.h"

using namespace Qt::StringLiterals;

ZLSessionManagerInhibitor::ZLSessionManagerInhibitor(const QDBusConnection& sessionBus, Flag flag, QObject* parent)
    : ZLBusInhibitor(sessionBus, u"org.gnome.SessionManager"_s, parent)
    , m_flag(flag)
{
}

ZLSessionManagerInhibitor::~ZLSessionManagerInhibitor()
{
    ZLSessionManagerInhibitor::giveBack();
}

QDBusMessage ZLSessionManagerInhibitor::question() const
{
    constexpr quint32 noWindow = 0;
    QDBusMessage call = managerCall(u"Inhibit"_s);
    call.setArguments({ u"org.zelta.Zelta"_s, noWindow, reason(), quint32(m_flag) });
    return call;
}

bool ZLSessionManagerInhibitor::keep(const QDBusMessage& answer)
{
    // One that has started anew knows nothing of an earlier cookie.
    m_cookie.reset();
    const QVariant cookie = answer.arguments().value(0);
    if (cookie.typeId() == QMetaType::UInt)
        m_cookie = cookie.toUInt();
    return m_cookie.has_value();
}

void ZLSessionManagerInhibitor::giveBack()
{
    if (!m_cookie)
        return;
    QDBusMessage call = managerCall(u"Uninhibit"_s);
    call.setArguments({ *m_cookie });
    bus().send(call);
    m_cookie.reset();
}

QDBusMessage ZLSessionManagerInhibitor::managerCall(const QString& method) const
{
    QDBusMessage call = methodCall(u"/org/gnome/SessionManager"_s, u"org.gnome.SessionManager"_s, method);
    // Only a desktop starts its session manager.
    call.setAutoStartService(false);
    return call;
}
