#include "platform/notification/ZLNotificationMessage.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

const QString bodyClickKey = u"default"_s;
const QString buttonKey = u"action"_s;
const QString replyButtonKey = u"reply"_s;
const QString replyFieldKey = u"inline-reply"_s;
constexpr int serverDecidesHowLong = -1;

QString replyLabel()
{
    return QCoreApplication::translate("ZLNotificationMessage", "Reply");
}

bool canBeReplied(const QStringList& capabilities)
{
    return capabilities.contains(replyFieldKey) || capabilities.contains("actions"_L1);
}

QStringList actionsFor(const ZLUserNotification& notification, const QStringList& capabilities)
{
    // One button is enough for a person who follows the talk: that of the reply is the action button too.
    if (notification.hasReplyButton && capabilities.contains(replyFieldKey))
        return { replyFieldKey, replyLabel() };
    if (!capabilities.contains("actions"_L1))
        return {};
    if (notification.hasReplyButton)
        return { replyButtonKey, replyLabel() };
    if (notification.hasActionButton)
        return { buttonKey, QCoreApplication::translate("ZLNotificationMessage", "Show") };
    return {};
}

QString bodyFor(const ZLUserNotification& notification, const QStringList& capabilities)
{
    QStringList lines { notification.subtitle };
    // The text tells what to do with the reply field. Without one it would send people looking for it.
    if (!notification.hasReplyButton || canBeReplied(capabilities))
        lines.append(notification.informativeText);
    lines.removeAll(QString());
    const QString text = lines.join(u'\n');
    return capabilities.contains("body-markup"_L1) ? text.toHtmlEscaped() : text;
}

/// The summary is never markup. A server without bodies still shows the subtitle, which tells one chapter from another.
QString summaryFor(const ZLUserNotification& notification, const QStringList& capabilities)
{
    if (capabilities.contains("body"_L1) || notification.subtitle.isEmpty())
        return notification.title;
    return u"%1 – %2"_s.arg(notification.title, notification.subtitle);
}

QVariantMap hintsFor(const ZLUserNotification& notification, const QStringList& capabilities)
{
    QVariantMap hints { { u"desktop-entry"_s, u"org.zelta.Zelta"_s } };
    if (notification.hasReplyButton && capabilities.contains(replyFieldKey))
        hints.insert(u"x-kde-reply-placeholder-text"_s, notification.responsePlaceholder);
    return hints;
}

}

QVariantList ZLNotificationMessage::arguments(const ZLUserNotification& notification, const QStringList& capabilities)
{
    constexpr uint replacesNone = 0;
    const QString applicationName = u"Zelta"_s;
    const QString icon = u"org.zelta.Zelta"_s;
    return { applicationName, replacesNone, icon, summaryFor(notification, capabilities),
        capabilities.contains("body"_L1) ? bodyFor(notification, capabilities) : QString(),
        actionsFor(notification, capabilities), hintsFor(notification, capabilities), serverDecidesHowLong };
}

std::optional<ZLUserNotificationActivationType> ZLNotificationMessage::typeOfAction(
    const ZLUserNotification& notification, const QString& key)
{
    using Type = ZLUserNotificationActivationType;
    // Some servers send it for a click on the notification although it was not asked for.
    if (key == bodyClickKey)
        return Type::ContentsClicked;
    if (key == replyButtonKey && notification.hasReplyButton)
        return Type::ReplyButtonClicked;
    if (key == buttonKey && notification.hasActionButton && !notification.hasReplyButton)
        return Type::ActionButtonClicked;
    return std::nullopt;
}
