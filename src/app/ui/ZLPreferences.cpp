#include "app/ui/ZLPreferences.h"

#include "app/ZLApplication.h"
#include "commands/ZLRemoteActions.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLActionHelp.h"
#include "document/ui/menus/ZLEditMenu.h"
#include "platform/sound/ZLSoundServer.h"
#include "platform/window/ZLDesktopAnimations.h"
#include "platform/window/ZLFloatingWindow.h"
#include "settings/ZLSettingsManager.h"
#include "settings/ui/ZLAboutViewController.h"
#include "settings/ui/ZLGeneralPrefsViewController.h"
#include "settings/ui/ZLShortcutPrefsViewController.h"

#include <QCoreApplication>
#include <QMenu>

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

/// Places of the panes in the window; the gap before the last one counts.
constexpr qsizetype shortcutPaneIndex = 1;
constexpr qsizetype aboutPaneIndex = 3;

/// What happens where nothing shows notifications.
QString noticeWithoutNotifications()
{
    return ZLFloatingWindow::canAppearWithoutKeyboard()
        ? ZLPreferences::tr("There is no notification server: a small panel asks instead.")
        : ZLPreferences::tr("There is no notification server, so nothing asks for a title.");
}

/// What there is to say about one shortcut; empty when it simply works.
QString noticeAboutHotKey(const ZLHotKey& hotKey)
{
    if (hotKey.state == ZLHotKey::State::Refused)
        return hotKey.refusalReason;
    if (!hotKey.desktopTrigger.isEmpty())
        return ZLPreferences::tr("In the desktop's settings it is %1.").arg(hotKey.desktopTrigger);
    return {};
}

}

ZLPreferences::ZLPreferences(ZLApplication& application, ZLSoundServer& soundServer, QObject* parent)
    : QObject(parent)
    , m_application(application)
    , m_soundServer(soundServer)
{
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] {
        // There is no staying on a pane any more, whatever it answers.
        if (m_prefsController)
            std::ignore = m_prefsController->commitEditing();
    });
}

ZLPreferences::~ZLPreferences() = default;

void ZLPreferences::addWindow(ZLChapterDocumentWindow& window)
{
    QMenu& menu = *window.editMenu().menu();
    menu.addSeparator();
    connect(ZLActionHelp::addAction(
                menu, u"openPreferences"_s, tr("Preferenc&es…"), QKeySequence(Qt::CTRL | Qt::Key_Comma)),
        &QAction::triggered, this, &ZLPreferences::openPreferences);
    connect(&window.statusLine(), &ZLStatusLine::partClicked, this, [this](const QString& part) {
        if (part == "hotkeyStatus"_L1)
            openShortcuts();
    });
}

void ZLPreferences::openPreferences()
{
    if (!m_prefsController)
        makePrefsController();
    m_prefsController->showWindow();
}

void ZLPreferences::openShortcuts()
{
    openPreferences();
    m_prefsController->selectControllerAtIndex(shortcutPaneIndex);
}

void ZLPreferences::openAboutView()
{
    openPreferences();
    m_prefsController->selectControllerAtIndex(aboutPaneIndex);
}

void ZLPreferences::makePrefsController()
{
    MASPreferencesWindowController::Panes panes;
    panes.push_back(makeGeneralPane());
    panes.push_back(makeShortcutPane());
    panes.push_back(nullptr);
    panes.push_back(std::make_unique<ZLAboutViewController>(
        ZLProgramVersion { QStringLiteral(ZELTA_VERSION), QStringLiteral(ZELTA_BUILD_NUMBER) }));
    m_desktopAnimations = std::make_unique<ZLDesktopAnimations>();
    m_prefsController = std::make_unique<MASPreferencesWindowController>(std::move(panes));
    m_prefsController->setAnimationDuration([this] {
        return m_desktopAnimations->areWanted() ? MASPreferencesWindowController::styleAnimationDuration()
                                                : std::chrono::milliseconds(0);
    });
}

std::unique_ptr<MASPreferencesViewController> ZLPreferences::makeGeneralPane()
{
    auto pane = std::make_unique<ZLGeneralPrefsViewController>([this] { return m_soundServer.outputDevices(); });
    connect(&m_soundServer, &ZLSoundServer::outputDevicesDidChange, pane.get(), [shown = pane.get()] {
        if (shown->isVisible())
            shown->fillOutputSelector();
    });
    followNotificationServer(*pane);
    return pane;
}

void ZLPreferences::followNotificationServer(ZLGeneralPrefsViewController& pane)
{
    const auto update = [server = &m_notificationServer, shown = &pane] {
        shown->setQuickEditNotice(
            server->isMissing() ? noticeWithoutNotifications() : tr("What you reply becomes the chapter’s title."));
    };
    connect(&m_notificationServer, &ZLNotificationServerPresence::didChange, &pane, update);
    update();
}

std::unique_ptr<MASPreferencesViewController> ZLPreferences::makeShortcutPane()
{
    auto pane = std::make_unique<ZLShortcutPrefsViewController>();
    connect(pane.get(), &ZLShortcutPrefsViewController::recordingDidStart, this, &ZLPreferences::suspendHotKeys);
    connect(pane.get(), &ZLShortcutPrefsViewController::recordingDidStop, this, &ZLPreferences::resumeHotKeys);
    followHotKeys(*pane);
    return pane;
}

void ZLPreferences::followHotKeys(ZLShortcutPrefsViewController& pane)
{
    const auto update = [this, shown = &pane] { showSystemNotices(*shown); };
    connect(&m_application, &ZLApplication::hotKeysDidChange, &pane, update);
    if (const ZLHotKeyCenter* center = m_application.hotKeyCenter())
        connect(center, &ZLHotKeyCenter::keyboardLayoutDidChange, &pane,
            [shown = &pane] { shown->setKeyboardLayout(ZLKeyboardLayout::current()); });
    update();
}

void ZLPreferences::showSystemNotices(ZLShortcutPrefsViewController& pane) const
{
    const ZLHotKeyCenter* center = m_application.hotKeyCenter();
    const QString reason = center ? center->unavailabilityReason() : QString();
    const QString aboutAll = reason.isEmpty()
        ? QString()
        : tr("%1 A key of the desktop's own settings can run “%2” instead.").arg(reason, u"zelta send newChapter"_s);
    QHash<QString, QString> byKey;
    // What concerns all of them needs to be said only once.
    for (const ZLRemoteAction& action : ZLRemoteActions::all()) {
        const auto hotKey = m_application.hotKeyForSettingsKey(action.settingsKey);
        if (aboutAll.isEmpty() && hotKey)
            byKey.insert(action.settingsKey, noticeAboutHotKey(*hotKey));
    }
    pane.setSystemNotices(byKey, aboutAll);
}

void ZLPreferences::suspendHotKeys()
{
    if (m_application.hotkeyController())
        ZLHotkeyController::unregisterAllHotKeys(*m_application.hotKeyCenter());
}

void ZLPreferences::resumeHotKeys()
{
    // A change that was stored has brought them back already.
    if (m_application.hotkeyController() && m_application.hotKeyCenter()->allHotKeys().isEmpty())
        m_application.hotkeyController()->setupHotkeys();
}
