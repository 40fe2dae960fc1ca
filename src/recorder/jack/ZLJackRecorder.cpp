#include "recorder/jack/ZLJackRecorder.h"

#include "recorder/jack/ZLJackServer.h"

namespace {

/// By which the server's own timing of its cycles is uneven, in seconds.
constexpr double unevenCycles = 0.001;
constexpr double secondsInMicrosecond = 1e-6;

}

ZLJackRecorder::ZLJackRecorder(const ZLHostClock& clock, QObject* parent)
    : ZLRecorder(parent)
    , m_clock(clock)
{
}

ZLJackRecorder::~ZLJackRecorder() = default;

void ZLJackRecorder::open()
{
    close();
    setConnection(ZLRecorderConnection::Connecting, tr("Waiting for a JACK server."));
    m_server = std::make_unique<ZLJackServer>();
    connect(
        m_server.get(), &ZLJackServer::didFind, this, [this] { setConnection(ZLRecorderConnection::Connected, {}); });
    connect(m_server.get(), &ZLJackServer::didMiss, this, &ZLJackRecorder::serverWasMissed);
    connect(m_server.get(), &ZLJackServer::didLook, this, &ZLJackRecorder::serverDidLook);
}

void ZLJackRecorder::close()
{
    m_server.reset();
    m_position = {};
    setConnection(ZLRecorderConnection::Off, {});
}

void ZLJackRecorder::startRecording()
{
    if (m_server)
        m_server->startTransport();
}

void ZLJackRecorder::stopRecording()
{
    if (m_server)
        m_server->stopTransport();
}

void ZLJackRecorder::serverDidLook(const ZLJackTransport& transport)
{
    const double before = m_clock.now();
    const auto age = qint64(ZLJackServer::microseconds() - transport.microseconds);
    const double after = m_clock.now();
    const double hostTime = (before + after) / 2 - double(age) * secondsInMicrosecond;
    for (const ZLRecorderReport& report : m_position.take(transport, hostTime, (after - before) / 2 + unevenCycles))
        Q_EMIT didReport(report);
}

void ZLJackRecorder::serverWasMissed()
{
    m_position = {};
    setConnection(ZLRecorderConnection::Connecting,
        m_connection == ZLRecorderConnection::Connected ? tr("The JACK server has gone.")
                                                        : tr("No JACK server is running."));
}

void ZLJackRecorder::setConnection(ZLRecorderConnection connection, const QString& reason)
{
    if (m_connection == connection && m_reason == reason)
        return;
    m_connection = connection;
    m_reason = reason;
    Q_EMIT connectionDidChange(connection, reason);
}
