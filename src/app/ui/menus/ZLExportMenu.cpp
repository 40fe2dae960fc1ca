#include "app/ui/menus/ZLExportMenu.h"

#include "app/ui/menus/ZLExports.h"

using namespace Qt::StringLiterals;

ZLExportMenu::ZLExportMenu(ZLExports& exports, QWidget* parent)
    : ZLExportMenu(exports, tr("&Export"), parent)
{
    setObjectName(u"exportMenu"_s);
}

ZLExportMenu* ZLExportMenu::ofFurtherFormats(ZLExports& exports, QWidget* parent)
{
    auto* menu = new ZLExportMenu(exports, tr("Export Ot&her"), parent);
    menu->setObjectName(u"exportOtherMenu"_s);
    return menu;
}

ZLExportMenu::ZLExportMenu(ZLExports& exports, const QString& title, QWidget* parent)
    : QMenu(title, parent)
{
    setToolTipsVisible(true);
    const QList<ZLExporterClass>& classes = exports.exporterClasses();
    for (qsizetype tag = 0; tag < classes.size(); ++tag) {
        const ZLExportFormat& format = classes.at(tag).format();
        const QString name = format.shownName();
        QAction* item = addAction(tr("%1…").arg(name), &exports, [&exports, tag] { exports.start(tag); });
        item->setProperty("tag", int(tag));
        item->setObjectName(u"export"_s + QString(format.name).remove(u' '));
        item->setToolTip(tr("Write the chapters for %1").arg(name));
    }
}
