#pragma once

#include "app/ZLDocumentController.h"
#include "app/ZLExportMemory.h"
#include "export/ZLExportFolders.h"

#include <QObject>

class ZLExportFlow;

/// Carries out the exports of one group of formats for the menus of all windows. An export may outlive the window that
/// it was asked for in.
class ZLExports : public QObject {
    Q_OBJECT

public:
    /// The formats keep their order. `controller` and `memory` have to outlive this.
    ZLExports(ZLDocumentController& controller, const ZLExportMemory& memory, QList<ZLExporterClass> exporterClasses);
    /// Ends the exports whose dialogs stand.
    ~ZLExports() override;

    [[nodiscard]] const QList<ZLExporterClass>& exporterClasses() const { return m_exporterClasses; }

    /// Exports the current document, else the one that was opened first, in the format at this position.
    void start(qsizetype position);

    /// Whether a dialog or an alert of an export stands.
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
    void rememberTarget(
        const ZLExportFlow& flow, const QString& name, const QString& format, const QString& path) const;

    ZLDocumentController& m_controller;
    const ZLExportMemory& m_memory;
    const QList<ZLExporterClass> m_exporterClasses;
    const ZLExportFolders m_folders { ZLStateFolder::path() };
};
