#include "remote/ZLCommandSocket.h"

#include "platform/ZLSocketPath.h"
#include "platform/ZLStateFolder.h"
#include "platform/osc/ZLOSCCodec.h"

#include <QDataStream>
#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QPointer>

#include <utility>

using namespace Qt::StringLiterals;

ZLCommandSocket::ZLCommandSocket(Handler handler, QString path, QObject* parent)
    : QObject(parent)
    , m_handler(std::move(handler))
    , m_listener(std::move(path), [this](auto connection, const auto& messages, const auto& press) {
        const auto perform = [this, connection, messages, press] { this->perform({ connection, messages, press }); };
        QMetaObject::invokeMethod(this, perform, Qt::QueuedConnection);
    })
{
    m_listener.moveToThread(&m_thread);
    m_thread.setObjectName(u"commands"_s);
    m_thread.start();
    QMetaObject::invokeMethod(&m_listener, &ZLCommandListener::begin, Qt::BlockingQueuedConnection);
}

ZLCommandSocket::~ZLCommandSocket()
{
    // The sockets have to go on the thread they live on.
    QMetaObject::invokeMethod(&m_listener, &ZLCommandListener::end, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

QString ZLCommandSocket::defaultPath()
{
    return ZLStateFolder::path() + u"/commands"_s;
}

QString ZLCommandSocket::lockPath(const QString& path)
{
    return path + u".lock"_s;
}

ZLResult<QString> ZLCommandSocket::send(const ZLOSCMessage& message, const QString& path, int patience)
{
    const ZLResult<QByteArray> datagram = ZLOSCCodec::encode(message);
    if (!datagram)
        return datagram.error();
    QLocalSocket socket;
    socket.connectToServer(ZLSocketPath::reachable(path));
    if (!socket.waitForConnected(Patience))
        return ZLError { tr("Zelta is not running.") };
    QDataStream stream(&socket);
    stream << CommandSize(datagram.value().size());
    socket.write(datagram.value());
    // The other side closes the connection after its answer.
    const QDeadlineTimer deadline(patience);
    while (socket.state() != QLocalSocket::UnconnectedState && !deadline.hasExpired())
        socket.waitForDisconnected(int(deadline.remainingTime()));
    const QString answer = QString::fromUtf8(socket.readAll());
    return answer.isEmpty() ? ZLResult<QString>(ZLError { tr("Zelta did not answer.") }) : ZLResult<QString>(answer);
}

void ZLCommandSocket::perform(Command command)
{
    if (command.messages.isEmpty()) {
        const auto answer = [this, connection = command.connection, text = command.answers.join(u'\n')] {
            m_listener.answer(connection, text);
        };
        QMetaObject::invokeMethod(&m_listener, answer, Qt::QueuedConnection);
        return;
    }
    const ZLOSCMessage message = command.messages.takeFirst();
    const ZLPressStamp press = command.press;
    m_handler(message, press, [socket = QPointer(this), command = std::move(command)](const QString& text) {
        if (!socket)
            return;
        Command rest = command;
        rest.answers.append(text);
        socket->perform(std::move(rest));
    });
}
