#include "document/ui/table/ZLChapterTableHeader.h"

#include "document/editing/ZLChapterTableModel.h"

#include <QStyleOptionHeader>

ZLChapterTableHeader::ZLChapterTableHeader(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setHighlightSections(false);
    setSectionsClickable(false);
}

Qt::Alignment ZLChapterTableHeader::alignmentOf(int column)
{
    switch (column) {
    case ZLChapterTableModel::NumberColumn:
    case ZLChapterTableModel::TimeColumn:
        return Qt::AlignRight | Qt::AlignVCenter;
    case ZLChapterTableModel::EnabledColumn:
    case ZLChapterTableModel::DurationColumn:
        // All of one width; centred they keep away from the title beside them.
        return Qt::AlignCenter;
    default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

void ZLChapterTableHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const
{
    QHeaderView::initStyleOptionForIndex(option, logicalIndex);
    option->textAlignment = alignmentOf(logicalIndex);
}
