#pragma once

#include "platform/sound/ZLSound.h"

/// A sound that plays until the test ends it.
class ZLFakeSound final : public ZLSound {
public:
    void play() override { ++m_playCount; }
    [[nodiscard]] int playCount() const { return m_playCount; }
    void finish(bool finished = true) { Q_EMIT didFinishPlaying(finished); }

private:
    int m_playCount = 0;
};
