#include "recorder/obs/ZLOBSConnection.h"

#include <QLoggingCategory>
#include <QUrl>
#include <QWebSocket>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(obsLog, "zelta.recorder.obs")

constexpr std::array pauses { 1s, 2s, 4s, 8s, 10s };
/// It is asked several times a second, so one that says nothing for so long is gone.
constexpr std::chrono::milliseconds longestSilence = 5s;

// Codes with which the server ends the connection.
constexpr int authenticationFailed = 4009;
constexpr int missingField = 4003;
constexpr int unsupportedVersion = 4010;
constexpr int sessionInvalidated = 4011;

}

ZLOBSConnection::ZLOBSConnection(ZLOBSAddress address, const ZLHostClock& clock, ZLOneShotTimerStarter startTimer)
    : m_address(std::move(address))
    , m_clock(clock)
    , m_startTimer(std::move(startTimer))
{
}

ZLOBSConnection::~ZLOBSConnection()
{
    dropSocket();
}

void ZLOBSConnection::open()
{
    close();
    setState(ZLRecorderConnection::Connecting, tr("Waiting for OBS Studio at %1.").arg(place()));
    connectSocket();
}

void ZLOBSConnection::close()
{
    m_retry.reset();
    m_failures = 0;
    dropSocket();
    setState(ZLRecorderConnection::Off, {});
}

void ZLOBSConnection::send(const ZLOBSMessage& message)
{
    if (m_socket && isIdentified())
        m_socket->sendTextMessage(message.text());
}

void ZLOBSConnection::connectSocket()
{
    dropSocket();
    m_socket = std::make_unique<QWebSocket>();
    m_socket->setMaxAllowedIncomingFrameSize(LargestMessage);
    m_socket->setMaxAllowedIncomingMessageSize(LargestMessage);
    connect(m_socket.get(), &QWebSocket::textMessageReceived, this, &ZLOBSConnection::textDidArrive);
    connect(m_socket.get(), &QWebSocket::binaryMessageReceived, this,
        [this] { failed(tr("What answers at %1 is not OBS Studio.").arg(place())); });
    connect(m_socket.get(), &QWebSocket::disconnected, this, &ZLOBSConnection::socketDidEnd);
    QUrl url;
    url.setScheme(u"ws"_s);
    url.setHost(m_address.host);
    url.setPort(m_address.port);
    qCDebug(obsLog, "connecting to %s", qUtf8Printable(place()));
    waitForMessage();
    m_socket->open(url);
}

void ZLOBSConnection::dropSocket()
{
    m_silence.reset();
    if (!m_socket)
        return;
    m_socket->disconnect(this);
    m_socket->abort();
    // It may be on the way of one of its own signals.
    m_socket.release()->deleteLater();
}

void ZLOBSConnection::socketDidEnd()
{
    const int code = m_socket->closeCode();
    if (code == authenticationFailed || code == missingField)
        refused(tr("OBS Studio refuses the password. It is shown in OBS under Tools, WebSocket Server Settings."));
    else if (code == unsupportedVersion)
        refused(tr("This OBS Studio speaks another version of its protocol. It has to be OBS 28 or newer."));
    else if (code == sessionInvalidated)
        refused(tr("OBS Studio has thrown Zelta out."));
    else
        failed(reasonOfEnd());
}

QString ZLOBSConnection::reasonOfEnd() const
{
    if (isIdentified())
        return tr("OBS Studio has ended the connection.");
    return tr("OBS Studio does not answer at %1.").arg(place());
}

void ZLOBSConnection::textDidArrive(const QString& text)
{
    if (isFlooded(text.size())) {
        failed(tr("OBS Studio sends more than it should."));
        return;
    }
    const std::optional<ZLOBSMessage> message = ZLOBSMessage::read(text);
    if (!message) {
        failed(tr("What answers at %1 is not OBS Studio.").arg(place()));
        return;
    }
    waitForMessage();
    if (isIdentified()) {
        Q_EMIT messageDidArrive(*message);
    } else if (message->kind == ZLOBSMessage::Kind::Hello) {
        answerHello(message->data);
    } else if (message->kind == ZLOBSMessage::Kind::Identified) {
        m_failures = 0;
        setState(ZLRecorderConnection::Connected, {});
    }
}

void ZLOBSConnection::answerHello(const QJsonObject& hello)
{
    const int version = hello.value("rpcVersion"_L1).toInt();
    qCInfo(obsLog, "OBS speaks version %d of the procedures", version);
    // A newer server speaks the older versions too, and ends the connection where it does not.
    if (version < ZLOBSMessage::ProcedureVersion) {
        refused(tr("This OBS Studio speaks another version of its protocol. It has to be OBS 28 or newer."));
    } else if (hello.contains("authentication"_L1) && m_address.password.isEmpty()) {
        refused(tr("OBS Studio wants a password. It is shown in OBS under Tools, WebSocket Server Settings."));
    } else {
        m_socket->sendTextMessage(ZLOBSMessage::identify(hello, m_address.password).text());
    }
}

void ZLOBSConnection::failed(const QString& reason)
{
    dropSocket();
    const auto pause = pauses.at(std::min(std::size_t(m_failures), pauses.size() - 1));
    ++m_failures;
    m_retry = m_startTimer(pause, [this] { connectSocket(); });
    setState(ZLRecorderConnection::Connecting, reason);
}

void ZLOBSConnection::refused(const QString& reason)
{
    dropSocket();
    setState(ZLRecorderConnection::Refused, reason);
}

void ZLOBSConnection::setState(ZLRecorderConnection state, const QString& reason)
{
    if (m_state == state && m_reason == reason)
        return;
    m_state = state;
    m_reason = reason;
    if (!reason.isEmpty())
        qCInfo(obsLog, "%s", qUtf8Printable(reason));
    Q_EMIT stateDidChange(state, reason);
}

void ZLOBSConnection::waitForMessage()
{
    // A timer must not go during its own call.
    const auto giveUp = [this] { failed(reasonOfEnd()); };
    m_silence =
        m_startTimer(longestSilence, [this, giveUp] { QMetaObject::invokeMethod(this, giveUp, Qt::QueuedConnection); });
}

bool ZLOBSConnection::isFlooded(qsizetype characters)
{
    if (m_clock.now() >= m_second + 1.0) {
        m_second = m_clock.now();
        m_messagesThisSecond = 0;
        m_charactersThisSecond = 0;
    }
    ++m_messagesThisSecond;
    m_charactersThisSecond += characters;
    return m_messagesThisSecond > MostMessagesPerSecond || m_charactersThisSecond > MostCharactersPerSecond;
}

QString ZLOBSConnection::place() const
{
    return m_address.host + u':' + QString::number(m_address.port);
}
