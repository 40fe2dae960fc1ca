#pragma once

#include "platform/ZLHostClock.h"
#include "platform/hotkey/ZLHotKeyCenter.h"

#include <QMap>

#include <optional>

/// A window system with hot keys in the hands of the test.
class ZLRecordingHotKeyCenter final : public ZLHotKeyCenter {
public:
    [[nodiscard]] QString backendName() const override { return QStringLiteral("recording"); }
    [[nodiscard]] QString unavailabilityReason() const override { return unavailability; }

    /// The combination is pressed somewhere in the system.
    void press(const ZLKeyCombo& combo)
    {
        for (auto hotKey = active.cbegin(); hotKey != active.cend(); ++hotKey) {
            if (hotKey->keyCombo == combo)
                Q_EMIT hotKeyPressed(hotKey.key(), ZLPressStamp(pressTime.value_or(ZLSteadyHostClock().now())));
        }
    }

    /// The system's late answer.
    void refuse(const QString& identifier, const QString& reason)
    {
        setHotKeyState(identifier, ZLHotKey::State::Refused, reason);
    }

    /// Combinations that another program has.
    QList<ZLKeyCombo> held;
    QMap<QString, ZLHotKey> active;
    QString unavailability;
    /// When the next press reaches the computer; absent for the moment at which it is handled.
    std::optional<double> pressTime;

protected:
    void activateHotKey(const ZLHotKey& hotKey) override
    {
        if (held.contains(hotKey.keyCombo)) {
            setHotKeyState(hotKey.identifier, ZLHotKey::State::Refused, QStringLiteral("Another program has it."));
            return;
        }
        active.insert(hotKey.identifier, hotKey);
        setHotKeyState(hotKey.identifier, ZLHotKey::State::Registered);
    }
    void deactivateHotKey(const ZLHotKey& hotKey) override { active.remove(hotKey.identifier); }
};
