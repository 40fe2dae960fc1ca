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
    QString label, QString host, quint16 port, QObject* parent, Resolver resolver, int retryMilliseconds)
    : QObject(parent)
    , m_label(std::move(label))
    , m_host(std::move(host))
    , m_port(port)
    , m_resolver(std::move(resolver))
    , m_retryMilliseconds(retryMilliseconds)
{
    m_resolveTimer.setSingleShot(true);
    connect(&m_resolveTimer, &QTimer::timeout, this, &ZLOSCOutPort::resolve);
    resolve();
}

ZLOSCOutPort::~ZLOSCOutPort() = default;

bool ZLOSCOutPort::sendThisMessage(const ZLOSCMessage& message)
{
    if (m_address.isNull())
        return false;
    const ZLResult<QByteArray> datagram = ZLOSCCodec::encode(message);
    if (!datagram)
        return false;
    if (!m_socket)
        m_socket = std::make_unique<QUdpSocket>();
    const bool wasSent = m_socket->writeDatagram(datagram.value(), m_address, m_port) >= 0;
    if (wasSent)
        noteSent();
    else
        noteUnsent();
    return wasSent;
}

void ZLOSCOutPort::resolveWithSystem(const QString& name, QObject* context, std::function<void(const QHostInfo&)> done)
{
    QHostInfo::lookupHost(name, context, std::move(done));
}

void ZLOSCOutPort::resolve()
{
    const QString host = m_host.trimmed();
    if (host.isEmpty() || m_port == 0) {
        enter(State::Failed, tr("The host or the port is missing."));
        return;
    }
    if (const std::optional<ZLOSCNetwork> literal = host.contains(u'/') ? std::nullopt : ZLOSCNetwork::fromText(host)) {
        sendTo(literal->address);
        return;
    }
    m_resolver(host, this, [this](const QHostInfo& result) { handleLookup(result); });
}

void ZLOSCOutPort::handleLookup(const QHostInfo& result)
{
    const QHostAddress address = preferredAddress(result.addresses());
    // When the name server is away for a moment, the address known so far may well be right.
    if (!address.isNull())
        sendTo(address);
    else if (m_address.isNull())
        enter(State::Failed, result.errorString());
    m_resolveTimer.start(m_state == State::Failed ? m_retryMilliseconds : renewalMilliseconds);
}

void ZLOSCOutPort::sendTo(const QHostAddress& address)
{
    if (m_address == address)
        return;
    m_socket.reset();
    m_address = address;
    enter(State::Ready);
    QMetaObject::invokeMethod(this, &ZLOSCOutPort::didBecomeReady, Qt::QueuedConnection);
}

void ZLOSCOutPort::noteSent()
{
    if (m_state == State::Failed)
        enter(State::Ready);
}

void ZLOSCOutPort::noteUnsent()
{
    // A full send buffer says nothing about the other side: only this one message is lost.
    if (m_socket->error() == QAbstractSocket::TemporaryError)
        return;
    enter(State::Failed, m_socket->errorString());
    // Another one next time, in case that it is the socket that is broken.
    m_socket.reset();
    // A name may lead elsewhere now. While it waits for its renewal, it need not wait that long.
    if (m_resolveTimer.isActive() && m_resolveTimer.interval() > m_retryMilliseconds)
        m_resolveTimer.start(m_retryMilliseconds);
}

/// Announced later, because this may happen within a send loop, whose lock a listener could wait for.
void ZLOSCOutPort::enter(State state, const QString& failure)
{
    if (m_state == state && m_failure == failure)
        return;
    m_state = state;
    m_failure = failure;
    QMetaObject::invokeMethod(this, &ZLOSCOutPort::stateDidChange, Qt::QueuedConnection);
}
