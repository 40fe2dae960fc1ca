#pragma once

#include "document/ZLDocumentParts.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLResult.h"

#include <QByteArray>
#include <QString>

/// A document that was read from a file, with all that takes long for a long one. It may be made on any thread, so that
/// the main thread only puts it into its places.
struct ZLReadDocument {
    ZLDocumentParts parts {};
    /// What a document with these parts looks like.
    ZLDocumentSnapshot state {};
    /// The file as it was read.
    QByteArray fileBytes {};
    /// The digest of these, as a journal knows versions of the file.
    QByteArray version {};
    /// The file as this program would write it.
    QByteArray bytes {};

    /// Fails for a file that cannot be read or is no document; the error names it.
    [[nodiscard]] static ZLResult<ZLReadDocument> read(const QString& path, ZLFileLinks links = ZLFileLinks::Follow);
    /// What `parts` were read from `fileBytes`.
    [[nodiscard]] static ZLReadDocument of(const ZLDocumentParts& parts, const QByteArray& fileBytes);
};
