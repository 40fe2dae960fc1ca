#pragma once

#include <QMetaType>
#include <QString>
#include <QVariantMap>

/// One message to the user outside the program's windows. All texts are plain.
struct ZLUserNotification {
    QString title {};
    QString subtitle {};
    QString informativeText {};
    bool hasActionButton = false;
    bool hasReplyButton = false;
    QString responsePlaceholder {};
    /// Given back unchanged with everything that the user does with the notification.
    QVariantMap userInfo {};

    bool operator==(const ZLUserNotification&) const = default;
};

enum class ZLUserNotificationActivationType {
    ContentsClicked,
    ActionButtonClicked,
    /// The Reply button of a desktop that has no reply field: the program has to ask for the text.
    ReplyButtonClicked,
    /// A text was typed into the reply field.
    Replied,
};

/// What the user did with a notification.
struct ZLUserNotificationActivation {
    ZLUserNotificationActivationType type = ZLUserNotificationActivationType::ContentsClicked;
    /// Empty unless the type is Replied.
    QString response {};
    /// With which the desktop lets the program take the keyboard because of it; empty where there is none.
    QString activationToken {};

    bool operator==(const ZLUserNotificationActivation&) const = default;
};

Q_DECLARE_METATYPE(ZLUserNotification)
Q_DECLARE_METATYPE(ZLUserNotificationActivation)
