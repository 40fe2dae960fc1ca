#pragma once

#include "platform/ZLHostClock.h"
#include "platform/ZLOneShotTimer.h"
#include "recorder/ZLRecorder.h"
#include "recorder/obs/ZLOBSMessage.h"

#include <QObject>
#include <QString>

#include <memory>

class QWebSocket;

/// Where OBS Studio listens.
struct ZLOBSAddress {
    QString host = QStringLiteral("127.0.0.1");
    quint16 port = 4455;
    /// As it is shown in OBS; empty where OBS asks for none.
    QString password;
};

/// The websocket to OBS Studio: greets, identifies, and comes back after a pause when it was lost. Nothing waits. What
/// comes in is bounded, in size and in number. The password is never logged.
class ZLOBSConnection : public QObject {
    Q_OBJECT

public:
    ZLOBSConnection(ZLOBSAddress address, const ZLHostClock& clock, ZLOneShotTimerStarter startTimer);
    ~ZLOBSConnection() override;

    void open();
    void close();
    [[nodiscard]] bool isIdentified() const { return m_state == ZLRecorderConnection::Connected; }
    /// Dropped where it is not identified.
    void send(const ZLOBSMessage& message);

    /// No message has more bytes.
    static constexpr quint64 LargestMessage = 1U << 18U;
    /// OBS sends a few dozen messages in a second, of which the largest has ten thousand characters.
    static constexpr int MostMessagesPerSecond = 1000;
    static constexpr qsizetype MostCharactersPerSecond = qsizetype(1) << 20;

Q_SIGNALS:
    void stateDidChange(ZLRecorderConnection state, const QString& reason);
    /// Events and answers.
    void messageDidArrive(const ZLOBSMessage& message);

private:
    void connectSocket();
    void dropSocket();
    void socketDidEnd();
    void textDidArrive(const QString& text);
    void answerHello(const QJsonObject& hello);
    void failed(const QString& reason);
    void refused(const QString& reason);
    void setState(ZLRecorderConnection state, const QString& reason);
    void waitForMessage();
    [[nodiscard]] bool isFlooded(qsizetype characters);
    [[nodiscard]] QString place() const;
    [[nodiscard]] QString reasonOfEnd() const;

    const ZLOBSAddress m_address;
    const ZLHostClock& m_clock;
    const ZLOneShotTimerStarter m_startTimer;
    ZLRecorderConnection m_state = ZLRecorderConnection::Off;
    QString m_reason;
    std::unique_ptr<QWebSocket> m_socket;
    std::unique_ptr<ZLOneShotTimer> m_retry;
    std::unique_ptr<ZLOneShotTimer> m_silence;
    int m_failures = 0;
    double m_second = 0.0;
    int m_messagesThisSecond = 0;
    qsizetype m_charactersThisSecond = 0;
};
