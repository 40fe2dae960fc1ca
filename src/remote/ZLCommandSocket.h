#pragma once

#include "platform/ZLResult.h"
#include "remote/ZLCommandListener.h"

#include <QObject>
#include <QThread>

#include <functional>

/// Takes commands from this user's other programs, apart from the network's rules: a socket in the user's own state
/// folder, on which an OSC message comes and a sentence goes back. Where several recorders run, the first one has it,
/// and when that ends another. Where the path is too long for a socket, ZLSocketPath tells where it is instead; the
/// lock is always beside the path.
class ZLCommandSocket : public QObject {
    Q_OBJECT

public:
    /// Carries out a message that came at `press`, on the main thread, and says what became of it.
    using Handler = std::function<QString(const ZLOSCMessage& message, const ZLPressStamp& press)>;
    /// Before a message stands its size, so that it may come in pieces.
    using CommandSize = quint32;

    /// Milliseconds to wait for the other side.
    static constexpr int Patience = ZLCommandListener::Patience;

    explicit ZLCommandSocket(Handler handler, QString path = defaultPath(), QObject* parent = nullptr);
    ~ZLCommandSocket() override;

    [[nodiscard]] bool isListening() const { return m_listener.isListening(); }
    [[nodiscard]] static QString defaultPath();
    /// The file whose lock the program holds that listens at `path`.
    [[nodiscard]] static QString lockPath(const QString& path);

    /// Hands the message to the program that listens at `path` and waits for its answer, `patience` milliseconds at
    /// most.
    [[nodiscard]] static ZLResult<QString> send(
        const ZLOSCMessage& message, const QString& path = defaultPath(), int patience = Patience);

private:
    void perform(ZLCommandListener::Connection connection, const QList<ZLOSCMessage>& messages, ZLPressStamp press);

    Handler m_handler;
    QThread m_thread;
    ZLCommandListener m_listener;
};
