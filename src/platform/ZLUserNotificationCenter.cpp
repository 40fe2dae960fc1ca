#include "platform/ZLUserNotificationCenter.h"

#include <QLoggingCategory>

namespace {
Q_LOGGING_CATEGORY(notificationLog, "zelta.platform.notification", QtInfoMsg)
}

void ZLNullUserNotificationCenter::deliverNotification(const ZLUserNotification& notification)
{
    qCDebug(notificationLog) << "no notification service for" << notification.title;
}
