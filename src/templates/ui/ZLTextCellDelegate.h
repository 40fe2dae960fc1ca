#pragma once

#include <QStyledItemDelegate>

/// Edits texts in the cells of a table. Text that nobody typed is never written, so that looking leaves no undo step,
/// and text that somebody is typing is never replaced by what the model says meanwhile.
class ZLTextCellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
};
