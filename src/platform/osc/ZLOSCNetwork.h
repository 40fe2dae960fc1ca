#pragma once

#include <QHostAddress>
#include <QList>

#include <optional>

/// The address without the wrapping of IPv4 in IPv6 that a socket for both families gives (::ffff:192.0.2.1).
[[nodiscard]] QHostAddress ZLOSCPlainAddress(const QHostAddress& address);

/// An address and how many of its leading bits name its network: 192.168.1.7 with 24 stands for the computer and for
/// 192.168.1.*. A length of 32 or 128 is a single computer. An IPv6 scope ("%eth0") narrows it to that interface.
struct ZLOSCNetwork {
    QHostAddress address;
    int prefixLength = 0;

    /// Reads "192.168.1.7", "192.168.1.0/24", "fd00::/8", "[::1]" or "fe80::1%eth0"; nothing when the text is no
    /// address, a host name for example, or the length does not fit the family.
    [[nodiscard]] static std::optional<ZLOSCNetwork> fromText(QStringView text);
    [[nodiscard]] QString text() const;

    [[nodiscard]] bool contains(const QHostAddress& sender) const;
    [[nodiscard]] bool isAddressItself(const QHostAddress& sender) const;

    bool operator==(const ZLOSCNetwork&) const = default;
};
