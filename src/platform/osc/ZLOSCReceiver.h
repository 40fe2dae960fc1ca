#pragma once

#include "platform/ZLHostClock.h"
#include "platform/ZLResult.h"
#include "platform/osc/ZLOSCAccessPolicy.h"
#include "platform/osc/ZLOSCConnectedNetworks.h"
#include "platform/osc/ZLOSCPortRange.h"
#include "platform/osc/ZLOSCRateLimit.h"
#include "platform/osc/ZLOSCReception.h"

#include <QObject>

#include <array>
#include <functional>
#include <memory>

class QUdpSocket;

/// The part of an input that lives on the receiving thread: it owns the socket, tests each datagram and puts what is
/// left into the reception that it shares with the main thread. Its functions are called on its thread only.
class ZLOSCReceiver : public QObject {
    Q_OBJECT

public:
    using Filter = std::function<bool(const ZLOSCMessage&)>;

    /// `wake` is called when there is something to fetch and the main thread does not know it yet; it must not wait.
    ZLOSCReceiver(ZLOSCReception& reception, std::function<void()> wake, ZLOSCConnectedNetworks networks,
        std::shared_ptr<const ZLHostClock> clock);
    ~ZLOSCReceiver() override;

    void setFilter(Filter filter) { m_filter = std::move(filter); }
    /// Of the messages that the filter does not want, those that this one wants are taken beside the queue.
    void setNewestOnly(Filter filter) { m_newestOnly = std::move(filter); }
    void setAccessPolicy(ZLOSCAccessPolicy policy);

    /// Closes the socket that is open and opens one on the first free port; gives that port or why there is none.
    ZLResult<quint16> bind(ZLOSCPortRange range);
    void close();

private:
    void receivePendingDatagrams();
    [[nodiscard]] ZLPressStamp stampOfNextDatagram();
    void handleDatagram(QByteArrayView datagram, const ZLOSCPeer& peer, ZLPressStamp stamp);
    void handleMessage(const ZLOSCReceivedMessage& received, qsizetype weight);
    /// Returns whether the message is one of those that are taken beside the queue.
    bool takeBesideQueue(const ZLOSCReceivedMessage& received);
    bool isAllowed(const QHostAddress& sender);
    void sample(ZLOSCDropReason reason, const ZLOSCPeer& peer, const std::function<void(ZLOSCDroppedDatagram&)>& fill);
    void wakeMainThread();

    ZLOSCReception& m_reception;
    std::function<void()> m_wake;
    ZLOSCConnectedNetworks m_networks;
    std::shared_ptr<const ZLHostClock> m_clock;
    /// Of the datagram before, in seconds of the clock.
    double m_lastPress = 0.0;
    Filter m_filter;
    Filter m_newestOnly;
    ZLOSCAccessPolicy m_policy;
    std::unique_ptr<QUdpSocket> m_socket;
    QByteArray m_buffer;
    std::array<ZLOSCRateLimit, 4> m_sampleLimits;
};
