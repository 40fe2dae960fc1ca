#include "platform/notification/ZLUserNotificationCenter.h"

#include <QLoggingCategory>

namespace {
Q_LOGGING_CATEGORY(nullNotificationLog, "zelta.platform.notification.null", QtInfoMsg)
}

void ZLNullUserNotificationCenter::deliverNotification(const ZLUserNotification& notification)
{
    qCDebug(nullNotificationLog) << "nobody is notified of" << notification.title;
}
