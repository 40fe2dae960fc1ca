#include "export/ui/ZLExportFlow.h"

#include "document/ZLChapterDocument.h"
#include "platform/ZLAtomicFile.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>

using namespace Qt::StringLiterals;

ZLExportFlow::ZLExportFlow(const ZLExporterClass& exporterClass, QObject* parent)
    : QObject(parent)
    , m_exporterClass(exporterClass)
{
}

ZLExportFlow::~ZLExportFlow()
{
    delete m_dialog;
}

void ZLExportFlow::exportChapters(ZLChapterDocument* document, QWidget* window)
{
    if (m_exporterClass.format().dialogKind == ZLExportDialogKind::None) {
        deleteLater();
        return;
    }
    if (document)
        m_document = document;
    createDialog(document ? document->displayName() : QString(), window);
    connect(m_dialog, &QDialog::finished, this, &ZLExportFlow::dialogDidFinish);
    // The dialog goes with the window that it stands in front of; the flow has nothing to wait for then.
    connect(m_dialog, &QObject::destroyed, this, &QObject::deleteLater);
    m_dialog->show();
}

QFileDialog* ZLExportFlow::dialog() const
{
    return m_dialog;
}

void ZLExportFlow::createDialog(const QString& displayName, QWidget* window)
{
    const ZLExportFormat& format = m_exporterClass.format();
    m_dialog = new QFileDialog(window, tr("Export to %1").arg(format.name));
    if (format.hasOption())
        installOptionCheckBox();
    m_dialog->setNameFilter(u"%1 (*.%2)"_s.arg(format.name, format.fileType));
    if (format.dialogKind == ZLExportDialogKind::Open) {
        m_dialog->setAcceptMode(QFileDialog::AcceptOpen);
        m_dialog->setFileMode(QFileDialog::ExistingFile);
        return;
    }
    m_dialog->setAcceptMode(QFileDialog::AcceptSave);
    m_dialog->setFileMode(QFileDialog::AnyFile);
    m_dialog->setDefaultSuffix(format.fileType);
    m_dialog->selectFile(ZLExporter::proposedFileName(displayName, format.fileType));
}

void ZLExportFlow::installOptionCheckBox()
{
    // The desktop's own dialog has no place for the checkbox, so it is used only by formats that have none.
    m_dialog->setOption(QFileDialog::DontUseNativeDialog);
    m_optionCheckBox = new QCheckBox(m_exporterClass.format().optionTitle, m_dialog);
    if (auto* grid = qobject_cast<QGridLayout*>(m_dialog->layout()))
        grid->addWidget(m_optionCheckBox, grid->rowCount(), 0, 1, grid->columnCount());
}

void ZLExportFlow::dialogDidFinish(int result)
{
    deleteLater();
    const QString path = m_dialog->selectedFiles().value(0);
    if (result != QDialog::Accepted || path.isEmpty())
        return;
    const ZLStatus status = writeTo(path);
    if (status)
        Q_EMIT exportDidFinish(path);
    else
        Q_EMIT exportDidFail(status.error().message);
}

ZLStatus ZLExportFlow::writeTo(const QString& path)
{
    // An empty list must not take the place of the chapters that the file was chosen for.
    if (isDocumentGone())
        return ZLError { tr("The document was closed before it could be exported.") };
    ZLExportInput input = inputFor(path);
    if (m_exporterClass.format().dialogKind == ZLExportDialogKind::Open) {
        auto existing = ZLAtomicFile::read(path);
        if (!existing)
            return existing.error();
        input.existingBytes = std::move(existing).value();
    }
    const auto bytes = m_exporterClass.create()->exportedBytes(input);
    if (!bytes)
        return bytes.error();
    return ZLAtomicFile::write(path, bytes.value());
}

ZLExportInput ZLExportFlow::inputFor(const QString& path) const
{
    ZLExportInput input;
    if (m_document) {
        input.chapters = (*m_document)->chapterManager().allChapters();
        input.duration = (*m_document)->duration();
    }
    if (m_optionCheckBox && m_optionCheckBox->isChecked())
        input.option = ZLExportOption::On;
    input.fileBaseName = ZLExporter::fileBaseName(path);
    return input;
}
