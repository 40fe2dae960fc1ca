#pragma once

#include "app/ZLDocumentController.h"
#include "export/ZLExportFolders.h"

#include <QMenu>

/// The export menu, made once from the registry: one item an exporter, in its order, the item's tag being its position.
/// All windows share it.
class ZLExportMenu : public QMenu {
    Q_OBJECT

public:
    /// `controller` has to outlive the menu.
    explicit ZLExportMenu(ZLDocumentController& controller);

Q_SIGNALS:
    /// `document` is null when there was none, or when it was closed meanwhile.
    void exportDidFinish(ZLChapterDocument* document, const QString& path);
    void exportDidInsertNothing(ZLChapterDocument* document, const QString& path, const QString& reason);
    void exportDidFail(ZLChapterDocument* document, const QString& message);

private:
    void exportItemClicked(qsizetype tag);

    ZLDocumentController& m_controller;
    const ZLExportFolders m_folders { ZLStateFolder::path() };
};
