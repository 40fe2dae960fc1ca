#include "document/ui/ZLChapterTableHeader.h"

#include "document/ZLChapterTableModel.h"

#include <QStyleOptionHeader>

ZLChapterTableHeader::ZLChapterTableHeader(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setHighlightSections(false);
    setSectionsClickable(false);
}

void ZLChapterTableHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const
{
    QHeaderView::initStyleOptionForIndex(option, logicalIndex);
    switch (logicalIndex) {
    case ZLChapterTableModel::NumberColumn:
    case ZLChapterTableModel::TimeColumn:
    case ZLChapterTableModel::DurationColumn:
        option->textAlignment = Qt::AlignRight | Qt::AlignVCenter;
        break;
    default:
        option->textAlignment = Qt::AlignLeft | Qt::AlignVCenter;
        break;
    }
}
