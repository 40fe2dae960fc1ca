#include "app/ui/ZLExportMenu.h"

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

void ZLExportMenu::exportItemClicked(qsizetype tag)
{
    auto* flow = new ZLExportFlow(ZLExporter::allExporters().at(tag), this);
    const QPointer<ZLChapterDocument> document = m_controller.currentOrLastDocument();
    connect(flow, &ZLExportFlow::exportDidFinish, this,
        [this, document](const QString& path) { Q_EMIT exportDidFinish(document, path); });
    connect(flow, &ZLExportFlow::exportDidFail, this,
        [this, document](const QString& message) { Q_EMIT exportDidFail(document, message); });
    flow->exportChapters(document, QApplication::activeWindow());
}
