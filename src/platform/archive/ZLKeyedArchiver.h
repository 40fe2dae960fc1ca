#pragma once

#include <QByteArray>
#include <QVariant>

/// Writes one value as a keyed archive in a binary property list, under the key "root".
///
/// Kinds: QVariantMap and ZLArchivedDictionary (a dictionary), QVariantList (an array), QString, QByteArray, QDateTime,
/// bool, the integers, float and double, each with its own kind in the file. An invalid QVariant, nullptr, an invalid
/// date, any other type, and whatever lies deeper than ZLKeyedUnarchiver reads, become null. Dates keep milliseconds.
/// Equal texts are stored once.
class ZLKeyedArchiver {
public:
    /// Never fails.
    [[nodiscard]] static QByteArray archivedData(const QVariant& root);
};
