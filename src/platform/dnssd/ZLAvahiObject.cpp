#include "platform/dnssd/ZLAvahiObject.h"

#include "platform/dnssd/ZLAvahiDaemon.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QLoggingCategory>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(avahiObjectLog, "zelta.platform.dnssd.object", QtInfoMsg)

}

ZLAvahiObject::ZLAvahiObject(const ZLAvahiDaemon& daemon, const QString& interface, QObject* parent)
    : QObject(parent)
    , m_bus(daemon.bus())
    , m_owner(daemon.owner())
    , m_interface(interface)
{
}

ZLAvahiObject::~ZLAvahiObject()
{
    release();
}

void ZLAvahiObject::retire()
{
    release();
    blockSignals(true);
    deleteLater();
}

void ZLAvahiObject::create(const ZLAvahiDaemon& daemon, const QString& method, const QVariantList& arguments)
{
    const auto receive = [self = QPointer(this), bus = m_bus, owner = m_owner, interface = m_interface](
                             const QDBusMessage& answer) {
        const QString path = answer.arguments().value(0).value<QDBusObjectPath>().path();
        if (!self || self->m_isReleased) {
            freeObject(bus, owner, path, interface);
        } else if (path.isEmpty()) {
            self->callWasRefused(answer);
        } else {
            self->m_path = path;
            self->objectWasCreated();
        }
    };
    // This object and its owner may go before the answer; what Avahi made meanwhile is freed all the same.
    daemon.callServer(method, arguments, QCoreApplication::instance(), receive);
}

void ZLAvahiObject::listen(const QString& signal, const char* slot)
{
    if (!m_bus.connect(m_owner, m_path, m_interface, signal, this, slot))
        qCWarning(avahiObjectLog) << "cannot listen to" << signal << "of" << m_interface;
}

void ZLAvahiObject::call(const QString& method, const QVariantList& arguments, const std::function<void()>& next)
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_owner, m_path, m_interface, method);
    message.setArguments(arguments);
    ZLAvahiDaemon::whenAnswered(m_bus.asyncCall(message), this, [this, next](const QDBusMessage& answer) {
        if (m_isReleased)
            return;
        if (answer.type() == QDBusMessage::ErrorMessage)
            callWasRefused(answer);
        else if (next)
            next();
    });
}

void ZLAvahiObject::callWasRefused(const QDBusMessage& error)
{
    receiveFailure(error.errorMessage());
}

void ZLAvahiObject::receiveFailure(const QString& reason)
{
    qCInfo(avahiObjectLog) << m_interface << "failed:" << reason;
    Q_EMIT failed(reason);
}

void ZLAvahiObject::freeObject(QDBusConnection bus, const QString& owner, const QString& path, const QString& interface)
{
    if (!path.isEmpty())
        bus.send(QDBusMessage::createMethodCall(owner, path, interface, u"Free"_s));
}

void ZLAvahiObject::release()
{
    if (!std::exchange(m_isReleased, true))
        freeObject(m_bus, m_owner, m_path, m_interface);
}
