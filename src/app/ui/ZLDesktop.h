#pragma once

#include "app/ZLApplication.h"
#include "app/ZLApplicationListening.h"
#include "app/ZLApplicationSounds.h"
#include "app/ZLCommandLine.h"
#include "app/ZLRunningInstance.h"
#include "app/ui/ZLPreferences.h"
#include "app/ui/listening/ZLListeningDisplay.h"
#include "app/ui/outside/ZLFollowingDisplay.h"
#include "app/ui/outside/ZLOSCConnections.h"
#include "app/ui/outside/ZLOutsideNewsDisplay.h"
#include "app/ui/outside/ZLOutsideTargetDisplay.h"
#include "app/ui/outside/ZLRemoteStatusDisplay.h"
#include "app/ui/quickedit/ZLQuickEdits.h"
#include "app/ui/shortcuts/ZLKeyEquivalents.h"
#include "app/ui/shortcuts/ZLMenuShortcuts.h"
#include "app/ui/shortcuts/ZLShortcutListDisplay.h"
#include "app/ui/windows/ZLDocumentWindows.h"
#include "platform/ZLSignalWatcher.h"

#include <memory>

class ZLDesktopApplication;

/// The program with windows: the application object, the windows of its documents, and what the desktop tells both.
class ZLDesktop : public QObject {
    Q_OBJECT

public:
    /// `events` is the process's QApplication and has to outlive the desktop.
    explicit ZLDesktop(ZLDesktopApplication& events, const ZLCommandLine& commandLine = {});

    /// Opens what is asked for, or what was open before, and stays until the program ends; returns its exit status.
    /// Meanwhile it takes what is asked of processes that are started later.
    [[nodiscard]] int run(const ZLLaunchRequest& request);

private:
    void updateAddButtons();
    void equipWindow(ZLChapterDocumentWindow* window);

    std::unique_ptr<ZLHotKeyCenter> m_hotKeyCenter;
    ZLApplicationSounds m_sounds;
    ZLApplication m_application;
    ZLApplicationListening m_listening;
    ZLDocumentWindows m_windows;
    ZLMenuShortcuts m_menuShortcuts;
    ZLKeyEquivalents m_keyEquivalents;
    ZLRemoteStatusDisplay m_remoteStatus;
    ZLListeningDisplay m_listeningDisplay;
    ZLOutsideTargetDisplay m_outsideTarget;
    ZLOutsideNewsDisplay m_outsideNews;
    ZLOSCConnections m_oscConnections;
    ZLFollowingDisplay m_following;
    ZLPreferences m_preferences;
    ZLShortcutListDisplay m_shortcutList;
    ZLQuickEdits m_quickEdits;
    ZLSignalWatcher m_signals;
    std::unique_ptr<ZLRunningInstance> m_runningInstance;
};
