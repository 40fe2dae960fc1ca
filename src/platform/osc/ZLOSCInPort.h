#pragma once

#include "platform/osc/ZLOSCReceiver.h"

#include <QThread>
#include <QTimer>

/// An OSC input: a UDP socket for IPv4 and IPv6 on a thread of its own. A datagram is checked by sender, decoded and
/// shown to the filter there; what is left waits in a bounded queue, from which the main thread takes a few messages at
/// a time between its other events. All functions are called on the main thread, and all signals come on it.
class ZLOSCInPort : public QObject {
    Q_OBJECT

public:
    using Filter = ZLOSCReceiver::Filter;

    /// Nothing is received before bind(). The clock paces turns, samples and the renewal of the list of networks.
    explicit ZLOSCInPort(QString label, QObject* parent = nullptr,
        ZLOSCConnectedNetworks::Source networks = &ZLOSCConnectedNetworks::ofThisComputer,
        std::shared_ptr<const ZLHostClock> clock = std::make_shared<ZLSteadyHostClock>());
    ~ZLOSCInPort() override;

    [[nodiscard]] const QString& label() const { return m_label; }

    /// Runs on the receiving thread for each message and must be quick; a false drops it. No filter lets all through.
    void setFilter(Filter filter);
    /// Messages that the filter drops and this one wants tell a value again and again: of each address only the newest
    /// waits, and none of them takes a place in the queue. Runs on the receiving thread too.
    void setNewestOnly(Filter filter);
    /// From the return on, nothing is let in that the policy does not allow; what was queued before is still delivered.
    void setAccessPolicy(const ZLOSCAccessPolicy& policy);

    /// Leaves the present port and takes the first free one of the range. Fails when there is none, with port() 0 then.
    ZLStatus bind(ZLOSCPortRange range);
    void close();

    /// The port in use; 0 when there is none.
    [[nodiscard]] quint16 port() const { return m_port; }
    /// Why the last bind() found no port; empty when it did.
    [[nodiscard]] const QString& failure() const { return m_failure; }

    [[nodiscard]] ZLOSCInPortCounters counters() const { return m_reception.counters(); }
    /// How many messages ever waited at once, at most ZLOSCReception::mostMessages.
    [[nodiscard]] qsizetype longestQueue() const { return m_reception.messages.longest(); }

Q_SIGNALS:
    void messageReceived(const ZLOSCReceivedMessage& received);
    /// One of those of which only the newest waits.
    void newestReceived(const ZLOSCTimedMessage& timed);
    void datagramDropped(const ZLOSCDroppedDatagram& dropped);
    /// The port in use or the reason for having none is another now.
    void portDidChange();

private:
    void wake();
    void deliverInTurn();
    void deliver();
    void deliverNewest();
    void deliverMessages();
    void deliverSamples();
    void runOnReceiver(const std::function<void()>& order);

    QString m_label;
    std::shared_ptr<const ZLHostClock> m_clock;
    quint16 m_port = 0;
    QString m_failure;
    ZLOSCReception m_reception;
    QTimer m_deliveryTimer;
    QThread m_thread;
    std::unique_ptr<ZLOSCReceiver> m_receiver;
};
