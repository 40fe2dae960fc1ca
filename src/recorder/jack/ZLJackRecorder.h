#pragma once

#include "platform/ZLHostClock.h"
#include "recorder/ZLRecorder.h"
#include "recorder/jack/ZLJackPosition.h"
#include "recorder/jack/ZLJackTransport.h"

#include <memory>

class ZLJackServer;

/// The transport of JACK, which Ardour and other programs record with; also that of PipeWire.
/// What a rolling and a standing transport mean, ZLJackPosition says.
class ZLJackRecorder final : public ZLRecorder {
    Q_OBJECT

public:
    explicit ZLJackRecorder(const ZLHostClock& clock, QObject* parent = nullptr);
    ~ZLJackRecorder() override;

    void open() override;
    void close() override;

    [[nodiscard]] bool canBeStarted() const override { return m_connection == ZLRecorderConnection::Connected; }
    /// The program that records has to be ready to record with the transport.
    void startRecording() override;
    void stopRecording() override;

private:
    void serverDidLook(const ZLJackTransport& transport);
    void serverWasMissed();
    void setConnection(ZLRecorderConnection connection, const QString& reason);

    const ZLHostClock& m_clock;
    std::unique_ptr<ZLJackServer> m_server;
    ZLJackPosition m_position;
    ZLRecorderConnection m_connection = ZLRecorderConnection::Off;
    QString m_reason;
};
