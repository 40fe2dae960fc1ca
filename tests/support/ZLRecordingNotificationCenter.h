#pragma once

#include "platform/ZLUserNotificationCenter.h"

#include <QList>

/// Keeps what it was asked to deliver.
class ZLRecordingNotificationCenter final : public ZLUserNotificationCenter {
public:
    void deliverNotification(const ZLUserNotification& notification) override { m_delivered.append(notification); }
    [[nodiscard]] const QList<ZLUserNotification>& delivered() const { return m_delivered; }
    void reply(const ZLUserNotification& notification, const QString& text)
    {
        Q_EMIT didReplyToNotification(notification, text);
    }

private:
    QList<ZLUserNotification> m_delivered;
};
