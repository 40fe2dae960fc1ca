#pragma once

#include <QByteArray>
#include <QVariant>

/// A dictionary as it stands in a settings file, in the binary form of Qt's data streams. It is read type by type: only
/// numbers, truth values, texts, bytes, lists and dictionaries are made. Anything else, such as a colour or a font, is
/// refused, since without a window system making one would end the program.
namespace ZLSettingsDictionary {

/// The value that the bytes hold, of whatever permitted type; invalid when they hold anything else, or more.
[[nodiscard]] QVariant decoded(const QByteArray& bytes);
[[nodiscard]] QByteArray encoded(const QVariantMap& dictionary);

}
