#pragma once

#include <QString>

#include <optional>

/// Where OSC messages are to be sent: a name or address, and a UDP port.
struct ZLOSCDestination {
    QString host;
    quint16 port = 0;

    /// Reads "desk.local:9000", "192.0.2.1:9000" or "[2001:db8::1]:9000"; nothing when the host or a port from 1 to
    /// 65535 is missing.
    [[nodiscard]] static std::optional<ZLOSCDestination> fromText(QStringView text);
    /// The text that reads back as this destination.
    [[nodiscard]] QString text() const;

    bool operator==(const ZLOSCDestination&) const = default;
};
