#include "platform/osc/ZLOSCOutPort.h"

#include "platform/osc/ZLOSCCodec.h"
#include "platform/osc/ZLOSCNetwork.h"

#include <QHostInfo>
#include <QUdpSocket>

namespace {

constexpr int renewalMilliseconds = 60000;

QHostAddress preferredAddress(const QList<QHostAddress>& addresses)
{
    for (const QHostAddress& address : addresses) {
        if (address.protocol() == QAbstractSocket::IPv4Protocol)
            return address;
    }
    return addresses.value(0);
}

}

ZLOSCOutPort::ZLOSCOutPort(
    QString label, QString host, quint16 port, QObject* parent, Resolver resolver, int firstRetryMilliseconds)
    : QObject(parent)
    , m_label(std::move(label))
    , m_host(std::move(host))
    , m_port(port)
    , m_resolver(std::move(resolver))
    , m_firstRetryMilliseconds(firstRetryMilliseconds)
    , m_retryMilliseconds(firstRetryMilliseconds)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &ZLOSCOutPort::resolve);
    resolve();
}

ZLOSCOutPort::~ZLOSCOutPort() = default;

bool ZLOSCOutPort::sendThisMessage(const ZLOSCMessage& message)
{
    if (m_state != State::Ready)
        return false;
    const ZLResult<QByteArray> datagram = ZLOSCCodec::encode(message);
    if (!datagram)
        return false;
    if (m_socket->writeDatagram(datagram.value(), m_address, m_port) >= 0) {
        m_retryMilliseconds = m_firstRetryMilliseconds;
        return true;
    }
    // A full send buffer says nothing about the other side: only this one message is lost.
    if (m_socket->error() != QAbstractSocket::TemporaryError)
        fail(m_socket->errorString());
    return false;
}

void ZLOSCOutPort::resolveWithSystem(const QString& name, QObject* context, std::function<void(const QHostInfo&)> done)
{
    QHostInfo::lookupHost(name, context, std::move(done));
}

void ZLOSCOutPort::resolve()
{
    const QString host = m_host.trimmed();
    if (host.isEmpty() || m_port == 0) {
        fail(tr("The host or the port is missing."));
        return;
    }
    if (const std::optional<ZLOSCNetwork> literal = host.contains(u'/') ? std::nullopt : ZLOSCNetwork::fromText(host)) {
        becomeReady(literal->address);
        return;
    }
    m_resolver(host, this, [this](const QHostInfo& result) { handleLookup(result); });
}

void ZLOSCOutPort::handleLookup(const QHostInfo& result)
{
    const QHostAddress address = preferredAddress(result.addresses());
    if (!address.isNull()) {
        becomeReady(address);
        m_timer.start(renewalMilliseconds);
    } else if (m_state == State::Ready) {
        // The name server is away for a moment; the address known so far may well be right.
        m_timer.start(renewalMilliseconds);
    } else {
        fail(result.errorString());
    }
}

void ZLOSCOutPort::becomeReady(const QHostAddress& address)
{
    if (m_state == State::Ready && m_address == address)
        return;
    if (!m_socket || m_address != address)
        m_socket = std::make_unique<QUdpSocket>();
    m_address = address;
    m_state = State::Ready;
    m_failure.clear();
    announceState();
    QMetaObject::invokeMethod(this, &ZLOSCOutPort::didBecomeReady, Qt::QueuedConnection);
}

void ZLOSCOutPort::fail(const QString& reason)
{
    m_state = State::Failed;
    m_failure = reason;
    announceState();
    m_timer.start(m_retryMilliseconds);
    m_retryMilliseconds = qMin(m_retryMilliseconds * 2, longestRetryMilliseconds);
}

/// Later, because this may happen within a send loop, whose lock a listener could wait for.
void ZLOSCOutPort::announceState()
{
    QMetaObject::invokeMethod(this, &ZLOSCOutPort::stateDidChange, Qt::QueuedConnection);
}
