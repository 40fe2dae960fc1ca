#pragma once

#include "platform/sound/ZLSoundInput.h"

#include <algorithm>
#include <utility>

/// Ears in the hands of the test.
class ZLFakeSoundInput final : public ZLSoundInput {
public:
    void prepare() override { }
    void listenTo(const QString& id) override
    {
        m_wantedId = id;
        const bool isThere = id.isEmpty() || std::ranges::find(m_devices, id, &ZLInputDevice::id) != m_devices.cend();
        setState(isThere ? State::Opening : State::Missing);
    }
    void stop() override { setState(State::Off); }
    [[nodiscard]] State state() const override { return m_state; }
    [[nodiscard]] QList<ZLInputDevice> devices() const override { return m_devices; }
    [[nodiscard]] std::vector<ZLHeardBlock> takeBlocks() override { return std::exchange(m_blocks, {}); }

    [[nodiscard]] const QString& wantedId() const { return m_wantedId; }
    void setDevices(const QList<ZLInputDevice>& devices)
    {
        m_devices = devices;
        Q_EMIT devicesDidChange();
    }
    void setState(State state)
    {
        if (std::exchange(m_state, state) != state)
            Q_EMIT stateDidChange();
    }
    void hear(const ZLHeardBlock& block)
    {
        setState(State::Hearing);
        m_blocks.push_back(block);
        Q_EMIT didHear();
    }

private:
    QString m_wantedId;
    QList<ZLInputDevice> m_devices { { QStringLiteral("microphone"), QStringLiteral("Microphone"), false },
        { QStringLiteral("card.monitor"), QStringLiteral("Monitor of Card"), true } };
    State m_state = State::Off;
    std::vector<ZLHeardBlock> m_blocks;
};
