#pragma once

#include "document/ZLDocumentFile.h"
#include "document/ZLDocumentSnapshot.h"
#include "model/ZLChapter.h"

/// What a document is to hold, with its chapters as the objects that will stand in its lists. They may be made on any
/// thread, so that the main thread only puts them into their places.
struct ZLDocumentParts {
    /// In ascending time order.
    ZLChapterSequence chapters {};
    /// Seconds of recorded time.
    double duration = 0.0;
    ZLChapterSequence templates {};
    QVariantMap extras {};

    [[nodiscard]] static ZLDocumentParts of(const ZLDocumentContents& contents);
    /// The new chapters share what they say with the snapshot. Those at both ends of `present` that say it already stay
    /// the same objects.
    [[nodiscard]] static ZLDocumentParts of(const ZLDocumentSnapshot& snapshot, const ZLChapterSequence& present = {});
    /// What a document that holds this looks like.
    [[nodiscard]] ZLDocumentSnapshot snapshot() const;
};
