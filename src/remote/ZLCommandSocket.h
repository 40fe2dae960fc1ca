#pragma once

#include "platform/ZLFileLock.h"
#include "platform/ZLResult.h"
#include "platform/osc/ZLOSCMessage.h"

#include <QLocalServer>
#include <QTimer>

#include <functional>
#include <memory>

class QLocalSocket;

/// Takes commands from this user's other programs, apart from the network's rules: a socket in the user's own state
/// folder, on which an OSC message comes and a sentence goes back. Where several recorders run, the first one has it,
/// and when that ends another. Where the
/// path is too long for a socket, ZLSocketPath tells where it is instead; the lock is always beside the path.
class ZLCommandSocket : public QObject {
    Q_OBJECT

public:
    /// Carries out a message and says what became of it.
    using Handler = std::function<QString(const ZLOSCMessage& message)>;

    /// Milliseconds to wait for the other side.
    static constexpr int Patience = 2000;

    explicit ZLCommandSocket(Handler handler, QString path = defaultPath(), QObject* parent = nullptr);

    [[nodiscard]] bool isListening() const { return m_server.isListening(); }
    [[nodiscard]] static QString defaultPath();
    /// The file whose lock the program holds that listens at `path`.
    [[nodiscard]] static QString lockPath(const QString& path);

    /// Hands the message to the program that listens at `path` and waits for its answer, `patience` milliseconds at
    /// most.
    [[nodiscard]] static ZLResult<QString> send(
        const ZLOSCMessage& message, const QString& path = defaultPath(), int patience = Patience);

private:
    void listenIfNobodyDoes();
    void accept();
    void answer(QLocalSocket& socket);

    Handler m_handler;
    QString m_path;
    /// Before the server, which leaves its place while the lock is still held.
    std::unique_ptr<ZLFileLock> m_lock;
    QLocalServer m_server;
    QTimer m_retryTimer;
};
