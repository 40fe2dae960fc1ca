#pragma once

#include "platform/ZLHostClock.h"
#include "platform/osc/ZLOSCNetwork.h"

#include <functional>
#include <memory>
#include <optional>

/// The networks this computer is directly connected to, each with this computer's own address in it. Asking the system
/// is slow, so the answer is kept for a few seconds. To be used by one thread.
class ZLOSCConnectedNetworks {
public:
    using Source = std::function<QList<ZLOSCNetwork>()>;

    static constexpr double lifetimeInSeconds = 5;

    ZLOSCConnectedNetworks(Source source, std::shared_ptr<const ZLHostClock> clock);

    /// Whether the list was asked for anew because it had grown old.
    bool refresh();
    [[nodiscard]] const QList<ZLOSCNetwork>& networks() const { return m_networks; }

    /// The addresses of all interfaces that are up and running.
    [[nodiscard]] static QList<ZLOSCNetwork> ofThisComputer();

private:
    Source m_source;
    std::shared_ptr<const ZLHostClock> m_clock;
    QList<ZLOSCNetwork> m_networks;
    std::optional<double> m_readAt;
};
