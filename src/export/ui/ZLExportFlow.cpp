#include "export/ui/ZLExportFlow.h"

#include "document/ZLChapterDocument.h"
#include "document/saving/ZLWriteProtection.h"
#include "document/ui/ZLSaveFileDialog.h"
#include "export/ZLSessionCopy.h"
#include "export/formats/ZLExportAdvice.h"
#include "export/ui/ZLDocumentExportInput.h"
#include "export/ui/ZLExportAdviceView.h"
#include "export/ui/ZLLinePatternView.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QFileDialog>
#include <QGridLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

/// The place below the name filters of Qt's own dialog.
void appendToDialog(QFileDialog& dialog, QWidget* widget)
{
    if (auto* grid = qobject_cast<QGridLayout*>(dialog.layout()))
        grid->addWidget(widget, grid->rowCount(), 0, 1, grid->columnCount());
}

}

ZLExportFlow::ZLExportFlow(const ZLExporterClass& exporterClass, QObject* parent)
    : QObject(parent)
    , m_exporterClass(exporterClass)
    , m_openFile([](const QString& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); })
{
}

ZLExportFlow::~ZLExportFlow()
{
    delete m_dialog;
    delete m_alert;
}

void ZLExportFlow::exportChapters(ZLChapterDocument* document, QWidget* window)
{
    if (m_exporterClass.format().dialogKind == ZLExportDialogKind::None) {
        deleteLater();
        return;
    }
    m_document = document;
    m_window = window;
    createDialog(document ? document->displayName() : QString());
    connect(m_dialog, &QDialog::finished, this, &ZLExportFlow::dialogDidFinish);
    if (document)
        connect(document, &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
            if (change.concerns(ZLDocumentChange::concerningExports))
                updateAdvice();
        });
    m_dialog->show();
}

void ZLExportFlow::documentWillClose()
{
    m_heldAtLast = inputFor({});
    m_document = nullptr;
}

QFileDialog* ZLExportFlow::dialog() const
{
    return m_dialog;
}

void ZLExportFlow::createDialog(const QString& displayName)
{
    const ZLExportFormat& format = m_exporterClass.format();
    const bool isRewriting = format.dialogKind == ZLExportDialogKind::Open;
    const QString title = tr("Export to %1").arg(format.shownName());
    m_dialog = isRewriting ? new QFileDialog(nullptr, title)
                           : static_cast<QFileDialog*>(new ZLSaveFileDialog(nullptr, title, format.fileType));
    m_dialog->setOption(QFileDialog::DontUseNativeDialog);
    m_dialog->setNameFilter(u"%1 (*.%2)"_s.arg(format.shownName(), format.fileType));
    if (!m_folder.isEmpty())
        m_dialog->setDirectory(m_folder);
    if (isRewriting)
        m_dialog->setFileMode(QFileDialog::ExistingFile);
    else
        m_dialog->selectFile(ZLExporter::proposedFileName(displayName, format.fileType));
    installAdditions();
    updateAdvice();
}

void ZLExportFlow::installAdditions()
{
    if (m_exporterClass.format().hasOption()) {
        m_optionCheckBox = new QCheckBox(m_exporterClass.format().shownOptionTitle(), m_dialog);
        connect(m_optionCheckBox, &QCheckBox::toggled, this, &ZLExportFlow::updateAdvice);
        appendToDialog(*m_dialog, m_optionCheckBox);
    }
    if (m_exporterClass.format().hasLinePattern())
        addLinePattern();
    m_adviceView = new ZLExportAdviceView(m_dialog);
    appendToDialog(*m_dialog, m_adviceView);
    // A format may write the file's name into the file, or look at what the file holds.
    connect(m_dialog, &QFileDialog::currentChanged, this, &ZLExportFlow::updateAdvice);
    if (const auto* nameEdit = m_dialog->findChild<QLineEdit*>(u"fileNameEdit"_s))
        connect(nameEdit, &QLineEdit::textChanged, this, &ZLExportFlow::updateAdvice);
}

void ZLExportFlow::addLinePattern()
{
    const QString& usual = m_exporterClass.format().usualLinePattern;
    m_linePatternView = new ZLLinePatternView(m_proposedPattern.isEmpty() ? usual : m_proposedPattern, m_dialog);
    connect(m_linePatternView, &ZLLinePatternView::patternDidChange, this, &ZLExportFlow::updateAdvice);
    appendToDialog(*m_dialog, m_linePatternView);
}

void ZLExportFlow::updatePreview(const ZLExportInput& input)
{
    const auto bytes = m_exporterClass.create()->exportedBytes(input);
    m_linePatternView->setPreview(bytes ? QString::fromUtf8(bytes.value()) : bytes.error().message);
}

ZLExportOption ZLExportFlow::option() const
{
    return m_optionCheckBox && m_optionCheckBox->isChecked() ? ZLExportOption::On : ZLExportOption::Off;
}

QString ZLExportFlow::linePattern() const
{
    return m_linePatternView ? m_linePatternView->pattern() : QString();
}

void ZLExportFlow::updateAdvice()
{
    const QString path = m_dialog->selectedFiles().value(0);
    const ZLExportFormat& format = m_exporterClass.format();
    ZLExportInput input = inputFor(path);
    if (format.dialogKind == ZLExportDialogKind::Open)
        input.existingBytes = m_session.bytesOf(path);
    m_adviceView->setLines(ZLExportAdvice::lines(m_exporterClass, input));
    if (m_linePatternView)
        updatePreview(input);
}

void ZLExportFlow::dialogDidFinish(int result)
{
    const QString path = m_dialog->selectedFiles().value(0);
    if (result == QDialog::Accepted && !path.isEmpty())
        exportTo(path);
    // Else it ends with the alert.
    if (!m_alert)
        deleteLater();
}

void ZLExportFlow::exportTo(const QString& path)
{
    if (const ZLStatus allowed = ZLWriteProtection::check(path); !allowed) {
        Q_EMIT exportDidFail(allowed.error().message);
        return;
    }
    const ZLExportFormat& format = m_exporterClass.format();
    const auto exporter = m_exporterClass.create();
    ZLExportInput input = inputFor(path);
    ZLResult<QByteArray> existing = QByteArray();
    if (format.dialogKind == ZLExportDialogKind::Open)
        existing = ZLBoundedFile::read(path, ZLFileBound::Document);
    if (existing)
        input.existingBytes = existing.value();
    if (const auto alert = exporter->alertFor(input)) {
        showAlert(*alert);
        return;
    }
    const auto bytes = existing ? exporter->exportedBytes(input) : existing;
    const ZLStatus status = bytes ? write(path, input, bytes.value()) : ZLStatus(bytes.error());
    const QString nothing = exporter->reasonNothingIsInserted(input);
    if (!status)
        Q_EMIT exportDidFail(status.error().message);
    else if (nothing.isEmpty())
        Q_EMIT exportDidFinish(path);
    else
        Q_EMIT exportDidInsertNothing(path, nothing);
    // Also after a failure: what stood there before may be what the user is after.
    if (format.afterwards == ZLExportAfterwards::OpenInTextEditor)
        m_openFile(path);
}

ZLStatus ZLExportFlow::write(const QString& path, const ZLExportInput& input, const QByteArray& bytes) const
{
    if (m_exporterClass.format().dialogKind == ZLExportDialogKind::Open) {
        if (const ZLStatus allowed = ZLWriteProtection::check(ZLSessionCopy::pathFor(path)); !allowed)
            return allowed;
        if (const ZLStatus kept = ZLSessionCopy::keep(path, input.existingBytes); !kept)
            return kept;
    }
    return ZLAtomicFile::write(path, bytes);
}

void ZLExportFlow::showAlert(const ZLExportAlert& alert)
{
    m_alert = new QMessageBox(QMessageBox::Warning, tr("Zelta"), alert.message, QMessageBox::NoButton, m_window);
    m_alert->setInformativeText(alert.informativeText);
    m_alert->addButton(tr("OK"), QMessageBox::AcceptRole);
    m_alert->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_alert, &QObject::destroyed, this, &QObject::deleteLater);
    // Not exec(): a recording goes on, and so does everything that a remote control asks for.
    m_alert->open();
}

ZLExportInput ZLExportFlow::inputFor(const QString& path) const
{
    ZLExportInput input = m_heldAtLast;
    if (m_document)
        input = ZLDocumentExportInput::of(*m_document);
    input.option = option();
    input.linePattern = linePattern();
    input.fileBaseName = ZLExporter::fileBaseName(path);
    return input;
}
