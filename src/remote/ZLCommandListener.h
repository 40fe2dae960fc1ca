#pragma once

#include "platform/ZLFileLock.h"
#include "platform/ZLHostClock.h"
#include "platform/ZLPressStamp.h"
#include "platform/osc/ZLOSCMessage.h"

#include <QHash>
#include <QLocalServer>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>

class QLocalSocket;

/// The part of a command socket that lives on a thread of its own, so that a command has the time at which it came
/// however busy the main thread is. All functions but isListening() are called on that thread.
class ZLCommandListener : public QObject {
    Q_OBJECT

public:
    using Connection = quint64;
    /// Is given the messages that came on a connection, which waits for the answer. It must not wait.
    using Deliver =
        std::function<void(Connection connection, const QList<ZLOSCMessage>& messages, const ZLPressStamp& press)>;

    /// Milliseconds for which a connection waits for its command to be whole.
    static constexpr int Patience = 2000;

    ZLCommandListener(QString path, Deliver deliver);
    ~ZLCommandListener() override;

    /// Listens, or waits until the program that listens has ended.
    void begin();
    void end();
    /// Sends the answer and closes the connection, if it still stands.
    void answer(Connection connection, const QString& text);

    [[nodiscard]] bool isListening() const { return m_isListening; }

private:
    void listenIfNobodyDoes();
    void accept();
    void read(Connection connection);
    void dropUnlessWhole(Connection connection);

    const QString m_path;
    const Deliver m_deliver;
    const ZLSteadyHostClock m_clock {};
    std::atomic<bool> m_isListening = false;
    /// Declared before the server, which has to go while the lock is still held.
    std::unique_ptr<ZLFileLock> m_lock;
    std::unique_ptr<QLocalServer> m_server;
    QTimer m_retryTimer { this };
    struct Waiting {
        QLocalSocket* socket = nullptr;
        bool isCommandWhole = false;
    };
    /// Those that have no answer yet.
    QHash<Connection, Waiting> m_waiting;
    Connection m_lastConnection = 0;
};
