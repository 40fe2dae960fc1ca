#include "platform/dnssd/ZLAvahiServiceResolver.h"

#include "platform/dnssd/ZLServiceName.h"

#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace {

constexpr uint avahiResultIsLocal = 8;

/// A null address when the text is not the address of one computer.
QHostAddress hostAddressFrom(const QString& text, int interface)
{
    QHostAddress address(text);
    const bool isOfOne = !address.isNull() && !address.isMulticast() && !address.isBroadcast()
        && !address.isEqual(QHostAddress(QHostAddress::AnyIPv4), QHostAddress::StrictConversion)
        && !address.isEqual(QHostAddress(QHostAddress::AnyIPv6), QHostAddress::StrictConversion);
    if (!isOfOne)
        return {};
    if (address.protocol() == QAbstractSocket::IPv6Protocol && address.isLinkLocal())
        address.setScopeId(QString::number(interface));
    return address;
}

}

ZLAvahiServiceResolver::ZLAvahiServiceResolver(
    const ZLAvahiDaemon& daemon, const ZLAvahiInstance& instance, QObject* parent)
    : ZLAvahiObject(daemon, u"org.freedesktop.Avahi.ServiceResolver"_s, parent)
    , m_instance(instance)
{
    constexpr int everyProtocol = -1;
    // Before there is a path to listen to: Avahi tells what it knows already as soon as the resolver is made, and not
    // once it is started.
    listen(u"Found"_s, SLOT(receiveFound(QDBusMessage)));
    create(daemon, u"ServiceResolverPrepare"_s, instance.asArguments() + QVariantList { everyProtocol, 0U });
}

void ZLAvahiServiceResolver::objectWasCreated()
{
    call(u"Start"_s);
}

void ZLAvahiServiceResolver::receiveFound(const QDBusMessage& message)
{
    if (message.signature() != "iissssisqaayu"_L1)
        return;
    const QVariantList arguments = message.arguments();
    if (arguments.mid(0, 5) != m_instance.asArguments())
        return;
    ZLFoundService service;
    service.name = ZLServiceName::cleaned(m_instance.name);
    service.hostName = ZLServiceName::cleaned(arguments.at(5).toString());
    service.address = hostAddressFrom(arguments.at(7).toString(), m_instance.interface);
    service.port = arguments.at(8).value<quint16>();
    service.isLocal = (arguments.at(10).toUInt() & avahiResultIsLocal) != 0;
    m_service.reset();
    if (!service.address.isNull() && service.port != 0)
        m_service = service;
    Q_EMIT serviceDidChange();
}
