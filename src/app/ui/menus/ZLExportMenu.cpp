#include "app/ui/menus/ZLExportMenu.h"

#include "export/ZLExporter.h"
#include "export/ui/ZLExportFlow.h"

#include <QApplication>
#include <QPointer>

using namespace Qt::StringLiterals;

ZLExportMenu::ZLExportMenu(ZLDocumentController& controller)
    : QMenu(tr("&Export"))
    , m_controller(controller)
{
    setObjectName(u"exportMenu"_s);
    setToolTipsVisible(true);
    const QList<ZLExporterClass> exporters = ZLExporter::allExporters();
    for (qsizetype tag = 0; tag < exporters.size(); ++tag) {
        const ZLExportFormat& format = exporters.at(tag).format();
        const QString name = format.shownName();
        QAction* item = addAction(tr("%1…").arg(name), this, [this, tag] { exportItemClicked(tag); });
        item->setProperty("tag", int(tag));
        item->setObjectName(u"export"_s + QString(format.name).remove(u' '));
        item->setToolTip(tr("Write the chapters for %1").arg(name));
    }
}

ZLExportMenu::~ZLExportMenu()
{
    // As children they would go when the menu is none any more that could tell of their end.
    qDeleteAll(findChildren<ZLExportFlow*>(QString(), Qt::FindDirectChildrenOnly));
}

void ZLExportMenu::exportItemClicked(qsizetype tag)
{
    const ZLExporterClass exporterClass = ZLExporter::allExporters().at(tag);
    const QString format = exporterClass.format().name;
    auto* flow = new ZLExportFlow(exporterClass, this);
    const QPointer<ZLChapterDocument> document = m_controller.currentOrLastDocument();
    const ZLDocumentSaver* saver = m_controller.saverOf(document);
    flow->setFolder(m_folders.folderFor(format, saver ? saver->path() : QString()));
    connect(flow, &ZLExportFlow::exportDidFinish, this, [this, document, format](const QString& path) {
        m_folders.remember(format, path);
        Q_EMIT exportDidFinish(document, format, path);
    });
    connect(flow, &ZLExportFlow::exportDidInsertNothing, this,
        [this, document, format](const QString& path, const QString& reason) {
            Q_EMIT exportDidInsertNothing(document, format, path, reason);
        });
    connect(flow, &ZLExportFlow::exportDidFail, this,
        [this, document, format](const QString& message) { Q_EMIT exportDidFail(document, format, message); });
    connect(
        &m_controller, &ZLDocumentController::willCloseDocument, flow, [flow, document](ZLChapterDocument* closing) {
            if (document == closing)
                flow->documentWillClose();
        });
    connect(flow, &QObject::destroyed, this, &ZLExportMenu::exportDidEnd);
    flow->exportChapters(document, QApplication::activeWindow());
}

bool ZLExportMenu::isExporting() const
{
    return findChild<ZLExportFlow*>(QString(), Qt::FindDirectChildrenOnly);
}
