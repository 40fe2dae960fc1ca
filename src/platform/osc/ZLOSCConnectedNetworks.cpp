#include "platform/osc/ZLOSCConnectedNetworks.h"

#include <QNetworkInterface>

ZLOSCConnectedNetworks::ZLOSCConnectedNetworks(Source source, std::shared_ptr<const ZLHostClock> clock)
    : m_source(std::move(source))
    , m_clock(std::move(clock))
{
}

bool ZLOSCConnectedNetworks::refresh()
{
    const double now = m_clock->now();
    if (m_readAt && now - *m_readAt < lifetimeInSeconds)
        return false;
    m_readAt = now;
    m_networks = m_source();
    return true;
}

QList<ZLOSCNetwork> ZLOSCConnectedNetworks::ofThisComputer()
{
    QList<ZLOSCNetwork> networks;
    for (const QNetworkInterface& interface : QNetworkInterface::allInterfaces()) {
        if (!interface.flags().testFlags(QNetworkInterface::IsUp | QNetworkInterface::IsRunning))
            continue;
        for (const QNetworkAddressEntry& entry : interface.addressEntries()) {
            const int bits = entry.ip().protocol() == QAbstractSocket::IPv4Protocol ? 32 : 128;
            // A length of 0 would connect the whole world, an unknown one is -1: then only the address itself counts.
            networks.append({ entry.ip(), entry.prefixLength() > 0 ? entry.prefixLength() : bits });
        }
    }
    return networks;
}
