#pragma once

#include <QItemSelectionModel>

/// The selected chapter of a document: at most one row, and one whenever there are rows.
class ZLChapterSelection {
public:
    /// `rows` are the chapters as a table; they have to outlive the selection.
    explicit ZLChapterSelection(QAbstractItemModel& rows);

    [[nodiscard]] QItemSelectionModel& model() { return m_model; }
    [[nodiscard]] const QItemSelectionModel& model() const { return m_model; }
    /// -1 when there is none.
    [[nodiscard]] int row() const;

    void selectRow(int row);
    /// The first row, unless one is selected.
    void selectSomeRow();
    /// One row up, not beyond the first one.
    void selectLastChapter();
    void selectNextChapter();

private:
    QAbstractItemModel& m_rows;
    QItemSelectionModel m_model;
};
