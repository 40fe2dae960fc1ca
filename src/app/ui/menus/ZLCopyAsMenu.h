#pragma once

#include "export/ZLExporter.h"

#include <QMenu>

class ZLChapterDocumentWindow;

/// Copies to the clipboard what the file of an export would hold: one item a format, two for a format with a checkbox.
/// A session that is rewritten in place is no text to copy.
class ZLCopyAsMenu : public QMenu {
    Q_OBJECT

public:
    /// Belongs to `window`, and acts on its document.
    explicit ZLCopyAsMenu(ZLChapterDocumentWindow& window);

private:
    void addItems(const QList<ZLExporterClass>& exporterClasses);
    void addItem(const ZLExporterClass& exporterClass, ZLExportOption option);
    void copy(const ZLExporterClass& exporterClass, ZLExportOption option);

    ZLChapterDocumentWindow& m_window;
};
