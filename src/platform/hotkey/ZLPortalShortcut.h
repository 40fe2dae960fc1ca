#pragma once

#include "platform/hotkey/ZLKeyCombo.h"

#include <QDBusArgument>
#include <QList>
#include <QString>
#include <QVariantMap>

/// A shortcut as the GlobalShortcuts portal sends and receives it, D-Bus type (sa{sv}).
struct ZLPortalShortcut {
    QString identifier;
    /// To the portal "description" and "preferred_trigger", from it "description" and "trigger_description".
    QVariantMap properties;

    bool operator==(const ZLPortalShortcut&) const = default;

    [[nodiscard]] static ZLPortalShortcut wish(
        const QString& identifier, const QString& description, const ZLKeyCombo& combo);

    /// The combination in the desktop's notation for shortcuts, for example "CTRL+ALT+m", as on an US keyboard: a
    /// program is not told the layout before the desktop has agreed to anything. Empty for a code without a key.
    [[nodiscard]] static QString preferredTriggerForKeyCombo(const ZLKeyCombo& combo);

    /// Reads a list that came from the bus; whatever is not of the type a(sa{sv}) reads as empty.
    [[nodiscard]] static QList<ZLPortalShortcut> listFromVariant(const QVariant& value);
    /// Makes the type known to the bus library. May be called often.
    static void registerTypes();
};

QDBusArgument& operator<<(QDBusArgument& argument, const ZLPortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, ZLPortalShortcut& shortcut);

Q_DECLARE_METATYPE(ZLPortalShortcut)
