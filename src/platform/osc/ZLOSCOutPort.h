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
/// and again every minute, a message that cannot be sent is lost. After a failure each further message is an attempt of
/// its own, and a name is resolved again soon. Each output has a socket of its own, so that none suffers from another's
/// failures.
class ZLOSCOutPort : public QObject {
    Q_OBJECT

public:
    enum class State { Resolving, Ready, Failed };

    /// Looks a name up and calls back on the main thread, unless the context is gone by then.
    using Resolver =
        std::function<void(const QString& name, QObject* context, std::function<void(const QHostInfo&)> done)>;

    /// After a failure, before a name is resolved again.
    static constexpr int defaultRetryMilliseconds = 2000;

    /// The host is an address or a name. Of a name's addresses an IPv4 one is preferred, for most OSC devices know no
    /// other.
    ZLOSCOutPort(QString label, QString host, quint16 port, QObject* parent = nullptr,
        Resolver resolver = &ZLOSCOutPort::resolveWithSystem, int retryMilliseconds = defaultRetryMilliseconds);
    ~ZLOSCOutPort() override;

    [[nodiscard]] const QString& label() const { return m_label; }
    [[nodiscard]] const QString& host() const { return m_host; }
    [[nodiscard]] quint16 port() const { return m_port; }
    /// Where messages go, also after a failure; null before the host is resolved.
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
    /// Messages go to another address now, so the other side knows nothing yet.
    void didBecomeReady();

private:
    void resolve();
    void handleLookup(const QHostInfo& result);
    void sendTo(const QHostAddress& address);
    void noteSent();
    void noteUnsent();
    void enter(State state, const QString& failure = {});

    QString m_label;
    QString m_host;
    quint16 m_port;
    Resolver m_resolver;
    int m_retryMilliseconds;
    /// Runs while a name waits for being resolved again.
    QTimer m_resolveTimer;
    QHostAddress m_address;
    State m_state = State::Resolving;
    QString m_failure;
    std::unique_ptr<QUdpSocket> m_socket;
};
