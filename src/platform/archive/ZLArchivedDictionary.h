#pragma once

#include <QStringList>
#include <QVariantList>

/// How the dictionaries of an archive stand in memory: as QVariantMap, or as they are archived.
enum class ZLDictionaryForm : quint8 { Map, Archived };

/// A dictionary as it lies in an archive: its keys and their values, in one order. Dictionaries of one shape share
/// their keys, so that a long list of them takes far less memory and time than maps would.
struct ZLArchivedDictionary {
    /// A key may stand there several times, of which the last one counts.
    QStringList keys;
    /// As many as there are keys.
    QVariantList values;

    /// The dictionary that `value` is, or null.
    [[nodiscard]] static const ZLArchivedDictionary* in(const QVariant& value)
    {
        const bool isOne = value.metaType() == QMetaType::fromType<ZLArchivedDictionary>();
        return isOne ? static_cast<const ZLArchivedDictionary*>(value.constData()) : nullptr;
    }

    /// An invalid value when there is no such key.
    [[nodiscard]] const QVariant& value(const QString& key) const
    {
        static const QVariant none;
        const qsizetype position = keys.lastIndexOf(key);
        return position < 0 ? none : values.at(position);
    }

    bool operator==(const ZLArchivedDictionary&) const = default;
};
