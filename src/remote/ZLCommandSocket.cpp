#include "remote/ZLCommandSocket.h"

#include "platform/ZLPrivateFolder.h"
#include "platform/ZLSocketPath.h"
#include "platform/ZLStateFolder.h"
#include "platform/osc/ZLOSCCodec.h"

#include <QDataStream>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QLocalSocket>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(commandSocketLog, "zelta.remote.socket", QtInfoMsg)

constexpr int retryMilliseconds = 1000;
/// A command is a short message, at most one with the path of a file.
constexpr qint64 largestCommand = 16384;
/// Before the message stands its size, so that it may come in pieces.
using CommandSize = quint32;

}

ZLCommandSocket::ZLCommandSocket(Handler handler, QString path, QObject* parent)
    : QObject(parent)
    , m_handler(std::move(handler))
    , m_path(std::move(path))
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &ZLCommandSocket::accept);
    connect(&m_retryTimer, &QTimer::timeout, this, &ZLCommandSocket::listenIfNobodyDoes);
    m_retryTimer.setInterval(retryMilliseconds);
    listenIfNobodyDoes();
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

void ZLCommandSocket::listenIfNobodyDoes()
{
    (void)ZLPrivateFolder::prepare(QFileInfo(m_path).path());
    ZLResult<std::unique_ptr<ZLFileLock>> lock = ZLFileLock::tryLock(lockPath(m_path));
    if (lock && lock.value()) {
        m_lock = std::move(lock).value();
        // The former holder of the lock may have ended without clearing away its socket.
        const QString address = ZLSocketPath::reachable(m_path);
        QLocalServer::removeServer(address);
        m_retryTimer.stop();
        if (!m_server.listen(address))
            qCWarning(commandSocketLog) << "cannot take commands at" << address << m_server.errorString();
        return;
    }
    m_retryTimer.start();
}

void ZLCommandSocket::accept()
{
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        socket->setReadBufferSize(largestCommand);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { answer(*socket); });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        QTimer::singleShot(Patience, socket, &QLocalSocket::abort);
        answer(*socket);
    }
}

void ZLCommandSocket::answer(QLocalSocket& socket)
{
    QDataStream stream(&socket);
    stream.startTransaction();
    CommandSize size = 0;
    stream >> size;
    if (size > largestCommand) {
        socket.abort();
        return;
    }
    QByteArray datagram(size, '\0');
    if (size > 0 && stream.readRawData(datagram.data(), int(size)) < int(size))
        stream.setStatus(QDataStream::ReadPastEnd);
    if (!stream.commitTransaction())
        return;
    const ZLResult<QList<ZLOSCMessage>> messages = ZLOSCCodec::decode(datagram);
    QStringList answers;
    for (const ZLOSCMessage& message : messages ? messages.value() : QList<ZLOSCMessage>())
        answers.append(m_handler(message));
    socket.write(answers.join(u'\n').toUtf8());
    // Carrying it out may have taken longer than the other side is waited for.
    socket.flush();
    socket.disconnectFromServer();
}
