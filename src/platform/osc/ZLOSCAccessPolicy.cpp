#include "platform/osc/ZLOSCAccessPolicy.h"

#include <algorithm>

namespace {

bool anyContains(const QList<ZLOSCNetwork>& networks, const QHostAddress& sender)
{
    return std::ranges::any_of(networks, [&](const ZLOSCNetwork& network) { return network.contains(sender); });
}

bool anyIs(const QList<ZLOSCNetwork>& networks, const QHostAddress& sender)
{
    return std::ranges::any_of(networks, [&](const ZLOSCNetwork& network) { return network.isAddressItself(sender); });
}

}

ZLOSCAccessPolicy::ZLOSCAccessPolicy(Mode mode, QList<ZLOSCNetwork> addresses)
    : m_mode(mode)
    , m_addresses(std::move(addresses))
{
}

bool ZLOSCAccessPolicy::isAllowed(const QHostAddress& sender) const
{
    const QHostAddress plain = ZLOSCPlainAddress(sender);
    switch (m_mode) {
    case Mode::ThisComputerOnly:
        return plain.isLoopback() || anyIs(m_connectedNetworks, plain);
    case Mode::DirectlyConnectedNetworks:
        return plain.isLoopback() || anyContains(m_connectedNetworks, plain);
    case Mode::OnlyTheseAddresses:
        return anyContains(m_addresses, plain);
    }
    return false;
}
