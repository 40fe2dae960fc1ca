#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>

/// One message to the user outside the program's windows, answered with a line of text.
struct ZLUserNotification {
    QString title;
    QString subtitle;
    QString informativeText;
    bool hasActionButton = false;
    bool hasReplyButton = false;
    QString responsePlaceholder;
    /// Given back unchanged with the reply.
    QVariantMap userInfo;

    bool operator==(const ZLUserNotification&) const = default;
};

/// Delivers notifications through the desktop. Nothing here blocks or fails towards the caller.
class ZLUserNotificationCenter : public QObject {
    Q_OBJECT

public:
    virtual void deliverNotification(const ZLUserNotification& notification) = 0;

Q_SIGNALS:
    /// The user typed a reply into a notification that was delivered before.
    void didReplyToNotification(const ZLUserNotification& notification, const QString& reply);
};

/// The back end for a system without a notification service: the notification is dropped.
class ZLNullUserNotificationCenter final : public ZLUserNotificationCenter {
    Q_OBJECT

public:
    void deliverNotification(const ZLUserNotification& notification) override;
};
