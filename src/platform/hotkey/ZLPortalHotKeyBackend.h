#pragma once

#include "platform/hotkey/ZLHotKeyCenter.h"

#include <QDBusConnection>
#include <QMap>
#include <QTimer>

#include <memory>

class QDBusServiceWatcher;
class ZLPortalShortcutSession;

/// Hot keys through the desktop's GlobalShortcuts portal, for Wayland. The desktop may ask the user, who may choose
/// other keys or none; until it has answered, a hot key is pending. A portal that starts anew is asked anew.
class ZLPortalHotKeyBackend final : public ZLHotKeyCenter {
    Q_OBJECT

public:
    explicit ZLPortalHotKeyBackend(const QDBusConnection& bus, QObject* parent = nullptr);
    ~ZLPortalHotKeyBackend() override;

    /// A connection of its own: on a shared one, another part's call could come before this one's introduction.
    [[nodiscard]] static QDBusConnection connectToSessionBus();

    [[nodiscard]] QString backendName() const override;
    [[nodiscard]] QString unavailabilityReason() const override { return m_unavailabilityReason; }

protected:
    void activateHotKey(const ZLHotKey& hotKey) override;
    void deactivateHotKey(const ZLHotKey& hotKey) override;

private:
    /// Asks the portal, unless the set it was asked for last is still the wanted one and stands.
    void bindWantedSet();
    void startSession();
    void sessionDidChange();
    void showSessionOutcome();
    void portalOwnerDidChange(const QString& service, const QString& oldOwner, const QString& newOwner);
    void refuseAll(const QString& reason);
    void setUnavailabilityReason(const QString& reason);

    QDBusConnection m_bus;
    QDBusServiceWatcher* m_portalWatcher;
    QMap<QString, ZLHotKey> m_wanted;
    /// A whole set is registered in one turn of the event loop and must become one question to the user.
    QTimer m_bindTimer;
    std::unique_ptr<ZLPortalShortcutSession> m_session;
    QString m_unavailabilityReason;
};
