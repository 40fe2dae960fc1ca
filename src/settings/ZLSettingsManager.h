#pragma once

#include "settings/ZLOSCDestination.h"
#include "settings/ZLSettingsNotifications.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <optional>

/// The keys under which settings are stored, in `zelta.conf` in the user's configuration folder.
namespace ZLSettingKey {
inline const QString NewChapterOnStart = QStringLiteral("ZLNewChapterOnStartSetting");
inline const QString NewChapterAfterPause = QStringLiteral("ZLNewChapterAfterPauseSetting");
inline const QString PlaySoundBeforeRecording = QStringLiteral("ZLPlaySoundBeforeRecordingSetting");
inline const QString FontSize = QStringLiteral("ZLFontSizeSetting");
inline const QString GlobalHotkeys = QStringLiteral("ZLGlobalHotkeysSetting");
inline const QString AudioOutputDevice = QStringLiteral("ZLAudioOutputDeviceSetting");
inline const QString ShowAbsoluteTime = QStringLiteral("ZLShowAbsoluteTimeSetting");
inline const QString ShowQuickEdit = QStringLiteral("ZLShowQuickEditSetting");
inline const QString OSCInputPort = QStringLiteral("ZLOSCInputPortSetting");
inline const QString OSCAccept = QStringLiteral("ZLOSCAcceptSetting");
inline const QString OSCAcceptedAddresses = QStringLiteral("ZLOSCAcceptedAddressesSetting");
inline const QString OSCOutputs = QStringLiteral("ZLOSCOutputsSetting");
inline const QString OSCAnswerSenders = QStringLiteral("ZLOSCAnswerSendersSetting");
}

/// The keys of the six shortcuts. Their order in ZLSettingsManager::allKeyComboKeys(), counted from 1, is also the tag
/// of the menu item that carries the shortcut.
namespace ZLKeyComboKey {
inline const QString ToggleRecording = QStringLiteral("ZLToggleRecordingKeyCombo");
inline const QString NewChapter = QStringLiteral("ZLNewChapterKeyCombo");
inline const QString RemoveSelectedChapter = QStringLiteral("ZLRemoveSelectedChapterKeyCombo");
inline const QString RemoveLastChapter = QStringLiteral("ZLRemoveLastChapterKeyCombo");
inline const QString SelectLastChapter = QStringLiteral("ZLSelectLastChapterKeyCombo");
inline const QString SelectNextChapter = QStringLiteral("ZLSelectNextChapterKeyCombo");
}

/// Who may command the recorder by OSC.
enum class ZLOSCAccept {
    ThisComputerOnly,
    DirectlyConnectedNetworks,
    OnlyTheseAddresses,
};

/// The one place through which the program reads and writes the user's preferences. Every change is written at once.
/// Registered defaults are fallbacks for keys that were never written; they are never stored. Main thread only.
class ZLSettingsManager {
public:
    /// Keeps all settings in this file from now on; without a call they stand in the user's configuration folder.
    static void useFile(const QString& path);
    [[nodiscard]] static ZLSettingsNotifications& notifications();

    /// To be called before anything reads a setting. `systemFontSize` is in points.
    static void registerDefaults(float systemFontSize);

    [[nodiscard]] static bool createNewChapterOnStart();
    static void setCreateNewChapterOnStart(bool enabled);
    [[nodiscard]] static bool createNewChapterAfterPause();
    static void setCreateNewChapterAfterPause(bool enabled);
    [[nodiscard]] static bool playSoundBeforeRecording();
    static void setPlaySoundBeforeRecording(bool enabled);
    /// Points.
    [[nodiscard]] static float fontSize();
    static void setFontSize(float points);
    [[nodiscard]] static bool globalHotkeys();
    static void setGlobalHotkeys(bool enabled);
    /// Identifier of the output for the beep; null means the system's default output.
    [[nodiscard]] static QString audioOutputDevice();
    /// A null identifier removes the value.
    static void setAudioOutputDevice(const QString& identifier);
    [[nodiscard]] static bool showAbsoluteTime();
    static void setShowAbsoluteTime(bool enabled);
    [[nodiscard]] static bool showQuickEdit();
    static void setShowQuickEdit(bool enabled);

    /// The first UDP port to try for OSC input; 9358 unless one from 1 to 65535 is stored.
    [[nodiscard]] static quint16 oscInputPort();
    static void setOSCInputPort(quint16 port);
    /// The directly connected networks unless something else is stored.
    [[nodiscard]] static ZLOSCAccept oscAccept();
    static void setOSCAccept(ZLOSCAccept accept);
    /// What the user typed, one address or network each, in force with OnlyTheseAddresses.
    [[nodiscard]] static QStringList oscAcceptedAddresses();
    static void setOSCAcceptedAddresses(const QStringList& addresses);
    /// Without what is stored but names no host and port.
    [[nodiscard]] static QList<ZLOSCDestination> oscOutputs();
    static void setOSCOutputs(const QList<ZLOSCDestination>& outputs);
    /// Whether the state is sent for a while to the sender of a valid command.
    [[nodiscard]] static bool oscAnswersSenders();
    static void setOSCAnswersSenders(bool enabled);

    /// A shortcut: "keyCode" (integer, hardware-independent virtual key code) and "modifierFlags" (unsigned, shift
    /// 0x20000, control 0x40000, option 0x80000, command 0x100000); other entries are kept. Nothing when no
    /// shortcut is stored. Any key is accepted.
    [[nodiscard]] static std::optional<QVariantMap> keyComboForKey(const QString& key);
    static void setKeyCombo(const QVariantMap& shortcut, const QString& key);
    static void removeKeyComboForKey(const QString& key);
    [[nodiscard]] static QStringList allKeyComboKeys();

    /// What a window remembers under a key of its own, which is not announced. Null when nothing is stored.
    [[nodiscard]] static QString textForKey(const QString& key);
    static void setText(const QString& text, const QString& key);
};
