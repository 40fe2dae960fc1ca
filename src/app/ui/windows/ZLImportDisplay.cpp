#include "app/ui/windows/ZLImportDisplay.h"

#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLEditMenu.h"
#include "document/ui/table/ZLChapterTableView.h"
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
/// A disk that takes longer is told.
constexpr int slowReadingMilliseconds = 1000;

}

ZLImportDisplay::ZLImportDisplay(ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_window(window)
{
    m_slowReading.setSingleShot(true);
    m_slowReading.setInterval(slowReadingMilliseconds);
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
    readSource(
        QFileInfo(path).fileName(), [path] { return ZLImportSource::fromFile(path); },
        [this](const QString& reason) {
            m_window.messageBar().showMessage(
                importFailureName, reason, { { tr("Dismiss"), [] { } } }, {}, ZLMessageBar::Kind::Error);
        });
}

void ZLImportDisplay::importText(const QString& text)
{
    readSource(
        tr("the text"), [text] { return ZLImportSource::fromText(text); },
        [this](const QString& reason) { m_window.statusLine().showPassingMessage(reason); });
}

void ZLImportDisplay::readSource(const QString& name, const std::function<ZLResult<ZLImportSource>()>& find,
    const std::function<void(const QString& reason)>& sayWhyThereIsNone)
{
    read(
        [this, name, find, sayWhyThereIsNone](const ZLDiskWork::Teller& tell) {
            const auto found = find();
            if (!found)
                tell([sayWhyThereIsNone, reason = found.error().message] { sayWhyThereIsNone(reason); });
            else
                tell([this, name, source = found.value(), plan = ZLImportPlan::make(found.value(), {})] {
                    takeSource(source, plan, name);
                });
        },
        name);
}

void ZLImportDisplay::read(ZLDiskWork::Work work, const QString& name)
{
    m_slowReading.disconnect(this);
    connect(&m_slowReading, &QTimer::timeout, this,
        [this, name] { m_window.statusLine().showPassingMessage(tr("Reading “%1”…").arg(name)); });
    m_slowReading.start();
    m_reading = std::make_unique<ZLDiskWork>();
    connect(m_reading.get(), &ZLDiskWork::didEnd, &m_slowReading, &QTimer::stop);
    m_reading->start(std::move(work));
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
    read(
        [this, paths](const ZLDiskWork::Teller& tell) {
            QStringList documents;
            QStringList lists;
            for (const QString& path : paths)
                (ZLImportSource::isList(path) ? lists : documents).append(path);
            tell([this, documents, lists] { takeSortedFiles(documents, lists); });
        },
        QFileInfo(paths.value(0)).fileName());
}

void ZLImportDisplay::takeSortedFiles(const QStringList& documents, const QStringList& lists)
{
    if (!documents.isEmpty())
        Q_EMIT openRequested(documents);
    if (lists.isEmpty())
        return;
    if (lists.size() > 1)
        m_window.statusLine().showPassingMessage(tr("One list is imported at a time."));
    importFile(lists.constFirst());
}

void ZLImportDisplay::takeSource(const ZLImportSource& source, const ZLImportPlan& plan, const QString& name)
{
    m_window.commitTypedText();
    m_window.messageBar().hideMessage(importFailureName);
    makeSheet();
    m_sheet->setSource(source, plan, name);
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
    const auto way = m_sheet->replacesChapters() ? ZLChapterImport::Way::Replace : ZLChapterImport::Way::Add;
    const auto outcome = ZLDocumentImport::carryOut(m_window.document(), m_sheet->takePlan(), way);
    close();
    m_window.statusLine().showPassingMessage(textFor(outcome));
}

QString ZLImportDisplay::textFor(const ZLDocumentImport::Outcome& outcome)
{
    QString chapters =
        outcome.chapters == 1 ? tr("1 chapter imported") : tr("%1 chapters imported").arg(outcome.chapters);
    const QString templates =
        outcome.templates == 1 ? tr("1 template imported") : tr("%1 templates imported").arg(outcome.templates);
    if (outcome.templates == 0)
        return chapters;
    return outcome.chapters == 0 ? templates : chapters + u", "_s + templates;
}

void ZLImportDisplay::close()
{
    m_sheet->hide();
    m_window.tableView().setFocus();
}
