#pragma once

#include "lists/forms/ZLListForms.h"

#include <QStringList>

/// Chapters that were found in a file or a text: a document, an audio file, or a list of any form. Nothing has been
/// done with them yet.
struct ZLImportSource {
    ZLReadLists found {};
    /// Seconds of the recording where the file tells them, else 0.
    double duration = 0.0;
    /// Of a list that people write: its lines without a time, one text each.
    QStringList textsWithoutTime {};

    /// Whether the file at `path` is to be read as a list: it is no document and no audio file.
    [[nodiscard]] static bool isList(const QString& path);
    /// What the file is, is told by its contents. The error names the file.
    [[nodiscard]] static ZLResult<ZLImportSource> fromFile(const QString& path);
    /// A list, from the clipboard.
    [[nodiscard]] static ZLResult<ZLImportSource> fromText(const QString& text);
};
