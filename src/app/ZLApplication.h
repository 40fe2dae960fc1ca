#pragma once

#include "app/ZLDocumentController.h"
#include "app/ZLOutsideCommands.h"
#include "following/ZLFollowing.h"
#include "following/ZLOBSPassword.h"
#include "platform/activity/ZLProcessActivity.h"
#include "platform/keyring/ZLDesktopKeyring.h"
#include "remote/ZLCommandSocket.h"
#include "remote/ZLHotkeyController.h"
#include "remote/ZLOSCAnnouncement.h"
#include "remote/ZLOSCController.h"

#include <QObject>

#include <memory>
#include <optional>
#include <utility>

/// What the application object needs for being commanded from outside its windows.
struct ZLRemoteSetup {
    /// Null where there are no hot keys; not owned, has to outlive the application object.
    ZLHotKeyCenter* hotKeyCenter = nullptr;
    /// For this run, see ZLOSCControllerSetup.
    std::optional<quint16> oscPort {};
    std::optional<QList<ZLOSCDestination>> oscOutputs {};
    /// Announces the port on which OSC messages are received; null when it shall not be announced.
    std::unique_ptr<ZLServicePublisher> oscPublisher {};
    /// Keeps the system awake, since commands may come at any time; null where the system is not to be asked.
    std::unique_ptr<ZLProcessActivity> activity {};
};

/// The application object: it starts everything that does not depend on a display, in a fixed order, carries out what
/// remote controllers receive, and answers whether the program may end. A program with windows stands around it, see
/// ZLDesktop.
class ZLApplication : public QObject, public ZLRemoteControllerDelegate {
    Q_OBJECT

public:
    /// Registers the settings' defaults before anything reads a setting, and the export formats before any menu is
    /// made. `systemFontSize` is in points.
    explicit ZLApplication(
        ZLDocumentControllerSetup setup, float systemFontSize = StandardFontSize, ZLRemoteSetup remote = {});
    ~ZLApplication() override;

    /// Size of texts where no desktop says one, in points.
    static constexpr float StandardFontSize = 10.0F;

    [[nodiscard]] ZLDocumentController& documentController() { return m_documentController; }
    /// Which document commands from outside reach, and what becomes of them.
    [[nodiscard]] ZLOutsideCommands& outsideCommands() { return m_outsideCommands; }
    /// What a shortcut says of its keys while it is carried out.
    [[nodiscard]] ZLCommandKeys& commandKeys() { return m_commandKeys; }
    /// Present exactly while global hot keys are on and there is a centre for them.
    [[nodiscard]] ZLHotkeyController* hotkeyController() const { return m_hotkeyController.get(); }
    [[nodiscard]] ZLOSCController& oscController() { return *m_oscController; }
    /// Which document follows which recorder.
    [[nodiscard]] ZLFollowing& following() { return *m_following; }
    [[nodiscard]] ZLOBSPassword& obsPassword() { return m_obsPassword; }
    /// Null when the OSC port is not announced.
    [[nodiscard]] const ZLServicePublisher* oscPublisher() const;
    /// Null where there are no hot keys. Its unavailabilityReason() tells why none at all can work.
    [[nodiscard]] ZLHotKeyCenter* hotKeyCenter() const { return m_hotKeyCenter; }
    /// How it stands system-wide with the shortcut that is stored under the key, see ZLHotkeyController; nothing while
    /// global hot keys are off. It follows hotKeysDidChange.
    [[nodiscard]] std::optional<ZLHotKey> hotKeyForSettingsKey(const QString& settingsKey) const;

    /// Carries the action out on the document that commands from outside reach.
    void remoteControllerReceivedAction(ZLRemoteController& controller, const QString& action) override;
    /// Lets the OSC controller send the new state.
    void informControllersOfDocumentChange();

    /// Where the documents' notifications go, and what the user does with them comes from.
    [[nodiscard]] ZLUserNotificationCenter& userNotificationCenter() const { return *m_notificationCenter; }
    /// Takes a reply that was typed into a notification as the title of its chapter.
    void userNotificationCenterDidActivateNotification(
        const ZLUserNotification& notification, const ZLUserNotificationActivation& activation);
    /// The chapter that a notification is about, and the first open document that holds it; nulls when none does.
    [[nodiscard]] std::pair<ZLChapterDocument*, ZLChapterPointer> chapterOfNotification(
        const ZLUserNotification& notification) const;

    /// False while the clock of any document runs: the recording has to be stopped first.
    [[nodiscard]] bool applicationShouldTerminate() const { return m_documentController.canTerminate(); }

Q_SIGNALS:
    /// Global hot keys have been switched on or off, were registered anew, or the system has accepted or refused one.
    void hotKeysDidChange();

private:
    [[nodiscard]] ZLDocumentControllerSetup prepared(ZLDocumentControllerSetup setup, float systemFontSize);
    [[nodiscard]] ZLOSCControllerSetup oscSetup(const ZLRemoteSetup& remote);
    void createHotkeyController();
    void globalHotkeysDidChange();
    void followDocuments();
    void beginActivity(std::unique_ptr<ZLProcessActivity> activity);
    /// A running clock holds back the end of the session.
    void documentDidChange(const ZLDocumentChange& change);
    void updateActivity();
    void beginFollowing();

    std::shared_ptr<const ZLHostClock> m_hostClock;
    std::shared_ptr<ZLUserNotificationCenter> m_notificationCenter;
    ZLCommandKeys m_commandKeys;
    ZLDocumentController m_documentController;
    ZLOutsideCommands m_outsideCommands { m_documentController, m_commandKeys };
    ZLHotKeyCenter* m_hotKeyCenter;
    std::unique_ptr<ZLHotkeyController> m_hotkeyController;
    std::unique_ptr<ZLOSCController> m_oscController;
    std::unique_ptr<ZLOSCAnnouncement> m_oscAnnouncement;
    std::unique_ptr<ZLCommandSocket> m_commandSocket;
    std::unique_ptr<ZLProcessActivity> m_activity;
    ZLOBSPassword m_obsPassword { std::make_unique<ZLDesktopKeyring>() };
    std::unique_ptr<ZLFollowing> m_following;
};
