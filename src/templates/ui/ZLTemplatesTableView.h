#pragma once

#include <QTableView>

/// The table of a drawer: it says something while it is empty, never lets go of its selected row, and gives the first
/// of its two columns two thirds of the width. Rows are dropped between rows; the middle of a row takes none.
class ZLTemplatesTableView : public QTableView {
    Q_OBJECT

public:
    explicit ZLTemplatesTableView(QWidget* parent = nullptr);

    /// Shown in the middle of a table without rows.
    void setEmptyText(const QString& text);
    [[nodiscard]] const QString& emptyText() const { return m_emptyText; }
    /// Whether one of the cells is open for typing.
    [[nodiscard]] bool isEditing() const { return state() == EditingState; }

Q_SIGNALS:
    /// Return was pressed while no cell is open.
    void returnPressed();
    /// Return or Escape closed the cell, which keeps what it holds now.
    void returnPressedInCell(const QModelIndex& index);
    void escapePressedInCell(const QModelIndex& index);

protected:
    bool event(QEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;

private:
    /// Whether a drop at this place of the viewport would be one onto a row and not between two.
    [[nodiscard]] bool isOntoRow(const QPointF& place) const;
    /// The action of this table that `event` stands for, or null.
    [[nodiscard]] QAction* actionForKey(const QKeyEvent& event) const;
    /// The cell that `editor` edits, also while rows are moving.
    [[nodiscard]] QModelIndex cellOf(const QWidget& editor) const;
    void fitRowHeight();

    QString m_emptyText;
};
