#include "templates/ui/ZLTextCellDelegate.h"

#include <QLineEdit>

void ZLTextCellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* field = qobject_cast<QLineEdit*>(editor);
    const QString text = index.data(Qt::EditRole).toString();
    if (field && !field->isModified() && field->text() != text)
        field->setText(text);
}

void ZLTextCellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    auto* field = qobject_cast<QLineEdit*>(editor);
    if (!field || !field->isModified())
        return;
    // First, because the change may come back and ask for a commit once more.
    field->setModified(false);
    model->setData(index, field->text(), Qt::EditRole);
}
