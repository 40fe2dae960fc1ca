#pragma once

#include "platform/hotkey/ZLHotKeyCenter.h"
#include "remote/ZLRemoteController.h"

#include <optional>

/// Makes the six recorded shortcuts work in the whole system. It follows the stored shortcuts; the hot keys themselves
/// belong to the centre, and the owner of the controller unregisters them.
class ZLHotkeyController : public ZLRemoteController {
    Q_OBJECT

public:
    /// The centre has to outlive the controller.
    ZLHotkeyController(ZLRemoteControllerDelegate* delegate, ZLHotKeyCenter& center, QObject* parent = nullptr);

    /// Takes every hot key out of the centre, also those of others, and registers those that are stored.
    void setupHotkeys();
    /// Delivers the action of the hot key that fired.
    void hotkeyAction(const QString& identifier, std::optional<ZLPressStamp> press = {});

    /// "" for a key that is none of the six.
    [[nodiscard]] static QString actionForSettingsKey(const QString& settingsKey);

    /// How it stands with the shortcut that is stored under the key: its state, why the system refused it, and which
    /// keys a desktop that lets the user choose has given it. Nothing when none is stored.
    [[nodiscard]] std::optional<ZLHotKey> hotKeyForSettingsKey(const QString& settingsKey) const;
    /// The hot keys that do not fire, with their reasons.
    [[nodiscard]] QList<ZLHotKey> refusedHotKeys() const;

    static void unregisterAllHotKeys(ZLHotKeyCenter& center);

Q_SIGNALS:
    /// Hot keys were registered anew, or the system's answer about one has come or has changed.
    void hotKeysDidChange();

private:
    ZLHotKeyCenter& m_center;
};
