#pragma once

#include "platform/ZLResult.h"
#include "platform/archive/ZLArchivedDictionary.h"

#include <QByteArrayView>
#include <QVariantList>
#include <QVariantMap>

/// What one document file holds: a keyed archive of a dictionary with "Chapters", "Duration" and "Templates", and with
/// what a document keeps besides under keys of their own.
struct ZLDocumentContents {
    /// Chapter dictionaries, in either form, in ascending time order when written; any order when read.
    QVariantList chapters;
    /// Seconds of recorded time.
    double duration = 0.0;
    /// Chapter dictionaries in the drawer's own order.
    QVariantList templates;
    /// All other entries, also those that this version does not know; dictionaries in them are maps in either form. See
    /// ZLDocumentExtras.
    QVariantMap extras {};

    bool operator==(const ZLDocumentContents&) const = default;
};

namespace ZLDocumentFile {

inline const QString Extension = QStringLiteral("zelta");
inline const QString MimeType = QStringLiteral("application/x-zelta-chapters");

/// Notes of chapters that have no UUID in `contents` are left out.
[[nodiscard]] QByteArray encode(const ZLDocumentContents& contents);

/// Missing entries, and a duration that is no finite number, read as empty or 0, values of another type as what they
/// can be read as. Fails only for bytes that are no keyed archive of a dictionary.
[[nodiscard]] ZLResult<ZLDocumentContents> decode(QByteArrayView bytes, ZLDictionaryForm form = ZLDictionaryForm::Map);

}
