#pragma once

#include <QtGlobal>

/// UDP ports to try in their order. A first port of 0 lets the system choose one.
struct ZLOSCPortRange {
    static constexpr quint16 defaultPort = 9358;
    static constexpr quint16 portsToTry = 10;

    quint16 first = defaultPort;
    quint16 last = defaultPort + portsToTry - 1;

    /// The port and the nine after it.
    [[nodiscard]] static ZLOSCPortRange startingAt(quint16 port)
    {
        return { port, port == 0 ? port : static_cast<quint16>(qMin(port + portsToTry - 1, 65535)) };
    }

    [[nodiscard]] static ZLOSCPortRange exactly(quint16 port) { return { port, port }; }

    bool operator==(const ZLOSCPortRange&) const = default;
};
