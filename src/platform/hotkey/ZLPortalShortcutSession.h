#pragma once

#include "platform/ZLPressStamp.h"
#include "platform/ZLResult.h"
#include "platform/hotkey/ZLPortalRequest.h"
#include "platform/hotkey/ZLPortalShortcut.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QHash>
#include <QObject>

#include <memory>

class QDBusMessage;

/// One attempt to have a set of shortcuts bound by the GlobalShortcuts portal, and what came of it. A session binds
/// only once, so another set is another session; destroying one ends it at the portal as well.
class ZLPortalShortcutSession : public QObject {
    Q_OBJECT

public:
    enum class Phase {
        /// Finding the portal and telling it who asks.
        Introducing,
        Asking,
        Bound,
        /// For good; failureReason says why.
        Failed,
    };
    enum class FailureKind {
        /// There is no portal, or it has no global shortcuts.
        Unavailable,
        Refused,
    };

    ZLPortalShortcutSession(const QDBusConnection& bus, QList<ZLPortalShortcut> wishes, QObject* parent = nullptr);
    ~ZLPortalShortcutSession() override;

    void start();

    [[nodiscard]] const QList<ZLPortalShortcut>& wishes() const { return m_wishes; }
    [[nodiscard]] Phase phase() const { return m_phase; }
    [[nodiscard]] FailureKind failureKind() const { return m_failureKind; }
    /// One sentence for the user.
    [[nodiscard]] QString failureReason() const { return m_failureReason; }
    /// The shortcuts that the desktop has bound, by identifier, with the trigger in the desktop's words.
    [[nodiscard]] const QHash<QString, QString>& boundTriggers() const { return m_boundTriggers; }

Q_SIGNALS:
    /// Phase, reason or bound triggers have changed.
    void didChange();
    void activated(const QString& identifier, const ZLPressStamp& press);

private Q_SLOTS:
    void receiveActivated(
        const QDBusObjectPath& session, const QString& identifier, qulonglong milliseconds, const QVariantMap& options);
    void receiveShortcutsChanged(const QDBusMessage& message);
    void receiveClosed(const QDBusMessage& message);

private:
    void introduce(const ZLResult<QString>& portal);
    void introduced(const QDBusMessage& reply);
    void createSession();
    void sessionCreated(ZLPortalRequest::Outcome outcome, const QVariantMap& results);
    void bindShortcuts();
    void shortcutsBound(ZLPortalRequest::Outcome outcome, const QVariantMap& results);
    [[nodiscard]] bool listenToPortal();
    void adoptTriggers(const QList<ZLPortalShortcut>& shortcuts);
    void fail(FailureKind kind, const QString& reason);
    void failBy(ZLPortalRequest::Outcome outcome);

    QDBusConnection m_bus;
    QList<ZLPortalShortcut> m_wishes;
    Phase m_phase = Phase::Introducing;
    FailureKind m_failureKind = FailureKind::Refused;
    QString m_failureReason;
    QHash<QString, QString> m_boundTriggers;
    /// The portal's unique name on the bus.
    QString m_portal;
    QString m_sessionPath;
    std::unique_ptr<ZLPortalRequest> m_request;
};
