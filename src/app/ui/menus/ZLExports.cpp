#include "app/ui/menus/ZLExports.h"

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

ZLExports::ZLExports(
    ZLDocumentController& controller, const ZLExportMemory& memory, QList<ZLExporterClass> exporterClasses)
    : m_controller(controller)
    , m_memory(memory)
    , m_exporterClasses(std::move(exporterClasses))
{
}

ZLExports::~ZLExports()
{
    // As children they would go when there is nothing any more that could tell of their end.
    qDeleteAll(findChildren<ZLExportFlow*>(QString(), Qt::FindDirectChildrenOnly));
}

void ZLExports::start(qsizetype position)
{
    const ZLExporterClass& exporterClass = m_exporterClasses.at(position);
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
    connect(flow, &QObject::destroyed, this, &ZLExports::exportDidEnd);
    flow->exportChapters(document, QApplication::activeWindow());
}

void ZLExports::rememberTarget(
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

bool ZLExports::isExporting() const
{
    return findChild<ZLExportFlow*>(QString(), Qt::FindDirectChildrenOnly);
}
