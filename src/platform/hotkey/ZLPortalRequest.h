#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantMap>

class QDBusPendingCallWatcher;

/// One question to the desktop portal: a method call whose answer comes later, as a signal of a request object, because
/// the portal may have to ask the user first. Destroying the request before its answer withdraws the question.
class ZLPortalRequest : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        Granted,
        /// The user said no.
        Declined,
        /// The portal could not or would not.
        Failed,
        /// There is no such method at the portal.
        Unsupported,
    };

    /// `portal` is the portal's unique name on the bus, so that no other program can answer in its place.
    ZLPortalRequest(const QDBusConnection& bus, const QString& portal, QObject* parent = nullptr);
    ~ZLPortalRequest() override;

    /// The option "handle_token" that the call has to carry.
    [[nodiscard]] QString token() const { return m_token; }
    /// Asks; `arguments` are those of the portal method. finished follows exactly once.
    void call(const QString& interface, const QString& method, const QVariantList& arguments);

    /// A name for a request or session object that this process has not used before.
    [[nodiscard]] static QString newToken();

Q_SIGNALS:
    void finished(ZLPortalRequest::Outcome outcome, const QVariantMap& results);

private Q_SLOTS:
    void receiveResponse(uint response, const QVariantMap& results);

private:
    void receiveReply(QDBusPendingCallWatcher* watcher);
    void finish(Outcome outcome, const QVariantMap& results = {});
    [[nodiscard]] QString path() const;

    QDBusConnection m_bus;
    QString m_portal;
    QString m_token = newToken();
    bool m_isOpen = false;
};
