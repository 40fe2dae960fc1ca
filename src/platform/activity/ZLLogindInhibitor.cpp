#include "platform/activity/ZLLogindInhibitor.h"

using namespace Qt::StringLiterals;

ZLLogindInhibitor::ZLLogindInhibitor(const QDBusConnection& systemBus, Operation operation, Mode mode, QObject* parent)
    : ZLBusInhibitor(systemBus, u"org.freedesktop.login1"_s, parent)
    , m_operation(operation)
    , m_mode(mode)
{
}

QDBusMessage ZLLogindInhibitor::question() const
{
    QDBusMessage call = methodCall(u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, u"Inhibit"_s);
    call.setArguments({ m_operation == Operation::Idle ? u"idle"_s : u"shutdown"_s, u"Zelta"_s, reason(),
        m_mode == Mode::Block ? u"block"_s : u"delay"_s });
    return call;
}

bool ZLLogindInhibitor::keep(const QDBusMessage& answer)
{
    // A lock of a login manager that has started anew takes the place of the former one, which closes only now.
    m_lock = answer.arguments().value(0).value<QDBusUnixFileDescriptor>();
    return m_lock.isValid();
}

void ZLLogindInhibitor::giveBack()
{
    m_lock = {};
}
