#pragma once

#include "templates/ui/ZLSelectionDelegate.h"

class QLineEdit;

/// Edits texts of any length in the cells of a table. Text that was not typed is never written, so that looking leaves
/// no undo step, and text that is being typed is never replaced by what the model says meanwhile. Return commits at
/// once. A field that has nothing to undo or redo leaves the key to the window.
class ZLTextCellDelegate : public ZLSelectionDelegate {
    Q_OBJECT

public:
    using ZLSelectionDelegate::ZLSelectionDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

protected:
    /// A field cuts what is longer than it may be, also what it only shows.
    static void takeAnyLength(QLineEdit& field);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool filterKey(QLineEdit* field, QEvent* event);
};
