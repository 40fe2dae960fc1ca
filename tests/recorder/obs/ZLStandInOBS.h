#pragma once

#include "platform/ZLHostClock.h"
#include "recorder/obs/ZLSimulatedRecording.h"

#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTcpServer>
#include <QWebSocketServer>

#include <memory>

class QWebSocket;

/// A server on this computer that speaks the protocol of OBS Studio, and misbehaves on demand.
class ZLStandInOBS : public QObject {
    Q_OBJECT

public:
    explicit ZLStandInOBS(const QString& password = {});
    ~ZLStandInOBS() override;

    /// On the same port as before.
    void listen();
    /// As when OBS crashes.
    void kill();
    [[nodiscard]] quint16 port() const { return m_port; }

    int procedureVersion = 1;
    /// What it says of a client that asks for another version, or with another password.
    QStringList requests { QStringLiteral("GetVersion"), QStringLiteral("CreateRecordChapter") };
    /// Connects, and then says nothing.
    bool isMute = false;
    /// Where it records to when a recording is joined.
    QString path;
    /// The notes that clients leave.
    QJsonValue note;

    void startRecording(const QString& file);
    void pauseRecording();
    void resumeRecording();
    void splitTo(const QString& file);
    void stopRecording();
    void sendToAll(const QString& text);
    void sendBytesToAll(const QByteArray& bytes);

    /// Types of the requests that came, without the questions for the state.
    [[nodiscard]] const QStringList& received() const { return m_received; }
    [[nodiscard]] const QJsonObject& lastData() const { return m_lastData; }
    /// Where in its file the chapters are that came: where what left the encoder was.
    [[nodiscard]] const QList<double>& chapters() const { return m_chapters; }
    [[nodiscard]] const QString& allText() const { return m_allText; }
    [[nodiscard]] int identified() const { return m_identified; }
    [[nodiscard]] int looks() const { return m_looks; }

    ZLSimulatedRecording recording;

private:
    void accept();
    void answer(QWebSocket& client, const QString& text);
    void identify(QWebSocket& client, const QJsonObject& data);
    void answerRequest(QWebSocket& client, const QJsonObject& request);
    void answerBatch(QWebSocket& client, const QJsonObject& batch);
    [[nodiscard]] QJsonObject dataFor(const QString& type, const QJsonObject& data);
    void sendState(const QString& state, const QString& file = {});
    static void send(QWebSocket& client, int kind, const QJsonObject& data);

    const QString m_password;
    const ZLSteadyHostClock m_clock;
    quint16 m_port = 0;
    std::unique_ptr<QTcpServer> m_door;
    std::unique_ptr<QWebSocketServer> m_server;
    QList<QWebSocket*> m_clients;
    QStringList m_received;
    QJsonObject m_lastData;
    QList<double> m_chapters;
    QString m_allText;
    int m_identified = 0;
    int m_looks = 0;
};
