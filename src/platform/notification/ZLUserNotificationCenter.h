#pragma once

#include "platform/notification/ZLUserNotification.h"

#include <QObject>

/// Delivers notifications through the desktop. Nothing here blocks or fails towards the caller: where a notification
/// cannot be shown it is dropped, and those who have something instead are told.
class ZLUserNotificationCenter : public QObject {
    Q_OBJECT

public:
    virtual void deliverNotification(const ZLUserNotification& notification) = 0;

Q_SIGNALS:
    /// The user did something with a notification that was delivered before.
    void didActivateNotification(
        const ZLUserNotification& notification, const ZLUserNotificationActivation& activation);
    /// The desktop has nothing that shows notifications.
    void couldNotShowNotification(const ZLUserNotification& notification);
};

/// The back end for a program that shows no notifications.
class ZLNullUserNotificationCenter final : public ZLUserNotificationCenter {
    Q_OBJECT

public:
    void deliverNotification(const ZLUserNotification& notification) override;
};
