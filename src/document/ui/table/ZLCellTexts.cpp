#include "document/ui/table/ZLCellTexts.h"

#include <QPainter>
#include <QStyleOptionViewItem>
#include <QWidget>

#include <memory>

namespace {

/// More than a table shows at once on a large screen.
constexpr int keptCellTexts = 1000;

QColor cellTextColor(const QStyleOptionViewItem& cell)
{
    const QPalette::ColorGroup ofActiveWindow =
        cell.state & QStyle::State_Active ? QPalette::Normal : QPalette::Inactive;
    const QPalette::ColorGroup group = cell.state & QStyle::State_Enabled ? ofActiveWindow : QPalette::Disabled;
    const bool isSelected = cell.state & QStyle::State_Selected;
    return cell.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
}

/// Where the style would put the text, without the margin beside it.
QRect cellTextRect(const QStyleOptionViewItem& cell)
{
    const QStyle& style = *cell.widget->style();
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, cell.widget) + 1;
    return style.subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget).adjusted(margin, 0, -margin, 0);
}

void layOutLine(QTextLayout& layout, int width)
{
    layout.setCacheEnabled(true);
    layout.beginLayout();
    layout.createLine().setLineWidth(width);
    layout.endLayout();
}

}

size_t qHash(const ZLCellTexts::Key& key, size_t seed)
{
    return qHashMulti(seed, key.text, key.width, key.alignment.toInt(), key.direction, key.elideMode);
}

ZLCellTexts::ZLCellTexts()
    : m_layouts(keptCellTexts)
{
}

bool ZLCellTexts::canDraw(const QStyleOptionViewItem& cell)
{
    // Where the decoration is not part of the selection, the place of a text depends on its size.
    const bool fillsCell = cell.showDecorationSelected && !(cell.features & QStyleOptionViewItem::WrapText);
    // The style frames a text that is edited, and paints the focus over the text.
    const bool isPlain = !(cell.state & (QStyle::State_Editing | QStyle::State_HasFocus));
    return fillsCell && isPlain && !cell.text.contains(QChar::LineSeparator);
}

void ZLCellTexts::draw(QPainter& painter, const QStyleOptionViewItem& cell, const QString& text)
{
    const QRect rect = cellTextRect(cell);
    const QTextLayout& layout = layoutFor(cell, text, rect.width());
    const QSize size(rect.width(), int(layout.lineAt(0).height()));
    const QRect line = QStyle::alignedRect(cell.direction, cell.displayAlignment, size, rect);
    painter.save();
    painter.setClipRect(cell.rect);
    painter.setPen(cellTextColor(cell));
    layout.draw(&painter, QPointF(rect.x(), line.y()));
    painter.restore();
}

const QTextLayout& ZLCellTexts::layoutFor(const QStyleOptionViewItem& cell, const QString& text, int width)
{
    if (m_font != cell.font) {
        m_layouts.clear();
        m_font = cell.font;
    }
    const Key key { text, width, QStyle::visualAlignment(cell.direction, cell.displayAlignment), cell.direction,
        cell.textElideMode };
    if (const QTextLayout* known = m_layouts.object(key))
        return *known;
    const QString visible = cell.fontMetrics.elidedText(text, cell.textElideMode, width);
    auto layout = std::make_unique<QTextLayout>(visible, cell.font);
    QTextOption option(key.alignment);
    option.setTextDirection(cell.direction);
    option.setWrapMode(QTextOption::ManualWrap);
    layout->setTextOption(option);
    layOutLine(*layout, width);
    QTextLayout* kept = layout.get();
    m_layouts.insert(key, layout.release());
    return *kept;
}
