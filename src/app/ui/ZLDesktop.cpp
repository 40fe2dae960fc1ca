#include "app/ui/ZLDesktop.h"

#include "app/ZLErrorLines.h"
#include "app/ui/ZLDesktopApplication.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "platform/activity/ZLBootClock.h"
#include "platform/dnssd/ZLAvahiServicePublisher.h"
#include "platform/notification/ZLBusNotificationCenter.h"

#include <QFontInfo>

#include <csignal>

namespace {

ZLDocumentControllerSetup desktopSetup(const ZLDesktopApplication& events, ZLApplicationSounds& sounds)
{
    ZLDocumentControllerSetup setup;
    setup.environment.isApplicationActive = &ZLApplicationFocus::isActive;
    setup.environment.isOptionKeyHeld = [&events] { return events.isOptionKeyHeld(); };
    setup.environment.pressUnderWay = [&events] { return events.pressUnderWay(); };
    setup.environment.soundNamed = sounds.soundNamed();
    setup.environment.bootClock = std::make_shared<ZLBootClock>();
    setup.environment.notificationCenter = std::make_shared<ZLBusNotificationCenter>();
    return setup;
}

}

ZLDesktop::ZLDesktop(ZLDesktopApplication& events, const ZLCommandLine& commandLine)
    : m_hotKeyCenter(ZLHotKeyCenter::create())
    , m_application(desktopSetup(events, m_sounds), float(QFontInfo(QApplication::font()).pointSizeF()),
          { m_hotKeyCenter.get(), commandLine.oscPort, commandLine.oscOutputs,
              std::make_unique<ZLAvahiServicePublisher>(), ZLProcessActivity::create() })
    , m_listening(m_application.documentController())
    , m_windows(m_application.documentController(), m_sounds.soundMaker())
    , m_keyEquivalents(m_application.documentController(), m_application.commandKeys())
    , m_remoteStatus(m_application)
    , m_listeningDisplay(m_listening.shows())
    , m_outsideTarget(m_application)
    , m_outsideNews(m_application.outsideCommands(), m_windows)
    , m_oscConnections(m_application)
    , m_following(m_application)
    , m_preferences(m_application, m_sounds.server())
    , m_shortcutList(m_application)
    , m_quickEdits(m_application)
    , m_signals({ SIGINT, SIGTERM, SIGHUP })
{
    m_sounds.prepareForRecording();
    m_menuShortcuts.followKeyboardLayout(*m_hotKeyCenter);
    connect(&m_windows, &ZLDocumentWindows::didAddWindow, this, &ZLDesktop::equipWindow);
    connect(&events, &ZLDesktopApplication::modifiersDidChange, this, &ZLDesktop::updateAddButtons);
    connect(&events.focus(), &ZLApplicationFocus::didChange, &m_windows, &ZLDocumentWindows::applicationDidComeOrGo);
    connect(&m_windows, &ZLDocumentWindows::aboutRequested, &m_preferences, &ZLPreferences::openAboutView);
    connect(&m_windows, &ZLDocumentWindows::keysRequested, &m_shortcutList, &ZLShortcutListDisplay::showFor);
    connect(&m_shortcutList, &ZLShortcutListDisplay::changeRequested, &m_preferences, &ZLPreferences::openShortcuts);
    connect(&m_signals, &ZLSignalWatcher::didReceiveSignal, &m_windows, &ZLDocumentWindows::quitAtOnce);
}

int ZLDesktop::run(const ZLLaunchRequest& request)
{
    if (const QStringList missing = m_windows.openAtLaunch(request); !missing.isEmpty()) {
        ZLErrorLines::print(missing);
        return ZLExitStatus::Failed;
    }
    m_following.followAsBefore();
    m_runningInstance = std::make_unique<ZLRunningInstance>(
        [this](const ZLLaunchRequest& later, const auto& answer) { m_windows.openLater(later, answer); });
    return QCoreApplication::exec();
}

void ZLDesktop::updateAddButtons()
{
    const auto documents = m_application.documentController().documents();
    for (ZLChapterDocument* document : documents)
        document->updateAddButton();
}

void ZLDesktop::equipWindow(ZLChapterDocumentWindow* window)
{
    // The Edit menu ends with the preferences.
    m_listeningDisplay.addWindow(*window);
    m_preferences.addWindow(*window);
    m_menuShortcuts.addWindow(*window);
    m_keyEquivalents.addWindow(*window);
    m_remoteStatus.addStatusLine(window->statusLine());
    m_oscConnections.addWindow(*window);
    m_following.addWindow(*window);
    m_outsideTarget.addWindow(*window);
}
