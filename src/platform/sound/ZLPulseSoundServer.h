#pragma once

#include "platform/sound/ZLPulseConnection.h"

/// The sound of a system with PulseAudio or PipeWire. Every sound and every list goes over one connection, which is
/// opened by the first of them and kept, so that a beep does not wait for a new one.
class ZLPulseSoundServer final : public ZLSoundServer {
    Q_OBJECT

public:
    ZLPulseSoundServer();

    [[nodiscard]] bool isReachable() override;
    void prepare() override { connection()->connectToServer(); }
    [[nodiscard]] std::unique_ptr<ZLSound> sound(const QByteArray& file) override;

protected:
    [[nodiscard]] ZLOutputReading readOutputs() override;

private:
    [[nodiscard]] const std::shared_ptr<ZLPulseConnection>& connection();
    void announceChange();

    /// Sounds share it, because they may outlive the server's object.
    std::shared_ptr<ZLPulseConnection> m_connection;
    std::optional<QList<ZLOutputDevice>> m_announced;
};
