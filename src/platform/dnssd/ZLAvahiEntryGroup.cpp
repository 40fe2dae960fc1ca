#include "platform/dnssd/ZLAvahiEntryGroup.h"

#include <QDBusMessage>
#include <QDBusMetaType>

using namespace Qt::StringLiterals;

namespace {

constexpr int avahiGroupEstablished = 2;
constexpr int avahiGroupCollision = 3;
constexpr int avahiGroupFailure = 4;
constexpr int avahiEveryInterface = -1;
constexpr int avahiEveryProtocol = -1;

}

ZLAvahiEntryGroup::ZLAvahiEntryGroup(const ZLAvahiDaemon& daemon, const Service& service, QObject* parent)
    : ZLAvahiObject(daemon, u"org.freedesktop.Avahi.EntryGroup"_s, parent)
    , m_service(service)
{
    qDBusRegisterMetaType<QList<QByteArray>>();
    create(daemon, u"EntryGroupNew"_s, {});
}

void ZLAvahiEntryGroup::objectWasCreated()
{
    listen(u"StateChanged"_s, SLOT(receiveState(int, QString)));
    const QVariantList service { avahiEveryInterface, avahiEveryProtocol, 0U, m_service.name, m_service.type, QString(),
        QString(), QVariant::fromValue<ushort>(m_service.port), QVariant::fromValue(QList<QByteArray>()) };
    call(u"AddService"_s, service, [this] { call(u"Commit"_s); });
}

void ZLAvahiEntryGroup::callWasRefused(const QDBusMessage& error)
{
    // A name that another program of this computer has is refused at once, one of another computer by signal.
    if (error.errorName() == "org.freedesktop.Avahi.CollisionError"_L1)
        Q_EMIT collided();
    else
        ZLAvahiObject::callWasRefused(error);
}

void ZLAvahiEntryGroup::receiveState(int state, const QString& error)
{
    if (state == avahiGroupEstablished)
        Q_EMIT established();
    else if (state == avahiGroupCollision)
        Q_EMIT collided();
    else if (state == avahiGroupFailure)
        receiveFailure(error);
}
