#include "platform/hotkey/ZLPortalShortcut.h"

#include "platform/hotkey/ZLVirtualKeyMap.h"

#include <QDBusMetaType>

using namespace Qt::StringLiterals;

ZLPortalShortcut ZLPortalShortcut::wish(const QString& identifier, const QString& description, const ZLKeyCombo& combo)
{
    return { identifier,
        { { u"description"_s, description }, { u"preferred_trigger"_s, preferredTriggerForKeyCombo(combo) } } };
}

QString ZLPortalShortcut::preferredTriggerForKeyCombo(const ZLKeyCombo& combo)
{
    const ZLVirtualKey* key = ZLVirtualKeyMap::keyForKeyCode(combo.keyCode);
    if (!key)
        return {};
    QString trigger;
    trigger += combo.modifiers & ZLHotKeyModifier::control ? "CTRL+"_L1 : ""_L1;
    trigger += combo.modifiers & ZLHotKeyModifier::option ? "ALT+"_L1 : ""_L1;
    trigger += combo.modifiers & ZLHotKeyModifier::shift ? "SHIFT+"_L1 : ""_L1;
    trigger += combo.modifiers & ZLHotKeyModifier::command ? "LOGO+"_L1 : ""_L1;
    return trigger + QLatin1StringView(key->keysymName);
}

QList<ZLPortalShortcut> ZLPortalShortcut::listFromVariant(const QVariant& value)
{
    if (!value.canConvert<QDBusArgument>())
        return {};
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != "a(sa{sv})"_L1)
        return {};
    return qdbus_cast<QList<ZLPortalShortcut>>(argument);
}

void ZLPortalShortcut::registerTypes()
{
    qDBusRegisterMetaType<ZLPortalShortcut>();
    qDBusRegisterMetaType<QList<ZLPortalShortcut>>();
    // Connecting a slot that takes an object path fails without the name.
    qRegisterMetaType<QDBusObjectPath>("QDBusObjectPath");
}

QDBusArgument& operator<<(QDBusArgument& argument, const ZLPortalShortcut& shortcut)
{
    argument.beginStructure();
    argument << shortcut.identifier << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, ZLPortalShortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.identifier >> shortcut.properties;
    argument.endStructure();
    return argument;
}
