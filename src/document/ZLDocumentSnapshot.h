#pragma once

#include "document/shared/ZLDocumentExtras.h"
#include "model/ZLChapterRecord.h"

#include <QByteArray>

/// A document as it was at one moment. It shares what it holds with the document, so it is taken in little time however
/// long the document is, and it stays as it is while the document changes. Its bytes may be made on any thread.
struct ZLDocumentSnapshot {
    ZLChapterSnapshot chapters {};
    /// Seconds of recorded time.
    double duration = 0.0;
    ZLChapterSnapshot templates {};
    ZLExtrasSnapshot extras {};

    /// Whether a file of both would be the same.
    [[nodiscard]] bool isSameAs(const ZLDocumentSnapshot& other) const;
    /// The file form.
    [[nodiscard]] QByteArray encoded() const;
};
