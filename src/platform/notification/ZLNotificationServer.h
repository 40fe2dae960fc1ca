#pragma once

#include "platform/ZLResult.h"
#include "platform/bus/ZLBusCall.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantList>

/// The desktop's notification server, as the session bus knows it. It may come, go and be replaced at any time. It is
/// looked for only when there is something to show, since asking for it may start it. Nothing here waits for an answer.
class ZLNotificationServer : public QObject {
    Q_OBJECT

public:
    explicit ZLNotificationServer(const QDBusConnection& bus, QObject* parent = nullptr);

    [[nodiscard]] bool isKnown() const { return !m_owner.isEmpty(); }
    /// What the known server lists.
    [[nodiscard]] const QStringList& capabilities() const { return m_capabilities; }

    /// Looks for the server and asks what it can do: wasFound or isMissing follows. To be called while none is known.
    void find();
    /// Calls a method of the known server. The answer, which may be an error, comes unless `context` goes before.
    void call(
        const QString& method, const QVariantList& arguments, QObject* context, const ZLBusCall::Answer& answer) const;

Q_SIGNALS:
    void wasFound();
    /// There is none, or it gave no answer.
    void isMissing();
    /// The server that was known is gone. Another one may have its place; it knows nothing of the first one's
    /// notifications.
    void wasLost();

    /// @name What the known server says of its notifications, by the numbers that its Notify gave
    /// @{
    /// The token is for the action or reply that follows.
    void activationTokenWasGiven(uint id, const QString& token);
    void actionWasInvoked(uint id, const QString& key);
    void notificationWasReplied(uint id, const QString& text);
    /// `reason` is 1 for one that is no longer shown because its time was over, else it is gone for good.
    void notificationWasClosed(uint id, uint reason);
    /// @}

private Q_SLOTS:
    void busWasLost();

private:
    void askCapabilities(const ZLResult<QString>& owner);
    void receiveCapabilities(const QString& owner, const QDBusMessage& answer);
    void setOwner(const QString& owner);
    void forgetOwner();
    void listenTo(const QString& owner, bool listens);

    QDBusConnection m_bus;
    QString m_owner;
    QStringList m_capabilities;
};
