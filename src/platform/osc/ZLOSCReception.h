#pragma once

#include "platform/ZLPressStamp.h"
#include "platform/osc/ZLOSCMailbox.h"
#include "platform/osc/ZLOSCNewestMessages.h"

#include <QHostAddress>

#include <atomic>
#include <optional>

/// Where a datagram came from; IPv4 is never wrapped in IPv6 here.
struct ZLOSCPeer {
    QHostAddress address;
    quint16 port = 0;

    /// "192.0.2.1:9000" or "[2001:db8::1]:9000".
    [[nodiscard]] QString text() const;

    bool operator==(const ZLOSCPeer&) const = default;
};

/// A message that passed the input's filter.
struct ZLOSCReceivedMessage {
    ZLOSCMessage message;
    ZLOSCPeer peer;
    /// Wall clock at reception, milliseconds since 1970 UTC.
    qint64 receivedAt = 0;
    /// When the kernel received it; absent when it did not come by a socket.
    std::optional<ZLPressStamp> stamp {};
};

enum class ZLOSCDropReason {
    /// The access policy does not know the sender; the datagram was not read.
    RefusedSender,
    Malformed,
    /// The input's filter did not want the message.
    Filtered,
    /// The main thread did not keep up, so older messages had to go. The peer is the one whose message came then.
    Overflow,
};

/// A sample of what was dropped, for a log: a few of each reason every second, never all of a flood.
struct ZLOSCDroppedDatagram {
    ZLOSCDropReason reason = ZLOSCDropReason::Malformed;
    ZLOSCPeer peer;
    /// Wall clock at reception, milliseconds since 1970 UTC.
    qint64 receivedAt = 0;
    /// Empty unless the datagram was decoded.
    QString address;
    /// What was wrong, or the description of the message; technical, not translated.
    QString detail;
};

/// What an input has seen since it was created.
struct ZLOSCInPortCounters {
    /// Datagrams, whatever became of them.
    quint64 received = 0;
    /// Datagrams dropped unread.
    quint64 refusedSender = 0;
    /// Datagrams.
    quint64 malformed = 0;
    /// Messages; a bundle has several.
    quint64 filtered = 0;
    /// Messages that passed the filter.
    quint64 accepted = 0;
    /// Accepted messages that were lost because the main thread did not keep up.
    quint64 overflow = 0;

    bool operator==(const ZLOSCInPortCounters&) const = default;
};

/// What the receiving thread and the main thread share.
struct ZLOSCReception {
    static constexpr qsizetype mostMessages = 256;
    static constexpr qsizetype mostMessageBytes = 1 << 20;
    static constexpr qsizetype mostSamples = 64;

    ZLOSCMailbox<ZLOSCReceivedMessage> messages { mostMessages, mostMessageBytes };
    /// Beside the queue, see ZLOSCReceiver::setNewestOnly().
    ZLOSCNewestMessages newest;
    ZLOSCMailbox<ZLOSCDroppedDatagram> samples { mostSamples, mostMessageBytes };
    /// Whether the main thread has been told and has not looked yet, so that a flood posts one event and not thousands.
    std::atomic<bool> wakePosted = false;

    std::atomic<quint64> received = 0;
    std::atomic<quint64> refusedSender = 0;
    std::atomic<quint64> malformed = 0;
    std::atomic<quint64> filtered = 0;
    std::atomic<quint64> accepted = 0;
    std::atomic<quint64> overflow = 0;

    [[nodiscard]] ZLOSCInPortCounters counters() const;
};
