#include "app/ui/ZLExportMenu.h"

#include "export/ZLExporter.h"
#include "export/ui/ZLExportFlow.h"

#include <QApplication>

using namespace Qt::StringLiterals;

ZLExportMenu::ZLExportMenu(ZLDocumentController& controller)
    : QMenu(tr("&Export"))
    , m_controller(controller)
{
    setObjectName(u"exportMenu"_s);
    const QList<ZLExporterClass> exporters = ZLExporter::allExporters();
    for (qsizetype tag = 0; tag < exporters.size(); ++tag) {
        const QString name = exporters.at(tag).format().name;
        QAction* item = addAction(name + u'…', this, [this, tag] { exportItemClicked(tag); });
        item->setProperty("tag", int(tag));
        item->setObjectName(u"export"_s + QString(name).remove(u' '));
        item->setToolTip(tr("Write the chapters for %1").arg(name));
    }
}

void ZLExportMenu::exportItemClicked(qsizetype tag)
{
    auto* flow = new ZLExportFlow(ZLExporter::allExporters().at(tag), this);
    connect(flow, &ZLExportFlow::exportDidFinish, this, &ZLExportMenu::exportDidFinish);
    connect(flow, &ZLExportFlow::exportDidFail, this, &ZLExportMenu::exportDidFail);
    flow->exportChapters(m_controller.currentOrLastDocument(), QApplication::activeWindow());
}
