#include "remote/ui/ZLOSCLogView.h"

#include "remote/ZLOSCLog.h"
#include "templates/ui/ZLQuietColor.h"
#include "templates/ui/ZLSelectionDelegate.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int logRowMargin = 4;

}

ZLOSCLogView::ZLOSCLogView(QWidget* parent)
    : QTableView(parent)
{
    setItemDelegate(new ZLSelectionDelegate(this));
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setVerticalScrollMode(ScrollPerItem);
    // Rows of one height are not measured, however many come.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setStretchLastSection(true);
}

void ZLOSCLogView::setModel(QAbstractItemModel* model)
{
    QTableView::setModel(model);
    if (!model)
        return;
    connect(model, &QAbstractItemModel::rowsAboutToBeInserted, this, &ZLOSCLogView::notePosition);
    connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, &ZLOSCLogView::notePosition);
    updateSizes();
}

void ZLOSCLogView::setPlaceholder(const QString& text)
{
    m_placeholder = text;
    setAccessibleDescription(text);
    viewport()->update();
}

void ZLOSCLogView::copy() const
{
    QList<int> rows;
    const QModelIndexList selected = selectionModel()->selectedRows();
    for (const QModelIndex& index : selected)
        rows.append(index.row());
    for (int row = 0; selected.isEmpty() && row < model()->rowCount(); ++row)
        rows.append(row);
    std::ranges::sort(rows);
    QString text;
    for (const int row : std::as_const(rows)) {
        QStringList cells;
        for (int column = 0; column < model()->columnCount(); ++column)
            cells.append(model()->index(row, column).data().toString());
        text += cells.join(u'\t') + u'\n';
    }
    QApplication::clipboard()->setText(text);
}

void ZLOSCLogView::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (!model() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(ZLQuietColor::onBase(palette()));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_placeholder);
}

void ZLOSCLogView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        copy();
    else
        QTableView::keyPressEvent(event);
}

void ZLOSCLogView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateSizes();
}

void ZLOSCLogView::notePosition()
{
    if (m_isPositionNoted)
        return;
    executeDelayedItemsLayout();
    m_isPositionNoted = true;
    m_followsEnd = verticalScrollBar()->value() == verticalScrollBar()->maximum();
    m_firstVisible = indexAt({ 0, 0 });
    // All changes of one moment come before, and are scrolled and painted once.
    QTimer::singleShot(0, this, &ZLOSCLogView::restorePosition);
}

void ZLOSCLogView::restorePosition()
{
    m_isPositionNoted = false;
    executeDelayedItemsLayout();
    updateGeometries();
    if (m_followsEnd)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    else
        verticalScrollBar()->setValue(m_firstVisible.isValid() ? m_firstVisible.row() : 0);
}

void ZLOSCLogView::updateSizes()
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + logRowMargin);
    const auto setWidth = [this](int column, const QString& widest) {
        constexpr int margin = 16;
        setColumnWidth(column, fontMetrics().horizontalAdvance(widest) + margin);
    };
    setWidth(ZLOSCLog::TimeColumn, u"00:00:00.000"_s);
    setWidth(ZLOSCLog::DirectionColumn, tr("Direction"));
    setWidth(ZLOSCLog::PeerColumn, u"192.168.100.100:65535"_s);
    setWidth(ZLOSCLog::AddressColumn, u"/zl/removeSelectedChapter"_s);
    setWidth(ZLOSCLog::ValueColumn, u"\"Interview with Ada\""_s);
}
