#pragma once

#include "platform/osc/ZLOSCNetwork.h"

/// Who may speak to an OSC input. A plain value; the connected networks are handed to it.
class ZLOSCAccessPolicy {
public:
    enum class Mode {
        /// Loopback and the addresses of this computer's own interfaces.
        ThisComputerOnly,
        /// That, and every computer in a network this one has an address in.
        DirectlyConnectedNetworks,
        /// The listed ones and no other, so loopback only when it is listed.
        OnlyTheseAddresses,
    };

    ZLOSCAccessPolicy() = default;
    explicit ZLOSCAccessPolicy(Mode mode, QList<ZLOSCNetwork> addresses = {});

    [[nodiscard]] Mode mode() const { return m_mode; }
    [[nodiscard]] const QList<ZLOSCNetwork>& addresses() const { return m_addresses; }

    void setConnectedNetworks(QList<ZLOSCNetwork> networks) { m_connectedNetworks = std::move(networks); }
    [[nodiscard]] bool needsConnectedNetworks() const { return m_mode != Mode::OnlyTheseAddresses; }

    [[nodiscard]] bool isAllowed(const QHostAddress& sender) const;

private:
    Mode m_mode = Mode::DirectlyConnectedNetworks;
    QList<ZLOSCNetwork> m_addresses;
    QList<ZLOSCNetwork> m_connectedNetworks;
};
