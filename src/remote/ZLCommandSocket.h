#pragma once

#include "platform/ZLResult.h"
#include "remote/ZLCommandListener.h"

#include <QObject>
#include <QThread>

#include <functional>

/// Takes commands from this user's other programs, apart from the network's rules: a socket in the user's own state
/// folder, on which an OSC message comes and a sentence goes back. Where several recorders run, the first one has it;
/// when that one ends, another takes it. Where the path is too long for a socket, ZLSocketPath tells where it is
/// instead. The lock is always beside the path.
class ZLCommandSocket : public QObject {
    Q_OBJECT

public:
    /// Says what became of a message. To be called once, on the main thread, now or later.
    using Answer = std::function<void(const QString& text)>;
    /// Carries out a message that came at `press`, on the main thread.
    using Handler = std::function<void(const ZLOSCMessage& message, const ZLPressStamp& press, const Answer& answer)>;
    /// The size of a message stands before it, so that the message may come in pieces.
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
    /// What came on a connection that waits for the answer.
    struct Command {
        ZLCommandListener::Connection connection = 0;
        QList<ZLOSCMessage> messages;
        ZLPressStamp press { 0.0 };
        QStringList answers {};
    };
    /// Each message when the one before is answered.
    void perform(Command command);

    Handler m_handler;
    QThread m_thread;
    ZLCommandListener m_listener;
};
