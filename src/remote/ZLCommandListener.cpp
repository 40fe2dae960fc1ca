#include "remote/ZLCommandListener.h"

#include "platform/ZLPrivateFolder.h"
#include "platform/ZLSocketPath.h"
#include "platform/osc/ZLOSCCodec.h"
#include "remote/ZLCommandSocket.h"

#include <QDataStream>
#include <QFileInfo>
#include <QLocalSocket>
#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(commandSocketLog, "zelta.remote.socket", QtInfoMsg)

constexpr int retryMilliseconds = 1000;
/// A command is a short message, at most one with the path of a file.
constexpr qint64 largestCommand = 16384;

}

ZLCommandListener::ZLCommandListener(QString path, Deliver deliver)
    : m_path(std::move(path))
    , m_deliver(std::move(deliver))
{
    m_retryTimer.setInterval(retryMilliseconds);
    connect(&m_retryTimer, &QTimer::timeout, this, &ZLCommandListener::listenIfNobodyDoes);
}

ZLCommandListener::~ZLCommandListener() = default;

void ZLCommandListener::begin()
{
    m_server = std::make_unique<QLocalServer>();
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server.get(), &QLocalServer::newConnection, this, &ZLCommandListener::accept);
    listenIfNobodyDoes();
}

void ZLCommandListener::end()
{
    m_retryTimer.stop();
    for (const Waiting& waiting : std::as_const(m_waiting))
        waiting.socket->disconnect(this);
    m_waiting.clear();
    m_server.reset();
    m_lock.reset();
}

void ZLCommandListener::listenIfNobodyDoes()
{
    (void)ZLPrivateFolder::prepare(QFileInfo(m_path).path());
    ZLResult<std::unique_ptr<ZLFileLock>> lock = ZLFileLock::tryLock(ZLCommandSocket::lockPath(m_path));
    if (!lock || !lock.value()) {
        m_retryTimer.start();
        return;
    }
    m_lock = std::move(lock).value();
    // The former holder of the lock may have ended without clearing away its socket.
    const QString address = ZLSocketPath::reachable(m_path);
    QLocalServer::removeServer(address);
    m_retryTimer.stop();
    m_isListening = m_server->listen(address);
    if (!m_isListening)
        qCWarning(commandSocketLog) << "cannot take commands at" << address << m_server->errorString();
}

void ZLCommandListener::accept()
{
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        const Connection connection = ++m_lastConnection;
        m_waiting.insert(connection, { .socket = socket });
        socket->setReadBufferSize(largestCommand);
        connect(socket, &QLocalSocket::readyRead, this, [this, connection] { read(connection); });
        connect(socket, &QLocalSocket::disconnected, this, [this, connection, socket] {
            m_waiting.remove(connection);
            socket->deleteLater();
        });
        QTimer::singleShot(Patience, this, [this, connection] { dropUnlessWhole(connection); });
        read(connection);
    }
}

void ZLCommandListener::read(Connection connection)
{
    const ZLPressStamp press(m_clock.now());
    const auto found = m_waiting.find(connection);
    if (found == m_waiting.end() || found->isCommandWhole)
        return;
    QDataStream stream(found->socket);
    stream.startTransaction();
    ZLCommandSocket::CommandSize size = 0;
    stream >> size;
    if (size > largestCommand) {
        found->socket->abort();
        return;
    }
    QByteArray datagram(size, '\0');
    if (size > 0 && stream.readRawData(datagram.data(), int(size)) < int(size))
        stream.setStatus(QDataStream::ReadPastEnd);
    if (!stream.commitTransaction())
        return;
    found->isCommandWhole = true;
    const ZLResult<QList<ZLOSCMessage>> messages = ZLOSCCodec::decode(datagram);
    m_deliver(connection, messages ? messages.value() : QList<ZLOSCMessage>(), press);
}

void ZLCommandListener::dropUnlessWhole(Connection connection)
{
    const auto found = m_waiting.constFind(connection);
    if (found != m_waiting.cend() && !found->isCommandWhole)
        found->socket->abort();
}

void ZLCommandListener::answer(Connection connection, const QString& text)
{
    QLocalSocket* socket = m_waiting.take(connection).socket;
    if (!socket)
        return;
    socket->write(text.toUtf8());
    // Carrying it out may have taken longer than the other side is waited for.
    socket->flush();
    socket->disconnectFromServer();
}
