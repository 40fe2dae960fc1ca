#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

/// How keys and values stand in a settings file: the INI form of Qt's own settings, so that a file reads the same as
/// before, and a person can edit it.
namespace ZLSettingsText {

/// A value as it stands behind the equals sign: text, a list of texts, bytes, or a dictionary of such. A dictionary is
/// read value by value, so that no type that needs a window system is ever made. Invalid when it cannot be read.
[[nodiscard]] QVariant value(const QByteArray& text);
[[nodiscard]] QByteArray text(const QVariant& value);

/// "window/panels" for the key "panels" in the section "window". Keys without a section are in "General".
[[nodiscard]] QString key(const QByteArray& sectionName, const QByteArray& keyName);
[[nodiscard]] QByteArray sectionName(const QString& key);
[[nodiscard]] QByteArray keyName(const QString& key);

}
