#pragma once

#include "templates/ui/ZLTextCellDelegate.h"

/// Edits the cells of the drawer. Several lines that are pasted into the field of a title are told, for a title is one
/// line; a line break at the end of a single one is left out.
class ZLTemplateCellDelegate final : public ZLTextCellDelegate {
    Q_OBJECT

public:
    using ZLTextCellDelegate::ZLTextCellDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

Q_SIGNALS:
    /// `lines` is all that the field of this title holds now. When this returns, the field shows the title.
    void linesPasted(const QModelIndex& title, const QString& lines) const;

private:
    void takeLines(QLineEdit& field, const QModelIndex& title, const QString& text) const;
};
