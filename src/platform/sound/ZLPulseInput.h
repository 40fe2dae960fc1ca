#pragma once

#include "platform/sound/ZLPulseConnection.h"
#include "platform/sound/ZLPulseInputStream.h"
#include "platform/sound/ZLSoundInput.h"

#include <QTimer>

#include <memory>
#include <optional>

/// Hears a source of PulseAudio or PipeWire, over a connection of its own: a sound that plays is not held up by it.
class ZLPulseInput final : public ZLSoundInput {
    Q_OBJECT

public:
    /// Milliseconds between two attempts to reach a server, or a source that refused.
    static constexpr int RetryInterval = 2000;

    ZLPulseInput();

    void prepare() override;
    void listenTo(const QString& id) override;
    void stop() override;
    [[nodiscard]] State state() const override { return m_state; }
    [[nodiscard]] QList<ZLInputDevice> devices() const override { return m_devices; }
    [[nodiscard]] std::vector<ZLHeardBlock> takeBlocks() override;

private:
    void follow();
    void followDevices(const ZLPulseConnection::Snapshot& snapshot);
    void openIfThere(const ZLInputReading& inputs);
    void open(const QString& id);
    void noteFailure();
    void noteSound();
    void retry();
    void setState(State state);

    std::shared_ptr<ZLPulseConnection> m_connection;
    std::unique_ptr<ZLPulseInputStream> m_stream;
    /// What `m_stream` hears.
    QString m_openId;
    /// What is wanted; empty for the default source.
    std::optional<QString> m_wantedId;
    QList<ZLInputDevice> m_devices;
    State m_state = State::Off;
    /// The source was there and could not be opened: it waits for the timer.
    bool m_hasFailed = false;
    QTimer m_retryTimer;
};
