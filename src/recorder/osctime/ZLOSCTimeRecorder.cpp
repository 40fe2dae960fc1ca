#include "recorder/osctime/ZLOSCTimeRecorder.h"

#include "platform/osc/ZLOSCManager.h"

#include <utility>

namespace {

constexpr int silenceMilliseconds = 500;

/// Nothing where the message carries no number: what somebody sent by mistake must not stop a clock.
std::optional<double> numberIn(const ZLOSCMessage& message)
{
    if (message.arguments().isEmpty())
        return std::nullopt;
    const ZLOSCArgument& first = message.arguments().first();
    bool isNumber = std::holds_alternative<qint32>(first) || std::holds_alternative<qint64>(first)
        || std::holds_alternative<float>(first) || std::holds_alternative<double>(first)
        || std::holds_alternative<bool>(first);
    if (const auto* text = std::get_if<QString>(&first))
        (void)text->toDouble(&isNumber);
    return isNumber ? std::optional(message.floatValue()) : std::nullopt;
}

}

ZLOSCTimeRecorder::ZLOSCTimeRecorder(
    ZLOSCManager& manager, ZLOSCTimeAddresses addresses, std::shared_ptr<const ZLHostClock> clock, QObject* parent)
    : ZLRecorder(parent)
    , m_manager(manager)
    , m_addresses(std::move(addresses))
    , m_clock(std::move(clock))
    , m_reading(m_addresses)
{
    m_silenceTimer.setInterval(silenceMilliseconds);
    connect(&m_silenceTimer, &QTimer::timeout, this, &ZLOSCTimeRecorder::lookForSilence);
}

ZLOSCTimeRecorder::~ZLOSCTimeRecorder()
{
    close();
}

void ZLOSCTimeRecorder::open()
{
    // The function runs on the receiving thread.
    m_manager.setNewestOnly(
        [addresses = m_addresses](const ZLOSCMessage& message) { return addresses.contain(message.address()); });
    connect(&m_manager, &ZLOSCManager::receivedNewestMessage, this, &ZLOSCTimeRecorder::receive, Qt::UniqueConnection);
    m_silenceTimer.start();
    setConnection(ZLRecorderConnection::Connecting, tr("No time has come by OSC yet."));
}

void ZLOSCTimeRecorder::close()
{
    if (m_connection == ZLRecorderConnection::Off)
        return;
    m_silenceTimer.stop();
    disconnect(&m_manager, nullptr, this, nullptr);
    m_manager.setNewestOnly({});
    m_reading = ZLOSCTimeReading(m_addresses);
    setConnection(ZLRecorderConnection::Off);
}

void ZLOSCTimeRecorder::receive(const ZLOSCTimedMessage& timed)
{
    const auto number = numberIn(timed.message);
    if (!number)
        return;
    m_lastArrival = timed.hostTime;
    setConnection(ZLRecorderConnection::Connected);
    const auto report = m_reading.note(timed.message.address(), *number, timed.hostTime);
    if (!report)
        return;
    m_state = report->state;
    Q_EMIT didReport(*report);
}

/// A recorder that stands has nothing to say.
void ZLOSCTimeRecorder::lookForSilence()
{
    if (m_state == ZLRecorderState::Recording && m_clock->now() - m_lastArrival > LongestSilence)
        setConnection(ZLRecorderConnection::Connecting, tr("No time comes by OSC any more."));
}

void ZLOSCTimeRecorder::setConnection(ZLRecorderConnection connection, const QString& reason)
{
    if (std::exchange(m_connection, connection) != connection)
        Q_EMIT connectionDidChange(connection, reason);
}
