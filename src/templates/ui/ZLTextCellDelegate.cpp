#include "templates/ui/ZLTextCellDelegate.h"

#include <QLineEdit>

void ZLTextCellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const auto* lineEdit = qobject_cast<QLineEdit*>(editor);
    if (lineEdit && !lineEdit->isModified())
        return;
    QStyledItemDelegate::setModelData(editor, model, index);
}
