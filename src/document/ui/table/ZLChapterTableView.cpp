#include "document/ui/table/ZLChapterTableView.h"

#include "document/ZLChapterDocument.h"
#include "document/editing/ZLTimeEntry.h"
#include "document/ui/table/ZLChapterCellDelegate.h"
#include "document/ui/table/ZLChapterColumnLayout.h"
#include "document/ui/table/ZLChapterTableHeader.h"
#include "settings/ZLSettingsManager.h"
#include "templates/ui/ZLListKeys.h"
#include "templates/ui/ZLQuietColor.h"
#include "templates/ui/ZLRowHeight.h"

#include <QApplication>
#include <QFontDatabase>
#include <QInputMethod>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPersistentModelIndex>
#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Sizes that a table can be read with; a damaged setting must not make the rows vanish.
constexpr double smallestFontPoints = 4.0;
constexpr double greatestFontPoints = 96.0;

double usableFontPoints(double setting)
{
    if (!(setting > 0.0))
        return QFontDatabase::systemFont(QFontDatabase::GeneralFont).pointSizeF();
    return std::clamp(setting, smallestFontPoints, greatestFontPoints);
}

QString emptyTableText()
{
    return ZLChapterTableView::tr("Press Start, then Add at every new topic.");
}

}

ZLChapterTableView::ZLChapterTableView(QWidget* parent)
    : QTableView(parent)
    , m_delegate(new ZLChapterCellDelegate(this))
{
    configure();
}

void ZLChapterTableView::configure()
{
    setAccessibleName(tr("Chapters"));
    setItemDelegate(m_delegate);
    setHorizontalHeader(new ZLChapterTableHeader(this));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(DoubleClicked);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setFrameShape(NoFrame);
    setHorizontalScrollMode(ScrollPerPixel);
    connect(m_delegate, &ZLChapterCellDelegate::fieldDidOpen, this, &ZLChapterTableView::showTimeForm);
    connect(m_delegate, &ZLChapterCellDelegate::fieldDidClose, this, [this] { Q_EMIT timeFormDidChange({}); });
}

void ZLChapterTableView::showDocument(ZLChapterDocument& document)
{
    m_document = &document;
    // Before there are rows, for a new height is set for each of them.
    setFontSize();
    connect(&document.typing(), &ZLTypingRequests::chapterIsAboutToGo, this, &ZLChapterTableView::dropTimeTypedInRow);
    setModel(&document.tableModel());
    const QItemSelectionModel* unused = selectionModel();
    setSelectionModel(&document.selectionModel());
    delete unused;
    connect(model(), &QAbstractItemModel::modelAboutToBeReset, this, &ZLChapterTableView::dropTypedText);
    connect(model(), &QAbstractItemModel::rowsInserted, this, &ZLChapterTableView::updateEmptyState);
    connect(model(), &QAbstractItemModel::rowsRemoved, this, &ZLChapterTableView::updateEmptyState);
    connect(model(), &QAbstractItemModel::modelReset, this, &ZLChapterTableView::updateEmptyState);
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLFontSizeSettingDidChange, this,
        &ZLChapterTableView::setFontSize);
    m_columnLayout = new ZLChapterColumnLayout(*this);
    updateEmptyState();
}

void ZLChapterTableView::beginEditing(const QModelIndex& index)
{
    // Committing a time may move the row.
    const QPersistentModelIndex wanted = index;
    commitTypedText();
    if (isEditing() && m_delegate->openIndex() == wanted) {
        m_delegate->openField()->setFocus(Qt::ShortcutFocusReason);
        m_delegate->openField()->selectAll();
        return;
    }
    finishEditing();
    if (!wanted.isValid())
        return;
    selectionModel()->setCurrentIndex(wanted, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(wanted);
    edit(wanted);
}

void ZLChapterTableView::beginEditingAgain(const QModelIndex& index, const QString& typedText)
{
    beginEditing(index);
    QLineEdit* field = m_delegate->openField();
    if (!field)
        return;
    field->setText(typedText);
    field->setModified(true);
    field->selectAll();
}

void ZLChapterTableView::commitTypedText()
{
    QLineEdit* field = m_delegate->openField();
    if (!field)
        return;
    // Half-composed characters count as typed.
    if (field->hasFocus())
        QGuiApplication::inputMethod()->commit();
    commitData(field);
}

void ZLChapterTableView::finishEditing()
{
    commitTypedText();
    if (QLineEdit* field = m_delegate->openField())
        closeEditor(field, QAbstractItemDelegate::NoHint);
}

bool ZLChapterTableView::isEditing() const
{
    return m_delegate->openIndex().isValid();
}

bool ZLChapterTableView::isEditingTime() const
{
    return isEditing() && m_delegate->openIndex().column() == ZLChapterTableModel::TimeColumn;
}

QLineEdit* ZLChapterTableView::openField() const
{
    return m_delegate->openField();
}

void ZLChapterTableView::setFontSize()
{
    QFont systemFont = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    systemFont.setPointSizeF(usableFontPoints(double(ZLSettingsManager::fontSize())));
    setFont(systemFont);
    verticalHeader()->setDefaultSectionSize(ZLRowHeight::forFontOf(*this));
    if (m_columnLayout)
        m_columnLayout->measureTexts();
}

QUrl ZLChapterTableView::addressOfLink(const QString& text)
{
    const QString trimmed = text.trimmed();
    const bool hasScheme = trimmed.contains("://"_L1) || trimmed.startsWith("mailto:"_L1, Qt::CaseInsensitive);
    QUrl address(hasScheme ? trimmed : "https://"_L1 + trimmed);
    static const QStringList openableSchemes { u"http"_s, u"https"_s, u"mailto"_s };
    const bool isMail = address.scheme() == "mailto"_L1;
    // A document may come from anywhere: its links must not start programs or open local files.
    if (trimmed.isEmpty() || !address.isValid() || !openableSchemes.contains(address.scheme())
        || (!isMail && address.host().isEmpty()))
        return {};
    return address;
}

void ZLChapterTableView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    const QScopedValueRollback keeping(m_isFieldKept, isEditingTime() && m_document->isCommandFromOutside());
    const bool scrolls = hasAutoScroll();
    // The row in which a person types stays where it is.
    setAutoScroll(scrolls && !m_isFieldKept);
    QTableView::currentChanged(current, previous);
    setAutoScroll(scrolls);
}

void ZLChapterTableView::commitData(QWidget* editor)
{
    if (!m_isFieldKept)
        QTableView::commitData(editor);
}

void ZLChapterTableView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    if (m_isFieldKept)
        return;
    const bool goesOn = hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
    const QModelIndex start = m_delegate->openIndex();
    QTableView::closeEditor(editor, goesOn ? QAbstractItemDelegate::NoHint : hint);
    if (!goesOn || !start.isValid())
        return;
    const QModelIndex next = textCellFrom(start, hint == QAbstractItemDelegate::EditNextItem ? 1 : -1);
    if (next.isValid())
        beginEditing(next);
}

QItemSelectionModel::SelectionFlags ZLChapterTableView::selectionCommand(
    const QModelIndex& index, const QEvent* event) const
{
    // One row is selected whenever there are rows: nothing the user does may empty the selection.
    if (!index.isValid())
        return QItemSelectionModel::NoUpdate;
    const auto command = QTableView::selectionCommand(index, event);
    const bool mayDeselect = command & (QItemSelectionModel::Deselect | QItemSelectionModel::Toggle);
    return mayDeselect ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows : command;
}

void ZLChapterTableView::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (!model() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(ZLQuietColor::onBase(palette()));
    const int margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin), Qt::AlignCenter | Qt::TextWordWrap,
        emptyTableText());
}

void ZLChapterTableView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    if (m_columnLayout)
        m_columnLayout->fillWidth();
}

void ZLChapterTableView::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool opensLink = event->button() == Qt::LeftButton && event->modifiers() == Qt::ControlModifier
        && index.column() == ZLChapterTableModel::LinkColumn;
    const QUrl address = opensLink ? addressOfLink(index.data(Qt::EditRole).toString()) : QUrl();
    QTableView::mousePressEvent(event);
    if (!address.isEmpty())
        Q_EMIT linkActivated(address);
}

void ZLChapterTableView::keyPressEvent(QKeyEvent* event)
{
    if (ZLListKeys::isReturn(*event) && !isEditing())
        editSelectedCell();
    else if (!ZLListKeys::goToEnd(*this, *event))
        QTableView::keyPressEvent(event);
}

void ZLChapterTableView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isMouse = event->reason() == QContextMenuEvent::Mouse;
    const QModelIndex cell = isMouse ? indexAt(event->pos()) : currentIndex();
    if (!cell.isValid())
        return;
    finishEditing();
    Q_EMIT contextMenuRequested(isMouse ? event->globalPos() : viewport()->mapToGlobal(visualRect(cell).bottomLeft()));
}

void ZLChapterTableView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (m_columnLayout && event->type() == QEvent::StyleChange)
        m_columnLayout->measureTexts();
}

void ZLChapterTableView::dropTypedText()
{
    QLineEdit* field = m_delegate->openField();
    if (!field)
        return;
    // Closing the field must not write into a chapter that is on its way out.
    field->setModified(false);
    closeEditor(field, QAbstractItemDelegate::NoHint);
}

void ZLChapterTableView::dropTimeTypedInRow(int row)
{
    if (!isEditingTime() || m_delegate->openIndex().row() != row)
        return;
    // A command of the window's own writes what is a time.
    if (m_document->isCommandFromOutside() || m_delegate->isTypingUnfinishedTime())
        dropTypedText();
}

void ZLChapterTableView::showTimeForm(int column)
{
    if (column != ZLChapterTableModel::TimeColumn)
        return;
    const QString form = ZLSettingsManager::showAbsoluteTime() ? ZLTimeEntry::dateForm() : ZLTimeEntry::form();
    m_delegate->openField()->setToolTip(form);
    Q_EMIT timeFormDidChange(form);
}

void ZLChapterTableView::editSelectedCell()
{
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return;
    const bool isEditable = current.flags() & Qt::ItemIsEditable;
    beginEditing(isEditable ? current : current.siblingAtColumn(ZLChapterTableModel::TitleColumn));
}

void ZLChapterTableView::updateEmptyState()
{
    setAccessibleDescription(model()->rowCount() > 0 ? QString() : emptyTableText());
    viewport()->update();
}

QModelIndex ZLChapterTableView::textCellFrom(const QModelIndex& start, int step) const
{
    const int columns = model()->columnCount();
    const int cells = model()->rowCount() * columns;
    for (int cell = start.row() * columns + start.column() + step; cell >= 0 && cell < cells; cell += step) {
        const QModelIndex index = model()->index(cell / columns, cell % columns);
        if (index.column() == ZLChapterTableModel::TitleColumn || index.column() == ZLChapterTableModel::LinkColumn)
            return index;
    }
    return {};
}
