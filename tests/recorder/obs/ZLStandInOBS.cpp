#include "recorder/obs/ZLStandInOBS.h"

#include <QCryptographicHash>
#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTcpSocket>
#include <QWebSocket>

#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString salt = u"c2FsdA=="_s;
const QString challenge = u"Y2hhbGxlbmdl"_s;

QString hashOf(const QString& text)
{
    return QString::fromLatin1(QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256).toBase64());
}

}

ZLStandInOBS::ZLStandInOBS(const QString& password)
    : m_password(password)
{
    listen();
}

ZLStandInOBS::~ZLStandInOBS()
{
    kill();
}

void ZLStandInOBS::listen()
{
    m_server = std::make_unique<QWebSocketServer>(u"OBS"_s, QWebSocketServer::NonSecureMode);
    connect(m_server.get(), &QWebSocketServer::newConnection, this, &ZLStandInOBS::accept);
    m_door = std::make_unique<QTcpServer>();
    connect(m_door.get(), &QTcpServer::newConnection, this, [this] {
        QTcpSocket* socket = m_door->nextPendingConnection();
        // As OBS does: a short answer goes out at once.
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        m_server->handleConnection(socket);
    });
    m_door->listen(QHostAddress::LocalHost, m_port);
    m_port = m_door->serverPort();
}

void ZLStandInOBS::kill()
{
    m_door.reset();
    m_server.reset();
    for (QWebSocket* client : std::exchange(m_clients, {})) {
        client->disconnect(this);
        client->abort();
        client->deleteLater();
    }
}

void ZLStandInOBS::accept()
{
    QWebSocket* client = m_server->nextPendingConnection();
    client->setParent(this);
    m_clients.append(client);
    connect(
        client, &QWebSocket::textMessageReceived, this, [this, client](const QString& text) { answer(*client, text); });
    connect(client, &QWebSocket::disconnected, this, [this, client] {
        m_clients.removeAll(client);
        client->deleteLater();
    });
    if (isMute)
        return;
    QJsonObject hello { { u"obsWebSocketVersion"_s, u"5.5.0"_s }, { u"rpcVersion"_s, procedureVersion } };
    if (!m_password.isEmpty())
        hello.insert(u"authentication"_s, QJsonObject { { u"challenge"_s, challenge }, { u"salt"_s, salt } });
    send(*client, 0, hello);
}

void ZLStandInOBS::answer(QWebSocket& client, const QString& text)
{
    m_allText += text;
    const QJsonObject message = QJsonDocument::fromJson(text.toUtf8()).object();
    const QJsonObject data = message.value("d"_L1).toObject();
    switch (message.value("op"_L1).toInt()) {
    case 1:
        identify(client, data);
        break;
    case 6:
        answerRequest(client, data);
        break;
    case 8:
        answerBatch(client, data);
        break;
    default:
        client.close(QWebSocketProtocol::CloseCode(4006));
    }
}

void ZLStandInOBS::identify(QWebSocket& client, const QJsonObject& data)
{
    const QString expected = hashOf(hashOf(m_password + salt) + challenge);
    if (data.value("rpcVersion"_L1).toInt() != procedureVersion) {
        client.close(QWebSocketProtocol::CloseCode(4010), u"no such version"_s);
    } else if (!m_password.isEmpty() && data.value("authentication"_L1).toString() != expected) {
        client.close(QWebSocketProtocol::CloseCode(4009), u"Authentication failed."_s);
    } else {
        ++m_identified;
        send(client, 2, { { u"negotiatedRpcVersion"_s, procedureVersion } });
    }
}

void ZLStandInOBS::answerRequest(QWebSocket& client, const QJsonObject& request)
{
    const QString type = request.value("requestType"_L1).toString();
    m_received.append(type);
    m_lastData = request.value("requestData"_L1).toObject();
    if (type == "CreateRecordChapter"_L1)
        m_chapters.append(recording.status(m_clock.now(), m_clock.now()).duration);
    send(client, 7,
        { { u"requestType"_s, type }, { u"requestId"_s, request.value("requestId"_L1) },
            { u"requestStatus"_s, QJsonObject { { u"result"_s, true }, { u"code"_s, 100 } } },
            { u"responseData"_s, dataFor(type, m_lastData) } });
}

void ZLStandInOBS::answerBatch(QWebSocket& client, const QJsonObject& batch)
{
    ++m_looks;
    QJsonArray results;
    const QJsonArray asked = batch.value("requests"_L1).toArray();
    for (const QJsonValueConstRef request : asked) {
        const QString type = request.toObject().value("requestType"_L1).toString();
        results.append(QJsonObject { { u"requestType"_s, type }, { u"responseData"_s, dataFor(type, {}) } });
    }
    send(client, 9, { { u"requestId"_s, batch.value("requestId"_L1) }, { u"results"_s, results } });
}

QJsonObject ZLStandInOBS::dataFor(const QString& type, const QJsonObject& data)
{
    const ZLOBSStatus status = recording.status(m_clock.now(), m_clock.now());
    if (type == "GetVersion"_L1)
        return { { u"availableRequests"_s, QJsonArray::fromStringList(requests) } };
    if (type == "GetRecordStatus"_L1)
        return { { u"outputActive"_s, status.isActive }, { u"outputPaused"_s, status.isPaused },
            { u"outputDuration"_s, qint64(std::llround(status.duration * 1000)) } };
    if (type == "GetStats"_L1)
        return { { u"outputTotalFrames"_s, status.frames } };
    if (type == "GetVideoSettings"_L1)
        return { { u"fpsNumerator"_s, 1.0 / recording.frameSeconds }, { u"fpsDenominator"_s, 1 } };
    if (type == "GetOutputSettings"_L1 && data.value("outputName"_L1) == "simple_file_output"_L1)
        return { { u"outputSettings"_s, QJsonObject { { u"path"_s, path } } } };
    if (type == "GetPersistentData"_L1)
        return { { u"slotValue"_s, note } };
    if (type == "SetPersistentData"_L1)
        note = data.value("slotValue"_L1);
    return {};
}

void ZLStandInOBS::startRecording(const QString& file)
{
    path = file;
    sendState(u"STARTING"_s);
    recording.start(m_clock.now() + 0.01);
    sendState(u"STARTED"_s, file);
}

void ZLStandInOBS::pauseRecording()
{
    recording.pause(m_clock.now());
    sendState(u"PAUSED"_s);
}

void ZLStandInOBS::resumeRecording()
{
    recording.resume(m_clock.now());
    sendState(u"RESUMED"_s);
}

void ZLStandInOBS::splitTo(const QString& file)
{
    path = file;
    for (QWebSocket* client : std::as_const(m_clients))
        send(*client, 5,
            { { u"eventType"_s, u"RecordFileChanged"_s },
                { u"eventData"_s, QJsonObject { { u"newOutputPath"_s, file } } } });
}

void ZLStandInOBS::stopRecording()
{
    sendState(u"STOPPING"_s);
    recording.isActive = false;
    sendState(u"STOPPED"_s, path);
}

void ZLStandInOBS::sendToAll(const QString& text)
{
    for (QWebSocket* client : QList<QWebSocket*>(m_clients))
        client->sendTextMessage(text);
}

void ZLStandInOBS::sendBytesToAll(const QByteArray& bytes)
{
    for (QWebSocket* client : QList<QWebSocket*>(m_clients))
        client->sendBinaryMessage(bytes);
}

void ZLStandInOBS::sendState(const QString& state, const QString& file)
{
    const QJsonObject data { { u"outputState"_s, QString(u"OBS_WEBSOCKET_OUTPUT_"_s + state) },
        { u"outputPath"_s, file.isEmpty() ? QJsonValue() : QJsonValue(file) } };
    for (QWebSocket* client : std::as_const(m_clients))
        send(*client, 5, { { u"eventType"_s, u"RecordStateChanged"_s }, { u"eventData"_s, data } });
}

void ZLStandInOBS::send(QWebSocket& client, int kind, const QJsonObject& data)
{
    const QJsonObject message { { u"op"_s, kind }, { u"d"_s, data } };
    client.sendTextMessage(QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact)));
}
