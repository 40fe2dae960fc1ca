#include "templates/ui/ZLTemplatesDrawer.h"

#include "templates/ui/ZLTemplateCellDelegate.h"
#include "templates/ui/ZLTextDrop.h"
#include "ui_ZLTemplatesViewController.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QStyle>

ZLTemplatesDrawer::ZLTemplatesDrawer(ZLTemplatesViewController& controller, QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::ZLTemplatesDrawer>())
    , m_controller(controller)
{
    m_ui->setupUi(this);
    setFocusProxy(m_ui->tableView);
    showTemplates();
    connectButtons();
    connectActions();
    connect(new ZLTextDrop(*this), &ZLTextDrop::textDropped, this, &ZLTemplatesDrawer::importText);
    updateEmptyState();
}

ZLTemplatesDrawer::~ZLTemplatesDrawer() = default;

void ZLTemplatesDrawer::showTemplates()
{
    ZLTemplatesTableModel& model = m_controller.tableModel();
    m_ui->tableView->setModel(&model);
    const std::unique_ptr<QItemSelectionModel> madeByView(m_ui->tableView->selectionModel());
    m_ui->tableView->setSelectionModel(&m_controller.selectionModel());
    auto* delegate = new ZLTemplateCellDelegate(this);
    connect(delegate, &ZLTemplateCellDelegate::linesPasted, &m_controller,
        [this](const QModelIndex& title, const QString& lines) { m_controller.takePastedLines(title.row(), lines); });
    m_ui->tableView->setItemDelegate(delegate);
    m_ui->tableView->setEmptyText(tr("Prepare topics here, or import an outline from the clipboard."));
    connect(&model, &QAbstractItemModel::rowsInserted, this, &ZLTemplatesDrawer::updateEmptyState);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &ZLTemplatesDrawer::updateEmptyState);
    connect(&model, &QAbstractItemModel::modelReset, this, &ZLTemplatesDrawer::updateEmptyState);
    connect(&m_controller, &ZLTemplatesViewController::wantsEditing, this, &ZLTemplatesDrawer::editCell);
}

void ZLTemplatesDrawer::connectButtons()
{
    connect(m_ui->addButton, &QToolButton::clicked, &m_controller, &ZLTemplatesViewController::addChapterButtonPressed);
    connect(m_ui->removeButton, &QToolButton::clicked, &m_controller,
        &ZLTemplatesViewController::removeChapterButtonPressed);
    auto* menu = new QMenu(m_ui->importButton);
    menu->addAction(tr("Import from Clipboard"), this, &ZLTemplatesDrawer::importFromClipboard);
    m_ui->importButton->setMenu(menu);
    // Styles draw the arrow over a text that leaves no room for it.
    m_ui->importButton->setMinimumWidth(m_ui->importButton->sizeHint().width()
        + style()->pixelMetric(QStyle::PM_MenuButtonIndicator, nullptr, m_ui->importButton));
}

void ZLTemplatesDrawer::connectActions()
{
    connect(
        m_ui->removeAction, &QAction::triggered, &m_controller, &ZLTemplatesViewController::removeChapterButtonPressed);
    connect(
        m_ui->editTitleAction, &QAction::triggered, this, [this] { editSelected(ZLTemplatesTableModel::TitleColumn); });
    connect(
        m_ui->editLinkAction, &QAction::triggered, this, [this] { editSelected(ZLTemplatesTableModel::LinkColumn); });
    connect(m_ui->tableView, &ZLTemplatesTableView::returnPressed, this, &ZLTemplatesDrawer::openOrAdd);
    connect(m_ui->tableView, &ZLTemplatesTableView::returnPressedInCell, &m_controller,
        [this](const QModelIndex& cell) { m_controller.returnPressedInRow(cell.row()); });
    connect(m_ui->tableView, &ZLTemplatesTableView::escapePressedInCell, &m_controller,
        [this](const QModelIndex& cell) { m_controller.escapePressedInRow(cell.row()); });
    connect(m_ui->moveUpAction, &QAction::triggered, this, &ZLTemplatesDrawer::moveSelectedTemplateUp);
    connect(m_ui->moveDownAction, &QAction::triggered, this, &ZLTemplatesDrawer::moveSelectedTemplateDown);
}

void ZLTemplatesDrawer::updateEmptyState()
{
    const bool isEmpty = m_controller.tableModel().rowCount() == 0;
    // A button that is switched off passes the focus on to nowhere in particular.
    if (isEmpty && m_ui->removeButton->hasFocus())
        m_ui->addButton->setFocus();
    m_ui->removeButton->setEnabled(!isEmpty);
    const QList<QAction*> actions = m_ui->tableView->actions();
    for (QAction* action : actions)
        action->setEnabled(!isEmpty);
    m_ui->tableView->setAccessibleDescription(isEmpty ? m_ui->tableView->emptyText() : QString());
}

void ZLTemplatesDrawer::editCell(const QModelIndex& index)
{
    m_ui->tableView->setFocus();
    m_ui->tableView->edit(index);
}

void ZLTemplatesDrawer::importFromClipboard()
{
    importText(QGuiApplication::clipboard()->text());
}

void ZLTemplatesDrawer::importText(const QString& text)
{
    m_controller.importFromPasteboard(text.isEmpty() ? QStringList() : QStringList(text));
}

void ZLTemplatesDrawer::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Paste) && !m_ui->tableView->isEditing())
        importFromClipboard();
    else
        QWidget::keyPressEvent(event);
}

void ZLTemplatesDrawer::editSelected(int column)
{
    const QModelIndex cell = m_controller.tableModel().index(int(m_controller.selectedRow()), column);
    if (cell.isValid())
        editCell(cell);
}

void ZLTemplatesDrawer::openOrAdd()
{
    if (m_controller.selectedRow() < 0)
        m_controller.addChapterButtonPressed();
    else
        editSelected(m_ui->tableView->currentIndex().column());
}

void ZLTemplatesDrawer::moveSelectedTemplateUp()
{
    const qsizetype row = m_controller.selectedRow();
    if (row > 0)
        m_controller.moveTemplate(row, row - 1);
}

void ZLTemplatesDrawer::moveSelectedTemplateDown()
{
    const qsizetype row = m_controller.selectedRow();
    if (row >= 0 && row + 1 < m_controller.chapterManager().count())
        m_controller.moveTemplate(row, row + 2);
}
