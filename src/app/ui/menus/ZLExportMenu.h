#pragma once

#include "app/ZLDocumentController.h"
#include "app/ZLExportMemory.h"
#include "export/ZLExportFolders.h"

#include <QMenu>

#include <memory>

class ZLExportFlow;

/// A menu of exports, made once: one item an exporter, in its order, the item's tag being its position. All windows
/// share it.
class ZLExportMenu : public QMenu {
    Q_OBJECT

public:
    /// The exporters of the registry. `controller` and `memory` have to outlive the menu.
    ZLExportMenu(ZLDocumentController& controller, const ZLExportMemory& memory);
    /// The further formats.
    [[nodiscard]] static std::unique_ptr<ZLExportMenu> ofFurtherFormats(
        ZLDocumentController& controller, const ZLExportMemory& memory);
    /// Ends the exports whose dialogs stand.
    ~ZLExportMenu() override;

    /// Whether a dialog or an alert of an export stands, which may outlive the window that it was asked for in.
    [[nodiscard]] bool isExporting() const;

Q_SIGNALS:
    /// `document` is null when there was none, or when it was closed meanwhile.
    void exportDidFinish(ZLChapterDocument* document, const QString& format, const QString& path);
    void exportDidInsertNothing(
        ZLChapterDocument* document, const QString& format, const QString& path, const QString& reason);
    void exportDidFail(ZLChapterDocument* document, const QString& format, const QString& message);
    /// Comes last, also after an export that was cancelled.
    void exportDidEnd();

private:
    ZLExportMenu(ZLDocumentController& controller, const ZLExportMemory& memory, const QString& title,
        QList<ZLExporterClass> exporterClasses);
    void exportItemClicked(qsizetype tag);
    void rememberTarget(
        const ZLExportFlow& flow, const QString& name, const QString& format, const QString& path) const;

    ZLDocumentController& m_controller;
    const ZLExportMemory& m_memory;
    const QList<ZLExporterClass> m_exporterClasses;
    const ZLExportFolders m_folders { ZLStateFolder::path() };
};
