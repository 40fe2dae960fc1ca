#pragma once

#include "platform/osc/ZLOSCCodec.h"
#include "platform/osc/ZLOSCInPort.h"

#include <QDeadlineTimer>
#include <QTest>
#include <QUdpSocket>

#include <functional>

/// Everything here stays on loopback, and what is waited for is an event, with a limit only against hanging.
constexpr int hangLimitMilliseconds = 60000;

inline bool waitUntil(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, hangLimitMilliseconds);
}

/// Lets other threads run, but handles no event of this one: the main thread is as busy as it can be.
inline bool waitWithoutEvents(const std::function<bool()>& condition)
{
    const QDeadlineTimer limit(hangLimitMilliseconds);
    while (!condition() && !limit.hasExpired())
        QThread::usleep(50);
    return condition();
}

inline QByteArray encoded(const QString& address, const QList<ZLOSCArgument>& arguments = {})
{
    return ZLOSCCodec::encode(ZLOSCMessage(address, arguments)).value();
}

/// One of four kinds of datagrams that hold no message.
inline QByteArray garbage(int number)
{
    switch (number % 4) {
    case 0:
        return {};
    case 1:
        return "garbage that is no message";
    case 2:
        return QByteArray("#bundle\0\0\0\0\0\0\0\0\1\x7f\xff\xff\xfc", 20);
    default:
        return encoded(QStringLiteral("/zl/flood"), { 1.0F }).chopped(1 + number % 3);
    }
}

/// Another program on this computer that sends datagrams and keeps what it receives.
class LoopbackPeer {
public:
    explicit LoopbackPeer(const QHostAddress& address = QHostAddress::LocalHost)
        : m_address(address)
    {
        m_isBound = m_socket.bind(address, 0);
    }

    bool isBound() const { return m_isBound; }
    quint16 port() const { return m_socket.localPort(); }
    bool send(const QByteArray& datagram, quint16 port)
    {
        return m_socket.writeDatagram(datagram, m_address, port) == datagram.size();
    }

    /// Everything that has arrived so far, in its order.
    const QList<ZLOSCMessage>& received()
    {
        while (m_socket.hasPendingDatagrams()) {
            QByteArray datagram(m_socket.pendingDatagramSize(), Qt::Uninitialized);
            m_socket.readDatagram(datagram.data(), datagram.size());
            m_received += ZLOSCCodec::decode(datagram).value();
        }
        return m_received;
    }

private:
    QHostAddress m_address;
    QUdpSocket m_socket;
    bool m_isBound = false;
    QList<ZLOSCMessage> m_received;
};
