#pragma once

#include "document/saving/ZLDocumentSaver.h"

#include <QCoreApplication>
#include <QString>

/// Phrases in the lines of a recorder without a window.
class ZLHeadlessTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLHeadlessTexts)

public:
    /// The document's file, or its name while it has none.
    [[nodiscard]] static QString nameOf(const ZLChapterDocument& document, const ZLDocumentSaver& saver);
    /// "saved", "saving", or why it is not.
    [[nodiscard]] static QString describe(const ZLDocumentSaver& saver);
    /// `chapter 3 at 00:01:05.300 "News"`
    [[nodiscard]] static QString describe(qsizetype index, const ZLChapter& chapter);
};
