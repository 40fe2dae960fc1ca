#pragma once

#include <QObject>

/// Announces changes of settings. A setter stores first and then emits, also when the new value equals the old one.
class ZLSettingsNotifications : public QObject {
    Q_OBJECT

Q_SIGNALS:
    void ZLFontSizeSettingDidChange();
    void ZLShortcutsDidChange();
    void ZLGlobalHotkeysDidChange();
    void ZLShowAbsoluteTimeSettingDidChange();
    void ZLOSCInputPortSettingDidChange();
    /// Of the choice or of the list of addresses.
    void ZLOSCAcceptSettingDidChange();
    void ZLOSCOutputsSettingDidChange();
    void ZLOSCAnswerSendersSettingDidChange();
};
