#pragma once

#include "export/ZLExportAgain.h"

#include <QObject>

class ZLChapterDocumentWindow;
class ZLExportMemory;

/// File ▸ Export Again in a document's window: writes the files that the document was last exported to, and asks in one
/// bar where that may not be wanted.
class ZLExportAgainDisplay : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`; `memory` has to outlive it.
    ZLExportAgainDisplay(const ZLExportMemory& memory, ZLChapterDocumentWindow& window);

    void exportAgain();

private:
    void ask(const ZLExportAgain& again, const QList<ZLExportTarget>& safe, const QStringList& doubts);
    void write(const ZLExportAgain& again, const QList<ZLExportTarget>& targets);
    void tell(const ZLExportAgain& again, const ZLExportAgain::Outcome& outcome);
    [[nodiscard]] QString nameOfDocument() const;

    const ZLExportMemory& m_memory;
    ZLChapterDocumentWindow& m_window;
};
