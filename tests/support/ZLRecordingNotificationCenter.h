#pragma once

#include "platform/notification/ZLUserNotificationCenter.h"

#include <QList>

/// Keeps what it was asked to deliver, and does with it what a user would.
class ZLRecordingNotificationCenter final : public ZLUserNotificationCenter {
public:
    void deliverNotification(const ZLUserNotification& notification) override { m_delivered.append(notification); }
    [[nodiscard]] const QList<ZLUserNotification>& delivered() const { return m_delivered; }
    void activate(const ZLUserNotification& notification, const ZLUserNotificationActivation& activation)
    {
        Q_EMIT didActivateNotification(notification, activation);
    }
    /// As where nothing shows notifications.
    void refuse(const ZLUserNotification& notification) { Q_EMIT couldNotShowNotification(notification); }
    void reply(const ZLUserNotification& notification, const QString& text)
    {
        activate(notification, { ZLUserNotificationActivationType::Replied, text });
    }

private:
    QList<ZLUserNotification> m_delivered;
};
