#pragma once

#include "platform/notification/ZLNotificationServerPresence.h"
#include "settings/ui/MASPreferencesWindowController.h"

#include <QObject>

#include <memory>

class ZLApplication;
class ZLChapterDocumentWindow;
class ZLDesktopAnimations;
class ZLGeneralPrefsViewController;
class ZLShortcutPrefsViewController;
class ZLSoundServer;

/// The preferences window of the program and the ways to it. The window is made when it is first wanted and kept until
/// the program ends. The panes hear from here what the sound server and the hot keys have to say.
class ZLPreferences : public QObject {
    Q_OBJECT

public:
    /// Both have to outlive the object.
    ZLPreferences(ZLApplication& application, ZLSoundServer& soundServer, QObject* parent = nullptr);
    ~ZLPreferences() override;

    /// Adds "Preferences…" to the window's Edit menu and leads from its status line to the shortcuts.
    void addWindow(ZLChapterDocumentWindow& window);

    void openPreferences();
    void openShortcuts();
    void openAboutView();

    /// Null until the window is first wanted.
    [[nodiscard]] MASPreferencesWindowController* prefsController() const { return m_prefsController.get(); }

private:
    void makePrefsController();
    [[nodiscard]] std::unique_ptr<MASPreferencesViewController> makeGeneralPane();
    [[nodiscard]] std::unique_ptr<MASPreferencesViewController> makeShortcutPane();
    void followNotificationServer(ZLGeneralPrefsViewController& pane);
    void followHotKeys(ZLShortcutPrefsViewController& pane);
    void showSystemNotices(ZLShortcutPrefsViewController& pane) const;
    /// While a shortcut is recorded its keys have to reach the field, whatever they did before.
    void suspendHotKeys();
    void resumeHotKeys();

    ZLApplication& m_application;
    ZLSoundServer& m_soundServer;
    std::unique_ptr<ZLDesktopAnimations> m_desktopAnimations;
    ZLNotificationServerPresence m_notificationServer;
    std::unique_ptr<MASPreferencesWindowController> m_prefsController;
};
