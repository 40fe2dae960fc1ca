#pragma once

#include "document/ZLDocumentFile.h"
#include "document/recording/ZLInterruptedRecording.h"
#include "platform/ZLResult.h"

#include <QByteArrayView>
#include <QString>

#include <optional>

/// The newest state that a journal holds.
struct ZLJournaledDocument {
    /// The user's file; empty for an untitled document.
    QString filePath {};
    ZLDocumentContents contents {};
    std::optional<ZLInterruptedRecording> interruption {};
    /// Versions of the user's file that belong to the journal.
    QList<QByteArray> fileDigests {};
    /// Whether chapters, templates or the clock changed, and the last version of the file does not show it.
    bool hasChangesSinceFile = false;
    /// Whether the last record was cut off.
    bool isTorn = false;

    [[nodiscard]] bool belongsTo(QByteArrayView fileBytes) const;
    /// Whether a file that holds `fileBytes` lacks nothing, so that the journal is not needed.
    [[nodiscard]] bool isWhollyIn(QByteArrayView fileBytes) const;
};

namespace ZLJournalReader {

/// Fails for bytes that do not begin with the path and the snapshot of a document. A torn end, and whatever follows a
/// record that makes no sense, is left out. `tail` is what ZLJournalTail holds of the same journal: the changes that
/// follow the last one of `bytes` are taken from there.
[[nodiscard]] ZLResult<ZLJournaledDocument> read(QByteArrayView bytes, QByteArrayView tail = {});

}
