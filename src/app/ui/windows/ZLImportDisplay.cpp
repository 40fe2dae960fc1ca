#include "app/ui/windows/ZLImportDisplay.h"

#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLEditMenu.h"
#include "document/ui/table/ZLChapterTableView.h"
#include "import/ZLDocumentImport.h"
#include "import/ui/ZLImportSheet.h"
#include "templates/ui/ZLTextDrop.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

const QString importFailureName = QStringLiteral("importFailure");
/// How the sheet and the table share the height of the window.
constexpr int importSheetShare = 2;
constexpr int tableBesideShare = 1;

}

ZLImportDisplay::ZLImportDisplay(ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_window(window)
{
    connect(&window.editMenu(), &ZLEditMenu::chapterPasteRequested, this, &ZLImportDisplay::importFromClipboard);
    connect(
        new ZLTextDrop(*window.tableView().viewport()), &ZLTextDrop::textDropped, this, &ZLImportDisplay::importText);
}

void ZLImportDisplay::chooseFile()
{
    m_window.commitTypedText();
    auto* dialog = new QFileDialog(&m_window, tr("Import Chapters"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(u"importPanel"_s);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilter(tr("All files (*)"));
    connect(dialog, &QFileDialog::fileSelected, this, &ZLImportDisplay::importFile);
    dialog->open();
}

void ZLImportDisplay::importFile(const QString& path)
{
    const auto source = ZLImportSource::fromFile(path);
    if (!source) {
        m_window.messageBar().showMessage(
            importFailureName, source.error().message, { { tr("Dismiss"), [] { } } }, {}, ZLMessageBar::Kind::Error);
        return;
    }
    show(source.value(), QFileInfo(path).fileName());
}

void ZLImportDisplay::importText(const QString& text)
{
    const auto source = ZLImportSource::fromText(text);
    if (source)
        show(source.value(), tr("the text"));
    else
        m_window.statusLine().showPassingMessage(source.error().message);
}

void ZLImportDisplay::importFromClipboard()
{
    const QString text = QGuiApplication::clipboard()->text();
    if (text.isEmpty())
        m_window.statusLine().showPassingMessage(tr("The clipboard holds no text."));
    else
        importText(text);
}

void ZLImportDisplay::takeDroppedFiles(const QStringList& paths)
{
    QStringList documents = paths;
    QStringList lists = paths;
    lists.removeIf([](const QString& path) { return !ZLImportSource::isList(path); });
    documents.removeIf([&lists](const QString& path) { return lists.contains(path); });
    if (!documents.isEmpty())
        Q_EMIT openRequested(documents);
    if (lists.isEmpty())
        return;
    importFile(lists.constFirst());
    if (lists.size() > 1)
        m_window.statusLine().showPassingMessage(tr("One list is imported at a time."));
}

void ZLImportDisplay::show(const ZLImportSource& source, const QString& name)
{
    m_window.commitTypedText();
    m_window.messageBar().hideMessage(importFailureName);
    makeSheet();
    m_sheet->setSource(source, name);
    m_sheet->show();
    m_sheet->takeKeyboard();
}

void ZLImportDisplay::makeSheet()
{
    if (m_sheet)
        return;
    m_sheet = new ZLImportSheet(*m_window.menuBar(), m_window.centralWidget());
    connect(m_sheet, &ZLImportSheet::wantsToClose, this, &ZLImportDisplay::close);
    connect(m_sheet, &ZLImportSheet::importRequested, this, &ZLImportDisplay::carryOut);
    // Between the messages and the table: neither the clock nor the newest mark is ever covered.
    auto* layout = qobject_cast<QBoxLayout*>(m_window.centralWidget()->layout());
    layout->insertWidget(layout->indexOf(&m_window.tableView()), m_sheet, importSheetShare);
    layout->setStretchFactor(&m_window.tableView(), tableBesideShare);
}

void ZLImportDisplay::carryOut()
{
    const auto outcome = ZLDocumentImport::carryOut(m_window.document(), m_sheet->source(), m_sheet->choices());
    close();
    m_window.statusLine().showPassingMessage(
        outcome.chapters == 1 ? tr("1 chapter imported") : tr("%1 chapters imported").arg(outcome.chapters));
}

void ZLImportDisplay::close()
{
    m_sheet->hide();
    m_window.tableView().setFocus();
}
