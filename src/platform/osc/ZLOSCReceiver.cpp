#include "platform/osc/ZLOSCReceiver.h"

#include "platform/osc/ZLDatagramTimes.h"
#include "platform/osc/ZLOSCCodec.h"

#include <QDateTime>
#include <QUdpSocket>

namespace {

/// Datagrams read before the receiving thread looks for orders again, so that a flood cannot keep it from closing.
constexpr int datagramsPerTurn = 64;
/// Asked for; the system may give less. It bridges moments in which the thread does not get to run.
constexpr int receiveBufferBytes = 1 << 20;
/// Seconds. Two looks at clocks right after each other take less.
constexpr double mostApart = 0.0005;
constexpr int mostReadings = 5;
constexpr double samplesPerSecond = 10;
constexpr double samplesAtOnce = 20;
constexpr ZLOSCRateLimit sampleLimit(samplesPerSecond, samplesAtOnce);

/// Any is one socket for both families; a system without IPv6 needs one for IPv4 alone.
QHostAddress addressToListenOn()
{
    QUdpSocket probe;
    return probe.bind(QHostAddress::AnyIPv6, 0) ? QHostAddress::Any : QHostAddress::AnyIPv4;
}

std::unique_ptr<QUdpSocket> socketOnPort(const QHostAddress& address, quint16 port)
{
    auto socket = std::make_unique<QUdpSocket>();
    return socket->bind(address, port, QAbstractSocket::DontShareAddress) ? std::move(socket) : nullptr;
}

QString reasonForNoPort(ZLOSCPortRange range)
{
    return range.first == range.last
        ? ZLOSCReceiver::tr("UDP port %1 cannot be used.").arg(range.first)
        : ZLOSCReceiver::tr("None of the UDP ports from %1 to %2 can be used.").arg(range.first).arg(range.last);
}

}

ZLOSCReceiver::ZLOSCReceiver(ZLOSCReception& reception, std::function<void()> wake, ZLOSCConnectedNetworks networks,
    std::shared_ptr<const ZLHostClock> clock)
    : m_reception(reception)
    , m_wake(std::move(wake))
    , m_networks(std::move(networks))
    , m_clock(std::move(clock))
    // One byte more than a datagram may have, so that a larger one is seen to be too large and not cut to fit.
    , m_buffer(ZLOSCCodec::largestDatagram + 1, Qt::Uninitialized)
    , m_sampleLimits { sampleLimit, sampleLimit, sampleLimit, sampleLimit }
{
}

ZLOSCReceiver::~ZLOSCReceiver() = default;

void ZLOSCReceiver::setAccessPolicy(ZLOSCAccessPolicy policy)
{
    m_policy = std::move(policy);
    m_policy.setConnectedNetworks(m_networks.networks());
}

ZLResult<quint16> ZLOSCReceiver::bind(ZLOSCPortRange range)
{
    close();
    const QHostAddress address = addressToListenOn();
    for (int port = range.first; port <= range.last; ++port) {
        m_socket = socketOnPort(address, static_cast<quint16>(port));
        if (!m_socket)
            continue;
        m_socket->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, receiveBufferBytes);
        ZLDatagramTimes::switchOn(int(m_socket->socketDescriptor()));
        connect(m_socket.get(), &QUdpSocket::readyRead, this, &ZLOSCReceiver::receivePendingDatagrams);
        return m_socket->localPort();
    }
    return ZLError { reasonForNoPort(range) };
}

void ZLOSCReceiver::close()
{
    m_socket.reset();
}

void ZLOSCReceiver::receivePendingDatagrams()
{
    for (int count = 0; count < datagramsPerTurn && m_socket->hasPendingDatagrams(); ++count) {
        ZLOSCPeer peer;
        const ZLPressStamp stamp = stampOfNextDatagram();
        const qint64 size = m_socket->readDatagram(m_buffer.data(), m_buffer.size(), &peer.address, &peer.port);
        if (size < 0)
            continue;
        peer.address = ZLOSCPlainAddress(peer.address);
        handleDatagram(QByteArrayView(m_buffer).first(size), peer, stamp);
    }
}

ZLPressStamp ZLOSCReceiver::stampOfNextDatagram()
{
    std::optional<double> age;
    double before = 0.0;
    double now = 0.0;
    // The age is by another clock. Where this thread was held up between the two, both are read once more.
    for (int attempt = 0; attempt < mostReadings && (attempt == 0 || now - before > mostApart); ++attempt) {
        before = m_clock->now();
        age = ZLDatagramTimes::ageOfNext(int(m_socket->socketDescriptor()));
        now = m_clock->now();
    }
    double press = age ? before - *age : now;
    // Datagrams are here in the order of their times, and what is left of the error must not change it.
    if (press < m_lastPress && m_lastPress - press <= mostApart)
        press = m_lastPress;
    m_lastPress = press;
    return { press, now };
}

void ZLOSCReceiver::handleDatagram(QByteArrayView datagram, const ZLOSCPeer& peer, ZLPressStamp stamp)
{
    ++m_reception.received;
    if (!isAllowed(peer.address)) {
        ++m_reception.refusedSender;
        return sample(ZLOSCDropReason::RefusedSender, peer, [](ZLOSCDroppedDatagram&) { });
    }
    const ZLResult<QList<ZLOSCMessage>> messages = ZLOSCCodec::decode(datagram);
    if (!messages) {
        ++m_reception.malformed;
        return sample(ZLOSCDropReason::Malformed, peer,
            [&](ZLOSCDroppedDatagram& dropped) { dropped.detail = messages.error().message; });
    }
    const qsizetype share = datagram.size() / qMax<qsizetype>(1, messages.value().size());
    const qint64 wallClock = QDateTime::currentMSecsSinceEpoch();
    for (const ZLOSCMessage& message : messages.value()) {
        const qsizetype weight = share + message.arguments().size() * qsizetype(sizeof(ZLOSCArgument));
        handleMessage({ message, peer, wallClock, stamp }, weight);
    }
}

void ZLOSCReceiver::handleMessage(const ZLOSCReceivedMessage& received, qsizetype weight)
{
    const ZLOSCMessage& message = received.message;
    const auto describe = [&](ZLOSCDroppedDatagram& dropped) {
        dropped.address = message.address();
        dropped.detail = message.description();
    };
    if (m_filter && !m_filter(message)) {
        if (takeBesideQueue(received))
            return;
        ++m_reception.filtered;
        return sample(ZLOSCDropReason::Filtered, received.peer, describe);
    }
    ++m_reception.accepted;
    const auto discarded = static_cast<quint64>(m_reception.messages.push(received, weight));
    m_reception.overflow += discarded;
    if (discarded > 0)
        sample(ZLOSCDropReason::Overflow, received.peer, describe);
    wakeMainThread();
}

bool ZLOSCReceiver::takeBesideQueue(const ZLOSCReceivedMessage& received)
{
    if (!m_newestOnly || !m_newestOnly(received.message))
        return false;
    ++m_reception.accepted;
    m_reception.newest.put({ received.message, received.stamp ? received.stamp->hostTime() : m_clock->now() });
    wakeMainThread();
    return true;
}

bool ZLOSCReceiver::isAllowed(const QHostAddress& sender)
{
    if (m_policy.needsConnectedNetworks() && m_networks.refresh())
        m_policy.setConnectedNetworks(m_networks.networks());
    return m_policy.isAllowed(sender);
}

void ZLOSCReceiver::sample(
    ZLOSCDropReason reason, const ZLOSCPeer& peer, const std::function<void(ZLOSCDroppedDatagram&)>& fill)
{
    if (!m_sampleLimits[static_cast<size_t>(reason)].tryAcquire(m_clock->now()))
        return;
    ZLOSCDroppedDatagram dropped { reason, peer, QDateTime::currentMSecsSinceEpoch(), {}, {} };
    fill(dropped);
    const qsizetype weight = dropped.address.size() + dropped.detail.size();
    m_reception.samples.push(std::move(dropped), weight);
    wakeMainThread();
}

void ZLOSCReceiver::wakeMainThread()
{
    if (!m_reception.wakePosted.exchange(true))
        m_wake();
}
