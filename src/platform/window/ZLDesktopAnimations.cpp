#include "platform/window/ZLDesktopAnimations.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using SettingGroups = QMap<QString, QVariantMap>;

const auto portalService = "org.freedesktop.portal.Desktop"_L1;
const auto portalPath = "/org/freedesktop/portal/desktop"_L1;
const auto settingsInterface = "org.freedesktop.portal.Settings"_L1;

/// Where desktops keep it, and the value with which they say that nothing shall move.
struct AnimationSetting {
    QLatin1StringView group;
    QLatin1StringView key;
    double refusal = 0.0;
};

constexpr std::array animationSettings {
    AnimationSetting { "org.freedesktop.appearance"_L1, "reduced-motion"_L1, 1 },
    AnimationSetting { "org.gnome.desktop.interface"_L1, "enable-animations"_L1, 0 },
    AnimationSetting { "org.kde.kdeglobals.KDE"_L1, "AnimationDurationFactor"_L1, 0 },
};

/// Some portals wrap a value twice.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

}

ZLDesktopAnimations::ZLDesktopAnimations(const QDBusConnection& sessionBus, QObject* parent)
    : QObject(parent)
{
    qDBusRegisterMetaType<SettingGroups>();
    QDBusConnection bus(sessionBus);
    bus.connect(portalService, portalPath, settingsInterface, u"SettingChanged"_s, this,
        SLOT(settingDidChange(QString, QString, QDBusVariant)));
    QStringList groups;
    std::transform(animationSettings.begin(), animationSettings.end(), std::back_inserter(groups),
        [](const AnimationSetting& setting) { return setting.group; });
    QDBusMessage question = QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, u"ReadAll"_s);
    question.setArguments({ groups });
    question.setAutoStartService(false);
    auto* call = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, &ZLDesktopAnimations::readAnswer);
}

void ZLDesktopAnimations::readAnswer(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    const QDBusPendingReply<SettingGroups> answer = *call;
    if (!answer.isValid())
        return;
    const SettingGroups groups = answer.value();
    for (const AnimationSetting& setting : animationSettings)
        takeSetting(setting.group, setting.key, groups.value(setting.group).value(setting.key));
}

void ZLDesktopAnimations::settingDidChange(const QString& group, const QString& key, const QDBusVariant& value)
{
    takeSetting(group, key, value.variant());
}

void ZLDesktopAnimations::takeSetting(const QString& group, const QString& key, const QVariant& value)
{
    const auto setting = std::find_if(animationSettings.begin(), animationSettings.end(),
        [&](const AnimationSetting& known) { return known.group == group && known.key == key; });
    if (setting == animationSettings.end())
        return;
    const bool wasWanted = areWanted();
    bool isNumber = false;
    const double number = unwrapped(value).toDouble(&isNumber);
    if (isNumber && number == setting->refusal)
        m_refusals.insert(key);
    else
        m_refusals.remove(key);
    if (areWanted() != wasWanted)
        Q_EMIT didChange();
}
