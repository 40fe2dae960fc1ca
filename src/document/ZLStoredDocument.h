#pragma once

#include "document/ZLDocumentFile.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLResult.h"

#include <QByteArray>
#include <QString>

/// A document as it stands in a file: its bytes, and what they hold.
struct ZLStoredDocument {
    QByteArray bytes;
    ZLDocumentContents contents;

    /// Fails for a file that cannot be read or is no document; the error names it.
    [[nodiscard]] static ZLResult<ZLStoredDocument> read(const QString& path, ZLFileLinks links = ZLFileLinks::Follow);
    /// The contents alone, with the dictionaries of their chapters as `form`.
    [[nodiscard]] static ZLResult<ZLDocumentContents> contentsOf(
        const QString& path, ZLFileLinks links = ZLFileLinks::Follow, ZLDictionaryForm form = ZLDictionaryForm::Map);
};
