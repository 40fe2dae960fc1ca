#pragma once

#include "platform/notification/ZLUserNotification.h"

#include <QStringList>
#include <QVariantList>

#include <optional>

/// How a notification is put to a server of the desktop's notification protocol (org.freedesktop.Notifications 1.2),
/// and how its answer is read. What a server can do is the list of names that its GetCapabilities gives.
namespace ZLNotificationMessage {

/// The arguments of the server's Notify. What the server cannot show is put where it can, or left out.
[[nodiscard]] QVariantList arguments(const ZLUserNotification& notification, const QStringList& capabilities);

/// What the user meant who pressed the action with this key; nothing for a key that arguments() never gives.
[[nodiscard]] std::optional<ZLUserNotificationActivationType> typeOfAction(
    const ZLUserNotification& notification, const QString& key);

}
