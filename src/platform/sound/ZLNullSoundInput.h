#pragma once

#include "platform/sound/ZLSoundInput.h"

#include <utility>

/// The ears of a system that has none.
class ZLNullSoundInput final : public ZLSoundInput {
    Q_OBJECT

public:
    void prepare() override { }
    void listenTo(const QString&) override { setState(State::NoServer); }
    void stop() override { setState(State::Off); }
    [[nodiscard]] State state() const override { return m_state; }
    [[nodiscard]] QList<ZLInputDevice> devices() const override { return {}; }
    [[nodiscard]] std::vector<ZLHeardBlock> takeBlocks() override { return {}; }

private:
    void setState(State state)
    {
        if (std::exchange(m_state, state) != state)
            Q_EMIT stateDidChange();
    }

    State m_state = State::Off;
};
