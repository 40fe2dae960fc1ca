#pragma once

#include "platform/ZLHostClock.h"
#include "recorder/ZLRecorder.h"
#include "recorder/osctime/ZLOSCTimeReading.h"

#include <QTimer>

#include <memory>

class ZLOSCManager;
struct ZLOSCTimedMessage;

/// A recorder that sends its time by Open Sound Control, to the port that also takes commands and under the same rules
/// of who may speak.
class ZLOSCTimeRecorder final : public ZLRecorder {
    Q_OBJECT

public:
    /// `manager` has to outlive it. `clock` is the one that arrivals are measured with.
    ZLOSCTimeRecorder(ZLOSCManager& manager, ZLOSCTimeAddresses addresses,
        std::shared_ptr<const ZLHostClock> clock = std::make_shared<ZLSteadyHostClock>(), QObject* parent = nullptr);
    ~ZLOSCTimeRecorder() override;

    /// While it records and nothing comes for so many seconds, it counts as gone.
    static constexpr double LongestSilence = 2.5;

    void open() override;
    void close() override;
    void receive(const ZLOSCTimedMessage& timed);

private:
    void lookForSilence();
    void setConnection(ZLRecorderConnection connection, const QString& reason = {});

    ZLOSCManager& m_manager;
    const ZLOSCTimeAddresses m_addresses;
    std::shared_ptr<const ZLHostClock> m_clock;
    ZLOSCTimeReading m_reading;
    ZLRecorderConnection m_connection = ZLRecorderConnection::Off;
    ZLRecorderState m_state = ZLRecorderState::Standing;
    double m_lastArrival = 0.0;
    QTimer m_silenceTimer;
};
