#include "app/ui/menus/ZLCopyAsMenu.h"

#include "document/ZLChapterDocument.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"
#include "export/formats/ZLExportAdvice.h"
#include "export/lists/ZLListExporter.h"
#include "export/ui/ZLDocumentExportInput.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace {

QString itemTitle(const ZLExportFormat& format, ZLExportOption option)
{
    const QString name = format.shownName();
    return option == ZLExportOption::Off ? name : ZLCopyAsMenu::tr("%1 – %2").arg(name, format.shownOptionTitle());
}

}

ZLCopyAsMenu::ZLCopyAsMenu(ZLChapterDocumentWindow& window)
    : QMenu(tr("C&opy As"), &window)
    , m_window(window)
{
    setObjectName(u"copyAsMenu"_s);
    setToolTipsVisible(true);
    addItems(ZLExporter::allExporters());
    addSeparator();
    addItems(ZLListExporter::allForms());
}

void ZLCopyAsMenu::addItems(const QList<ZLExporterClass>& exporterClasses)
{
    for (const ZLExporterClass& exporterClass : exporterClasses) {
        if (exporterClass.format().dialogKind != ZLExportDialogKind::Save)
            continue;
        addItem(exporterClass, ZLExportOption::Off);
        if (exporterClass.format().hasOption())
            addItem(exporterClass, ZLExportOption::On);
    }
}

void ZLCopyAsMenu::addItem(const ZLExporterClass& exporterClass, ZLExportOption option)
{
    const ZLExportFormat& format = exporterClass.format();
    QAction* item = addAction(itemTitle(format, option).replace(u'&', u"&&"_s), this,
        [this, exporterClass, option] { copy(exporterClass, option); });
    const QString suffix = option == ZLExportOption::On ? u"WithOption"_s : QString();
    item->setObjectName(u"copyAs"_s + QString(format.name).remove(u' ') + suffix);
}

void ZLCopyAsMenu::copy(const ZLExporterClass& exporterClass, ZLExportOption option)
{
    m_window.commitTypedText();
    const ZLExportFormat& format = exporterClass.format();
    ZLExportInput input = ZLDocumentExportInput::of(m_window.document());
    input.option = option;
    input.fileBaseName =
        ZLExporter::fileBaseName(ZLExporter::proposedFileName(m_window.document().displayName(), format.fileType));
    const auto bytes = exporterClass.create()->exportedBytes(input);
    if (!bytes) {
        m_window.statusLine().showPassingMessage(bytes.error().message);
        return;
    }
    QGuiApplication::clipboard()->setText(QString::fromUtf8(bytes.value()));
    QStringList told { tr("Copied as %1.").arg(itemTitle(format, option)) };
    told += ZLExportAdvice::lines(exporterClass, input);
    m_window.statusLine().showPassingMessage(told.join(u' '));
}
