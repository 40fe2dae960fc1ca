#include "document/ui/ZLChapterDocumentWindow.h"

#include "commands/ZLRemoteActions.h"
#include "document/ZLChapterDocument.h"
#include "document/ui/ZLDrawerSlide.h"
#include "document/ui/ZLImportNews.h"
#include "document/ui/ZLMoveChaptersDialog.h"
#include "document/ui/ZLWindowTyping.h"
#include "document/ui/menus/ZLActionHelp.h"
#include "document/ui/menus/ZLChapterContextMenu.h"
#include "document/ui/menus/ZLChapterEditItems.h"
#include "document/ui/menus/ZLEditMenu.h"
#include "document/ui/menus/ZLRecordingMenu.h"
#include "document/ui/menus/ZLViewMenu.h"
#include "document/ui/table/ZLChapterColumnLayout.h"
#include "platform/window/ZLWindowInFront.h"
#include "templates/ui/ZLTemplatesDrawer.h"
#include "templates/ui/ZLTextDrop.h"
#include "ui_ZLChapterDocument.h"

#include <QAction>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDockWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

const QString invalidTimestampAlertName = QStringLiteral("invalidTimestampAlert");

QString reasonToStayOpen()
{
    return ZLChapterDocumentWindow::tr("Pause the recording before closing this window.");
}

QStringList localFilesIn(const QMimeData& data)
{
    QStringList paths;
    const auto addresses = data.urls();
    for (const QUrl& address : addresses) {
        if (address.isLocalFile())
            paths.append(address.toLocalFile());
    }
    return paths;
}

/// What is in the drawer. It is made when it is first asked for: contents that are not seen would make opening a window
/// slower.
ZLTemplatesDrawer& contentsOf(QDockWidget& drawer, ZLChapterDocument& document, ZLEditMenu& editMenu)
{
    if (auto* contents = qobject_cast<ZLTemplatesDrawer*>(drawer.widget()))
        return *contents;
    auto* contents = new ZLTemplatesDrawer(document.templateViewController(), &drawer);
    drawer.setWidget(contents);
    editMenu.setPasteList(*contents);
    QObject::connect(&editMenu, &ZLEditMenu::listPasteRequested, contents, &ZLTemplatesDrawer::importFromClipboard);
    // The heading belongs to the drawer too.
    QObject::connect(new ZLTextDrop(drawer), &ZLTextDrop::textDropped, contents, &ZLTemplatesDrawer::importText);
    return *contents;
}

}

ZLChapterDocumentWindow::ZLChapterDocumentWindow(
    ZLChapterDocument& document, QWidget* parent, const ZLWindowStateStore& stateStore)
    : QMainWindow(parent)
    , m_document(document)
    , m_ui(std::make_unique<Ui::ZLChapterDocument>())
    , m_stateStore(stateStore)
{
    m_ui->setupUi(this);
    m_ui->tableView->showDocument(document);
    m_editMenu = new ZLEditMenu(*menuBar(), document, *m_ui->tableView);
    m_recordingMenu = new ZLRecordingMenu(*menuBar(), document);
    m_viewMenu = new ZLViewMenu(*menuBar());
    m_typing = new ZLWindowTyping(document, *m_ui->tableView, *m_ui->templateDrawer, this);
    addEditItems();
    buildDrawer();
    connectDocument();
    connectToolbar();
    connectMenus();
    connectStatusLine();
    restoreWindowState();
    if (isDrawerOpen())
        contentsOf(*m_ui->templateDrawer, document, *m_editMenu);
    updateTitle();
    updateRecordingState();
    updateAddButton();
    updateClock();
    updateDrawerItems();
    m_ui->tableView->setFocus();
}

ZLChapterDocumentWindow::~ZLChapterDocumentWindow()
{
    commitTypedText();
    m_ui->tableView->finishEditing();
    // The parts outlive this class by a moment and would still report how they disappear.
    const auto parts = findChildren<QObject*>();
    for (QObject* part : parts)
        part->disconnect(this);
}

ZLChapterTableView& ZLChapterDocumentWindow::tableView() const
{
    return *m_ui->tableView;
}

ZLDocumentToolbar& ZLChapterDocumentWindow::toolbar() const
{
    return *m_ui->toolbar;
}

ZLStatusLine& ZLChapterDocumentWindow::statusLine() const
{
    return *m_ui->statusLine;
}

ZLMessageBar& ZLChapterDocumentWindow::messageBar() const
{
    return *m_ui->messageBar;
}

void ZLChapterDocumentWindow::toggleDrawer()
{
    if (isDrawerOpen())
        m_drawerSlide->close();
    else
        m_drawerSlide->open();
}

bool ZLChapterDocumentWindow::isDrawerOpen() const
{
    return m_drawerSlide->isOpen();
}

void ZLChapterDocumentWindow::commitTypedText()
{
    m_typing->commit();
}

void ZLChapterDocumentWindow::saveWindowState() const
{
    m_drawerSlide->finish();
    m_stateStore.save({
        .geometry = saveGeometry(),
        .panels = saveState(),
        .titleShare = m_ui->tableView->columnLayout()->titleShare(),
    });
}

void ZLChapterDocumentWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (m_document.isRecording()) {
        // The desktop's list of windows closes one that is minimized, too.
        ZLWindowInFront::bring(*windowHandle());
        m_ui->statusLine->showPassingMessage(reasonToStayOpen());
        return;
    }
    commitTypedText();
    if (m_closeGuard && !m_closeGuard())
        return;
    saveWindowState();
    event->accept();
    Q_EMIT willClose();
}

void ZLChapterDocumentWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!localFilesIn(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void ZLChapterDocumentWindow::dropEvent(QDropEvent* event)
{
    const QStringList paths = localFilesIn(*event->mimeData());
    if (paths.isEmpty())
        return;
    event->acceptProposedAction();
    Q_EMIT filesDropped(paths);
}

void ZLChapterDocumentWindow::buildDrawer()
{
    m_drawerSlide = new ZLDrawerSlide(*this, *m_ui->templateDrawer);
    connect(m_drawerSlide, &ZLDrawerSlide::willOpen, this,
        [this] { contentsOf(*m_ui->templateDrawer, m_document, *m_editMenu); });
    connect(m_editMenu, &ZLEditMenu::importTemplatesRequested, this, [this] {
        // What was imported should be seen.
        if (!isDrawerOpen())
            toggleDrawer();
        contentsOf(*m_ui->templateDrawer, m_document, *m_editMenu).importFromClipboard();
    });
    connect(m_drawerSlide, &ZLDrawerSlide::didToggle, this, &ZLChapterDocumentWindow::drawerDidToggle);
}

void ZLChapterDocumentWindow::connectDocument()
{
    connect(&m_document, &ZLChapterDocument::displayDidUpdate, this, &ZLChapterDocumentWindow::updateClock);
    connect(&m_document, &ZLChapterDocument::changed, this, &ZLChapterDocumentWindow::showChange);
    connect(&m_document.typing(), &ZLTypingRequests::invalidTimestampEntered, this,
        &ZLChapterDocumentWindow::showInvalidTimestampAlert);
    connect(&m_document, &ZLChapterDocument::editedStateDidChange, this, &ZLChapterDocumentWindow::updateTitle);
    connect(&m_document, &ZLChapterDocument::displayNameDidChange, this, &ZLChapterDocumentWindow::updateTitle);
    connect(
        &m_document.selectionModel(), &QItemSelectionModel::selectionChanged, this, &ZLChapterDocumentWindow::validate);
    for (const auto signal : { &QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved })
        connect(&m_document.tableModel(), signal, this, &ZLChapterDocumentWindow::validate);
    connect(&m_document.tableModel(), &QAbstractItemModel::modelReset, this, &ZLChapterDocumentWindow::validate);
}

void ZLChapterDocumentWindow::connectToolbar()
{
    const ZLDocumentToolbar& bar = toolbar();
    connect(bar.recordButton(), &QToolButton::clicked, &m_document, &ZLChapterDocument::recordButtonPressed);
    connect(bar.addButton(), &QToolButton::clicked, &m_document, &ZLChapterDocument::addChapterButtonPressed);
    connect(bar.deleteButton(), &QToolButton::clicked, &m_document, &ZLChapterDocument::deleteButtonPressed);
    // Assistive programs toggle the button without a click.
    connect(bar.drawerButton(), &QToolButton::toggled, this, [this](bool isWanted) {
        if (isWanted != isDrawerOpen())
            toggleDrawer();
    });
}

void ZLChapterDocumentWindow::connectMenus()
{
    connect(m_recordingMenu, &ZLRecordingMenu::blankChapterRequested, this, &ZLChapterDocumentWindow::addBlankChapter);
    connect(m_recordingMenu, &ZLRecordingMenu::moveChaptersRequested, this,
        &ZLChapterDocumentWindow::showMoveChaptersDialog);
    connect(m_recordingMenu, &ZLRecordingMenu::editTitleRequested, &m_document, &ZLChapterDocument::editCurrentTitle);
    connect(m_recordingMenu, &ZLRecordingMenu::editLinkRequested, &m_document, &ZLChapterDocument::editCurrentLink);
    connect(m_viewMenu, &ZLViewMenu::absoluteTimeRequested, this, [this] {
        // A time that is being typed belongs to the kind of time that is still shown.
        commitTypedText();
        m_document.showAbsoluteTimePressed();
    });
    connect(m_viewMenu, &ZLViewMenu::messagesRequested, m_ui->messageBar, &ZLMessageBar::goToMessages);
    connect(m_viewMenu, &ZLViewMenu::drawerRequested, this, [this] {
        if (isDrawerOpen())
            toggleDrawer();
        else
            openDrawerWithFocus();
    });
    new ZLChapterContextMenu(m_document, *m_ui->tableView,
        { m_recordingMenu->editTitleItem(), m_recordingMenu->editLinkItem(), m_editMenu->deleteItem() });
    for (int tag = 1; QAction* action = m_recordingMenu->actionWithTag(tag); ++tag)
        connect(action, &QAction::changed, this, &ZLChapterDocumentWindow::updateToolTips);
}

void ZLChapterDocumentWindow::connectStatusLine()
{
    connect(m_ui->statusLine, &ZLStatusLine::nextTemplateClicked, this, &ZLChapterDocumentWindow::openDrawerWithFocus);
    connect(m_ui->messageBar, &ZLMessageBar::keyboardReturned, this, &ZLChapterDocumentWindow::returnFocusToTable);
    connect(m_ui->tableView, &ZLChapterTableView::timeFormDidChange, m_ui->statusLine, &ZLStatusLine::setHint);
    new ZLImportNews(m_document.templateViewController(), *m_ui->statusLine, this);
    connect(m_ui->tableView, &ZLChapterTableView::linkActivated, this, &QDesktopServices::openUrl);
    const QAbstractItemModel& templates = m_document.templateViewController().tableModel();
    for (const auto signal : { &QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved })
        connect(&templates, signal, this, &ZLChapterDocumentWindow::updateNextTemplate);
    connect(&templates, &QAbstractItemModel::modelReset, this, &ZLChapterDocumentWindow::updateNextTemplate);
    connect(&templates, &QAbstractItemModel::dataChanged, this, &ZLChapterDocumentWindow::updateNextTemplate);
    updateNextTemplate();
}

void ZLChapterDocumentWindow::restoreWindowState()
{
    const auto state = m_stateStore.load();
    if (!state)
        return;
    restoreGeometry(state->geometry);
    restoreState(state->panels);
    m_ui->tableView->columnLayout()->setTitleShare(state->titleShare);
}

void ZLChapterDocumentWindow::validate()
{
    const QWidget* focused = focusWidget();
    toolbar().setTagEnabled(ZLDocumentToolbar::AddTag, m_document.canAddChapter());
    toolbar().setTagEnabled(ZLDocumentToolbar::DeleteTag, m_document.canDeleteChapter());
    // A button that goes out of service hands the keyboard to the table.
    if (focused && !focused->isEnabled())
        m_ui->tableView->setFocus();
    m_recordingMenu->validate();
    updateClock();
}

void ZLChapterDocumentWindow::showChange(const ZLDocumentChange& change)
{
    using Change = ZLDocumentChange;
    if (change.concerns(Change::Recording))
        updateRecordingState();
    else if (change.concerns(Change::Rows | Change::Times | Change::Reading | Change::Contents))
        updateClock();
    if (change.concerns(Change::Templates | Change::TemplateTexts | Change::AddButton))
        updateAddButton();
}

void ZLChapterDocumentWindow::updateClock()
{
    toolbar().setClock(m_document.clockText(), m_document.lastChapterAgeText());
}

void ZLChapterDocumentWindow::updateRecordingState()
{
    const QString waitingText = tr("The recording starts after the beep.");
    const bool isRecording = m_document.isRecording();
    const QString shownText = m_ui->statusLine->passingMessage();
    toolbar().setRecordFace(isRecording ? ZLDocumentToolbar::RecordFace::Pause : ZLDocumentToolbar::RecordFace::Start);
    if (m_document.isWaitingForBeep())
        m_ui->statusLine->showPassingMessage(waitingText);
    else if (shownText == waitingText || (!isRecording && shownText == reasonToStayOpen()))
        m_ui->statusLine->hidePassingMessage();
    validate();
    updateToolTips();
    updateTitle();
}

void ZLChapterDocumentWindow::updateAddButton()
{
    toolbar().setAddFace(m_document.addButtonFace());
    updateNextTemplate();
}

void ZLChapterDocumentWindow::updateNextTemplate()
{
    const ZLChapterPointer next = m_document.templateViewController().chapterManager().chapterAtIndex(0);
    const bool isTaken = next && m_document.addButtonFace() == ZLAddButtonFace::Next;
    const QString title = isTaken && next->title().isEmpty() ? tr("untitled") : isTaken ? next->title() : QString();
    toolbar().setNextTitle(title);
    if (next)
        m_ui->statusLine->setNextTemplate(ZLStatusLine::NextTemplate::Exists, next->title());
    else
        m_ui->statusLine->setNextTemplate(ZLStatusLine::NextTemplate::Missing);
}

void ZLChapterDocumentWindow::updateTitle()
{
    QString name = m_document.displayName();
    // Two of these placeholders stand for their own text.
    name.replace("[*]"_L1, "[*][*]"_L1);
    // In front, since a list of windows has room for the beginning only.
    if (m_document.isRecording())
        name = tr("Recording: %1").arg(name);
    setWindowTitle(u"%1[*] — Zelta"_s.arg(name));
    setWindowModified(m_document.isDocumentEdited());
}

void ZLChapterDocumentWindow::updateToolTips()
{
    const auto help = [this](QToolButton* button, const QString& text, const QString& action) {
        button->setToolTip(ZLActionHelp::textWithKey(text, *m_recordingMenu->itemOf(action)));
    };
    const ZLDocumentToolbar& bar = toolbar();
    help(bar.recordButton(), recordHelp(), ZLControllerToggleRecordingAction);
    help(bar.addButton(), tr("Add a chapter now. Hold Alt for a blank one."), ZLControllerNewChapterAction);
    help(bar.deleteButton(), tr("Delete the selected chapter"), ZLControllerDeleteSelectedChapterAction);
    bar.drawerButton()->setToolTip(
        ZLActionHelp::textWithKey(tr("Show or hide the templates"), *m_viewMenu->drawerItem()));
}

QString ZLChapterDocumentWindow::recordHelp() const
{
    if (m_document.isRecording())
        return tr("Pause the recording");
    if (m_document.duration() > 0.0)
        return tr("Continue the recording: the clock goes on from where it stands");
    return tr("Start the recording");
}

void ZLChapterDocumentWindow::updateDrawerItems()
{
    toolbar().drawerButton()->setChecked(isDrawerOpen());
    m_viewMenu->drawerItem()->setChecked(isDrawerOpen());
}

void ZLChapterDocumentWindow::openDrawerWithFocus()
{
    if (!isDrawerOpen())
        toggleDrawer();
    if (auto* list = m_ui->templateDrawer->findChild<QAbstractItemView*>())
        list->setFocus();
}

void ZLChapterDocumentWindow::drawerDidToggle()
{
    updateDrawerItems();
    if (!isDrawerOpen())
        returnFocusToTable();
}

void ZLChapterDocumentWindow::addBlankChapter()
{
    commitTypedText();
    if (m_document.canAddChapter())
        m_document.addNewBlankChapter();
}

void ZLChapterDocumentWindow::addEditItems()
{
    const auto* items = new ZLChapterEditItems(*m_editMenu->menu(), m_document, *this);
    connect(items, &ZLChapterEditItems::typedTextShouldBeCommitted, this, &ZLChapterDocumentWindow::commitTypedText);
    connect(items, &ZLChapterEditItems::dialogDidClose, this, &ZLChapterDocumentWindow::returnFocusToTable);
    connect(items, &ZLChapterEditItems::hasNews, m_ui->statusLine,
        [this](const QString& text) { m_ui->statusLine->showPassingMessage(text); });
}

void ZLChapterDocumentWindow::showInvalidTimestampAlert(const ZLChapterPointer& chapter, const QString& text)
{
    if (findChild<QMessageBox*>(invalidTimestampAlertName))
        return;
    auto* alert =
        new QMessageBox(QMessageBox::Warning, tr("Zelta"), tr("Invalid Timestamp"), QMessageBox::NoButton, this);
    alert->setObjectName(invalidTimestampAlertName);
    alert->setInformativeText(tr("The timestamp you have entered is not valid!"));
    alert->addButton(tr("OK"), QMessageBox::AcceptRole);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    connect(alert, &QDialog::finished, this, [this, chapter, text] {
        const auto row = m_document.chapterManager().indexOfChapter(chapter);
        if (row)
            m_ui->tableView->beginEditingAgain(
                m_document.tableModel().index(int(*row), ZLChapterTableModel::TimeColumn), text);
        else
            returnFocusToTable();
    });
    // Not exec(): the recording goes on, and so does everything that a remote control asks for.
    alert->open();
}

void ZLChapterDocumentWindow::showMoveChaptersDialog()
{
    commitTypedText();
    auto* dialog = new ZLMoveChaptersDialog(this);
    connect(
        dialog, &QDialog::accepted, this, [this, dialog] { m_document.moveChaptersByMilliseconds(dialog->offset()); });
    connect(dialog, &QDialog::finished, this, &ZLChapterDocumentWindow::returnFocusToTable);
    dialog->open();
}

void ZLChapterDocumentWindow::returnFocusToTable()
{
    if (!m_ui->tableView->isEditing())
        m_ui->tableView->setFocus();
}
