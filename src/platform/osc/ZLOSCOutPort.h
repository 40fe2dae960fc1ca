#pragma once

#include "platform/osc/ZLOSCMessage.h"

#include <QHostAddress>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

class QHostInfo;
class QUdpSocket;

/// An OSC output: a host and a port that messages are sent to. Nothing here waits: a name is resolved in the background
/// and again every minute, a message that cannot be sent is lost. A failed output tries again by itself, less and less
/// often. Each output has a socket of its own, so that none suffers from another's failures.
class ZLOSCOutPort : public QObject {
    Q_OBJECT

public:
    enum class State { Resolving, Ready, Failed };

    /// Looks a name up and calls back on the main thread, unless the context is gone by then.
    using Resolver =
        std::function<void(const QString& name, QObject* context, std::function<void(const QHostInfo&)> done)>;

    /// Between attempts after a failure; doubled after each up to the longest.
    static constexpr int shortestRetryMilliseconds = 5000;
    static constexpr int longestRetryMilliseconds = 60000;

    /// The host is an address or a name. Of a name's addresses an IPv4 one is preferred, for most OSC devices know no
    /// other.
    ZLOSCOutPort(QString label, QString host, quint16 port, QObject* parent = nullptr,
        Resolver resolver = &ZLOSCOutPort::resolveWithSystem, int firstRetryMilliseconds = shortestRetryMilliseconds);
    ~ZLOSCOutPort() override;

    [[nodiscard]] const QString& label() const { return m_label; }
    [[nodiscard]] const QString& host() const { return m_host; }
    [[nodiscard]] quint16 port() const { return m_port; }
    /// Where messages go; null before the host is resolved.
    [[nodiscard]] const QHostAddress& address() const { return m_address; }
    [[nodiscard]] State state() const { return m_state; }
    /// Why the state is Failed, for a person; empty otherwise.
    [[nodiscard]] const QString& failure() const { return m_failure; }

    /// Sends now or not at all, and never waits; emits nothing before control is back in the event loop.
    /// Gives whether the message was handed to the system, which says nothing about its arrival.
    bool sendThisMessage(const ZLOSCMessage& message);

    static void resolveWithSystem(const QString& name, QObject* context, std::function<void(const QHostInfo&)> done);

Q_SIGNALS:
    void stateDidChange();
    /// Messages go somewhere now where they did not go before, so the other side knows nothing yet.
    void didBecomeReady();

private:
    void resolve();
    void handleLookup(const QHostInfo& result);
    void becomeReady(const QHostAddress& address);
    void fail(const QString& reason);
    void announceState();

    QString m_label;
    QString m_host;
    quint16 m_port;
    Resolver m_resolver;
    int m_firstRetryMilliseconds;
    int m_retryMilliseconds;
    QTimer m_timer;
    QHostAddress m_address;
    State m_state = State::Resolving;
    QString m_failure;
    std::unique_ptr<QUdpSocket> m_socket;
};
