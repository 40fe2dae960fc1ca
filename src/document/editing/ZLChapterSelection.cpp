#include "document/editing/ZLChapterSelection.h"

ZLChapterSelection::ZLChapterSelection(QAbstractItemModel& rows)
    : m_rows(rows)
    , m_model(&rows)
{
}

int ZLChapterSelection::row() const
{
    const QModelIndexList rows = m_model.selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void ZLChapterSelection::selectRow(int row)
{
    m_model.setCurrentIndex(m_rows.index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ZLChapterSelection::selectSomeRow()
{
    if (row() < 0 && m_rows.rowCount() > 0)
        selectRow(0);
}

void ZLChapterSelection::selectLastChapter()
{
    if (row() >= 1)
        selectRow(row() - 1);
}

void ZLChapterSelection::selectNextChapter()
{
    if (row() + 1 < m_rows.rowCount())
        selectRow(row() + 1);
}
