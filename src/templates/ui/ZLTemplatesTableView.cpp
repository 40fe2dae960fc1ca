#include "templates/ui/ZLTemplatesTableView.h"

#include "templates/ui/ZLListKeys.h"
#include "templates/ui/ZLQuietColor.h"
#include "templates/ui/ZLRowHeight.h"

#include <QAction>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace {

/// How much of a row's height belongs to the gap above it, and as much to the one below.
constexpr double shareOfGap = 0.25;

}

ZLTemplatesTableView::ZLTemplatesTableView(QWidget* parent)
    : QTableView(parent)
{
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    fitRowHeight();
}

void ZLTemplatesTableView::setEmptyText(const QString& text)
{
    m_emptyText = text;
    viewport()->update();
}

bool ZLTemplatesTableView::event(QEvent* event)
{
    // While the focus is here, this table's keys go before the window's, which may use the same ones.
    if (event->type() == QEvent::ShortcutOverride && actionForKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

void ZLTemplatesTableView::dragMoveEvent(QDragMoveEvent* event)
{
    const bool isRefused = isOntoRow(event->position());
    // Without it the line between two rows would promise a drop.
    setDropIndicatorShown(!isRefused);
    QTableView::dragMoveEvent(event);
    if (isRefused)
        event->ignore();
}

void ZLTemplatesTableView::dropEvent(QDropEvent* event)
{
    setDropIndicatorShown(true);
    if (!isOntoRow(event->position())) {
        QTableView::dropEvent(event);
        return;
    }
    event->ignore();
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
}

void ZLTemplatesTableView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const QPersistentModelIndex cell = cellOf(*editor);
    const bool goesBeyond = hint == QAbstractItemDelegate::EditNextItem && cell.row() + 1 == model()->rowCount()
        && cell.column() + 1 == model()->columnCount();
    // From the last cell the table would go on at the first one.
    QTableView::closeEditor(editor, goesBeyond ? QAbstractItemDelegate::NoHint : hint);
    if (hint == QAbstractItemDelegate::SubmitModelCache)
        Q_EMIT returnPressedInCell(cell);
    else if (hint == QAbstractItemDelegate::RevertModelCache)
        Q_EMIT escapePressedInCell(cell);
}

void ZLTemplatesTableView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitRowHeight();
}

void ZLTemplatesTableView::keyPressEvent(QKeyEvent* event)
{
    if (QAction* action = actionForKey(*event))
        action->trigger();
    else if (ZLListKeys::isReturn(*event) && !isEditing())
        Q_EMIT returnPressed();
    else if (!ZLListKeys::goToEnd(*this, *event))
        QTableView::keyPressEvent(event);
}

void ZLTemplatesTableView::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (!model() || model()->rowCount() > 0)
        return;
    const int margin = style()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, this);
    QPainter painter(viewport());
    painter.setPen(ZLQuietColor::onBase(palette()));
    painter.drawText(viewport()->rect().marginsRemoved({ margin, margin, margin, margin }),
        Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
}

void ZLTemplatesTableView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    const int titleWidth = viewport()->width() * 2 / 3;
    setColumnWidth(0, titleWidth);
    setColumnWidth(1, viewport()->width() - titleWidth);
}

QItemSelectionModel::SelectionFlags ZLTemplatesTableView::selectionCommand(
    const QModelIndex& index, const QEvent* event) const
{
    const auto command = QTableView::selectionCommand(index, event);
    const bool selectsSomething = index.isValid() && command.testFlag(QItemSelectionModel::Select);
    return selectsSomething ? command : QItemSelectionModel::NoUpdate;
}

QAction* ZLTemplatesTableView::actionForKey(const QKeyEvent& event) const
{
    // The arrows of a number pad are arrows too.
    const QKeySequence keys(QKeyCombination(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key())));
    const auto own = actions();
    const auto found =
        std::find_if(own.cbegin(), own.cend(), [&keys](const QAction* action) { return action->shortcut() == keys; });
    return found == own.cend() ? nullptr : *found;
}

bool ZLTemplatesTableView::isOntoRow(const QPointF& place) const
{
    const QModelIndex index = indexAt(place.toPoint());
    if (!index.isValid())
        return false;
    const QRect row = visualRect(index);
    const double fromTop = place.y() - row.top();
    return fromTop >= shareOfGap * row.height() && fromTop < (1.0 - shareOfGap) * row.height();
}

QModelIndex ZLTemplatesTableView::cellOf(const QWidget& editor) const
{
    const int columns = model()->columnCount();
    const int cells = model()->rowCount() * columns;
    for (int cell = 0; cell < cells; ++cell) {
        const QModelIndex index = model()->index(cell / columns, cell % columns);
        if (indexWidget(index) == &editor)
            return index;
    }
    return {};
}

void ZLTemplatesTableView::fitRowHeight()
{
    // The style may ask for more, which would make these rows higher than those of the chapters.
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(ZLRowHeight::forFontOf(*this));
}
