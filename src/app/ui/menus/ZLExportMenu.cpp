#include "app/ui/menus/ZLExportMenu.h"

#include "export/lists/ZLListExporter.h"
#include "export/ui/ZLExportFlow.h"
#include "platform/ZLBoundedFile.h"
#include "settings/ZLSettingsManager.h"

#include <QApplication>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

QString linePatternKey(const QString& format)
{
    return u"LinePattern "_s + format;
}

}

ZLExportMenu::ZLExportMenu(ZLDocumentController& controller, const ZLExportMemory& memory)
    : ZLExportMenu(controller, memory, tr("&Export"), ZLExporter::allExporters())
{
    setObjectName(u"exportMenu"_s);
}

std::unique_ptr<ZLExportMenu> ZLExportMenu::ofFurtherFormats(
    ZLDocumentController& controller, const ZLExportMemory& memory)
{
    std::unique_ptr<ZLExportMenu> menu(
        new ZLExportMenu(controller, memory, tr("Export Ot&her"), ZLListExporter::allForms()));
    menu->setObjectName(u"exportOtherMenu"_s);
    return menu;
}

ZLExportMenu::ZLExportMenu(ZLDocumentController& controller, const ZLExportMemory& memory, const QString& title,
    QList<ZLExporterClass> exporterClasses)
    : QMenu(title)
    , m_controller(controller)
    , m_memory(memory)
    , m_exporterClasses(std::move(exporterClasses))
{
    setToolTipsVisible(true);
    for (qsizetype tag = 0; tag < m_exporterClasses.size(); ++tag) {
        const ZLExportFormat& format = m_exporterClasses.at(tag).format();
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
    const ZLExporterClass& exporterClass = m_exporterClasses.at(tag);
    const QString format = exporterClass.format().name;
    auto* flow = new ZLExportFlow(exporterClass, this);
    const QPointer<ZLChapterDocument> document = m_controller.currentOrLastDocument();
    const ZLDocumentSaver* saver = m_controller.saverOf(document);
    const QString documentPath = saver ? saver->path() : QString();
    const QString name = m_memory.nameOf(document);
    flow->setFolder(m_folders.folderFor(format, documentPath));
    flow->setLinePattern(ZLSettingsManager::textForKey(linePatternKey(format)));
    connect(flow, &ZLExportFlow::exportDidFinish, this, [this, flow, name, document, format](const QString& path) {
        m_folders.remember(format, path);
        if (const QString pattern = flow->linePattern(); !pattern.isEmpty())
            ZLSettingsManager::setText(pattern, linePatternKey(format));
        // It may have got a file while the dialog stood.
        rememberTarget(*flow, document ? m_memory.nameOf(document) : name, format, path);
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

void ZLExportMenu::rememberTarget(
    const ZLExportFlow& flow, const QString& name, const QString& format, const QString& path) const
{
    const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
    if (bytes)
        m_memory.remember(name,
            { .formatName = format,
                .path = path,
                .option = flow.option(),
                .linePattern = flow.linePattern(),
                .digest = ZLExportTargets::digestOf(bytes.value()) });
}

bool ZLExportMenu::isExporting() const
{
    return findChild<ZLExportFlow*>(QString(), Qt::FindDirectChildrenOnly);
}
