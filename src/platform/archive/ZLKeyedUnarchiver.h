#pragma once

#include "platform/ZLResult.h"
#include "platform/archive/ZLArchivedDictionary.h"

#include <QByteArrayView>
#include <QVariant>

/// Reads the value under the key "root" of a keyed archive in a binary property list.
///
/// Dictionaries become QVariantMap, or ZLArchivedDictionary if wished (their keys must be texts), arrays and sets
/// QVariantList, texts, UUIDs and URLs QString, data QByteArray, dates QDateTime (UTC, milliseconds), numbers bool,
/// qlonglong (qulonglong above its range), float or double. Null, an object of an unknown class and a date that is no
/// date become an invalid QVariant. Values that the file shares are shared in memory too.
///
/// Files come from anywhere: the work and the memory are bounded by the size of the file, and the result is safe to
/// walk, it is never deeper than kDepthLimit and never more than kWeightLimit when every shared value is counted each
/// time.
class ZLKeyedUnarchiver {
public:
    /// Collections inside each other, the root being the first.
    static constexpr int kDepthLimit = 64;
    /// A value weighs one, and one more for each 64 bytes of its text or data.
    static constexpr quint32 kWeightLimit = 16 * 1024 * 1024;

    /// The whole value, or an error that says why nothing was read.
    static ZLResult<QVariant> unarchivedRoot(QByteArrayView data, ZLDictionaryForm form = ZLDictionaryForm::Map);
};
