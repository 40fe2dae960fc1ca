#pragma once

#include <QStyledItemDelegate>

/// Paints the selection of a list so that two lists beside each other tell which one has the keyboard: only that one
/// has the strong selection.
class ZLSelectionDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
