#pragma once

#include "platform/sound/ZLSoundServer.h"

/// The sound of a system that has none: no outputs, and sounds that end at once.
class ZLNullSoundServer final : public ZLSoundServer {
    Q_OBJECT

public:
    [[nodiscard]] bool isReachable() override { return false; }
    [[nodiscard]] std::unique_ptr<ZLSound> sound(const QByteArray& file) override;

protected:
    [[nodiscard]] ZLOutputReading readOutputs() override;
};
