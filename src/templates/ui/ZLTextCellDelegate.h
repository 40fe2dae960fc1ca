#pragma once

#include <QStyledItemDelegate>

/// Edits texts in the cells of a table. An editor that is closed as it was opened stores nothing, so that looking at a
/// cell never overwrites what changed behind the editor.
class ZLTextCellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
};
