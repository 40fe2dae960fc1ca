#include "app/ZLApplication.h"

#include "app/ZLRecorderKinds.h"
#include "app/ZLSafeTelling.h"
#include "export/formats/ZLRegisterExporters.h"
#include "settings/ZLSettingsManager.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// How the log calls a program that uses the command socket.
const QString commandSocketPeer = QStringLiteral("zelta send");

}

ZLApplication::ZLApplication(ZLDocumentControllerSetup setup, float systemFontSize, ZLRemoteSetup remote)
    : m_hostClock(setup.environment.hostClock)
    , m_notificationCenter(setup.environment.notificationCenter)
    , m_documentController(prepared(std::move(setup), systemFontSize))
    , m_hotKeyCenter(remote.hotKeyCenter)
{
    if (m_hotKeyCenter && ZLSettingsManager::globalHotkeys())
        createHotkeyController();
    m_oscController = std::make_unique<ZLOSCController>(this, oscSetup(remote));
    beginFollowing();
    if (remote.oscPublisher)
        m_oscAnnouncement =
            std::make_unique<ZLOSCAnnouncement>(m_oscController->inPort(), std::move(remote.oscPublisher));
    beginActivity(std::move(remote.activity));
    m_commandSocket = std::make_unique<ZLCommandSocket>(
        [this](const ZLOSCMessage& message, const ZLPressStamp& press, const ZLCommandSocket::Answer& answer) {
            const QString outcome = m_oscController->performMessage(message, commandSocketPeer, press);
            ZLSafeTelling::tell(
                m_documentController, m_outsideCommands.target(), this, [answer, outcome] { answer(outcome); });
        });
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLGlobalHotkeysDidChange, this,
        &ZLApplication::globalHotkeysDidChange);
    connect(m_notificationCenter.get(), &ZLUserNotificationCenter::didActivateNotification, this,
        &ZLApplication::userNotificationCenterDidActivateNotification);
    followDocuments();
}

ZLApplication::~ZLApplication()
{
    m_activity->end();
    m_following.reset();
    // The documents outlive the controllers, and shall not wake them again.
    m_documentController.disconnect(this);
    const auto documents = m_documentController.documents();
    for (const ZLChapterDocument* document : documents)
        document->disconnect(this);
}

/// The defaults have to stand before the first member reads a setting.
ZLDocumentControllerSetup ZLApplication::prepared(ZLDocumentControllerSetup setup, float systemFontSize)
{
    ZLSettingsManager::registerDefaults(systemFontSize);
    ZLRegisterExporters();
    setup.environment.isOptionKeyHeld = [this, isHeldOnKeyboard = setup.environment.isOptionKeyHeld] {
        return m_commandKeys.hasOptionKey ? *m_commandKeys.hasOptionKey : isHeldOnKeyboard();
    };
    setup.environment.pressUnderWay = [this, pressInWindow = setup.environment.pressUnderWay] {
        return m_outsideCommands.isCommandUnderWay() ? m_outsideCommands.pressUnderWay() : pressInWindow();
    };
    setup.environment.isCommandFromOutside = [this] { return m_outsideCommands.isCommandUnderWay(); };
    return setup;
}

ZLOSCControllerSetup ZLApplication::oscSetup(const ZLRemoteSetup& remote)
{
    return {
        .currentDocument = [this] { return m_outsideCommands.target(); },
        .recordingBeside = [this] { return m_outsideCommands.recordingBesideTarget().value(0); },
        .inputPort = remote.oscPort,
        .outputs = remote.oscOutputs,
    };
}

const ZLServicePublisher* ZLApplication::oscPublisher() const
{
    return m_oscAnnouncement ? &m_oscAnnouncement->publisher() : nullptr;
}

std::optional<ZLHotKey> ZLApplication::hotKeyForSettingsKey(const QString& settingsKey) const
{
    return m_hotkeyController ? m_hotkeyController->hotKeyForSettingsKey(settingsKey) : std::nullopt;
}

void ZLApplication::remoteControllerReceivedAction(ZLRemoteController& controller, const QString& action)
{
    m_outsideCommands.perform(action, controller.source());
}

void ZLApplication::userNotificationCenterDidActivateNotification(
    const ZLUserNotification& notification, const ZLUserNotificationActivation& activation)
{
    if (activation.type != ZLUserNotificationActivationType::Replied)
        return;
    const auto [document, chapter] = chapterOfNotification(notification);
    if (document)
        document->updateChapterToTitle(chapter, activation.response);
}

std::pair<ZLChapterDocument*, ZLChapterPointer> ZLApplication::chapterOfNotification(
    const ZLUserNotification& notification) const
{
    const QString uuid = notification.userInfo.value(ZLUserInfoKey::ChapterUUID).toString();
    if (uuid.isEmpty())
        return {};
    const auto documents = m_documentController.documents();
    for (ZLChapterDocument* document : documents) {
        if (ZLChapterPointer chapter = document->chapterManager().chapterWithUUID(uuid))
            return { document, std::move(chapter) };
    }
    return {};
}

void ZLApplication::globalHotkeysDidChange()
{
    if (!m_hotKeyCenter)
        return;
    if (!ZLSettingsManager::globalHotkeys()) {
        m_hotkeyController.reset();
        ZLHotkeyController::unregisterAllHotKeys(*m_hotKeyCenter);
    } else if (!m_hotkeyController) {
        createHotkeyController();
    }
    Q_EMIT hotKeysDidChange();
}

void ZLApplication::createHotkeyController()
{
    m_hotkeyController = std::make_unique<ZLHotkeyController>(this, *m_hotKeyCenter);
    connect(m_hotkeyController.get(), &ZLHotkeyController::hotKeysDidChange, this, &ZLApplication::hotKeysDidChange);
}

void ZLApplication::beginActivity(std::unique_ptr<ZLProcessActivity> activity)
{
    m_activity = activity ? std::move(activity) : std::make_unique<ZLNullProcessActivity>();
    // The system ends the program right afterwards; what cannot be written then is told at the next start.
    connect(m_activity.get(), &ZLProcessActivity::systemWillShutDown, &m_documentController,
        [this] { m_documentController.saveAllNow(); });
    m_activity->begin(u"receiving OSC messages"_s);
}

void ZLApplication::documentDidChange(const ZLDocumentChange& change)
{
    if (change.concerns(ZLDocumentChange::Recording))
        updateActivity();
    if (change.concerns(ZLDocumentChange::concerningControllers))
        informControllersOfDocumentChange();
}

void ZLApplication::informControllersOfDocumentChange()
{
    ZLSafeTelling::tell(m_documentController, m_outsideCommands.target(), m_oscController.get(),
        [this] { m_oscController->sendUpdatesStatusInformation(); });
}

void ZLApplication::updateActivity()
{
    if (applicationShouldTerminate())
        m_activity->allowLogOut();
    else
        m_activity->holdBackLogOut(tr("A recording is running."));
}

void ZLApplication::beginFollowing()
{
    m_following =
        std::make_unique<ZLFollowing>(ZLRecorderKinds::all(m_oscController->manager(), m_obsPassword), m_hostClock);
    connect(&m_obsPassword, &ZLOBSPassword::didLoad, m_following.get(), &ZLFollowing::followAnew);
    connect(&m_documentController, &ZLDocumentController::willCloseDocument, this, [this](ZLChapterDocument* document) {
        if (m_following->document() == document)
            m_following->stop();
    });
}

void ZLApplication::followDocuments()
{
    connect(&m_documentController, &ZLDocumentController::didOpenDocument, this, [this](ZLChapterDocument* document) {
        connect(document, &ZLChapterDocument::changed, this, &ZLApplication::documentDidChange);
    });
    connect(
        &m_outsideCommands, &ZLOutsideCommands::pinDidChange, this, &ZLApplication::informControllersOfDocumentChange);
    // Commands act on another document now, so another state is to be shown.
    connect(&m_documentController, &ZLDocumentController::currentDocumentDidChange, this,
        &ZLApplication::informControllersOfDocumentChange);
    connect(&m_documentController, &ZLDocumentController::didCloseDocument, this,
        &ZLApplication::informControllersOfDocumentChange);
}
