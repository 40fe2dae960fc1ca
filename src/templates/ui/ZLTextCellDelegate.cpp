#include "templates/ui/ZLTextCellDelegate.h"

#include "templates/ui/ZLListKeys.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <limits>

namespace {

/// Whether the key means an undo or redo of which the field has none left.
bool isUndoBeyond(const QLineEdit& field, const QKeyEvent& event)
{
    return (event.matches(QKeySequence::Undo) && !field.isUndoAvailable())
        || (event.matches(QKeySequence::Redo) && !field.isRedoAvailable());
}

}

QWidget* ZLTextCellDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto* field = qobject_cast<QLineEdit*>(editor))
        takeAnyLength(*field);
    // What is dropped is for the list.
    if (editor)
        editor->setAcceptDrops(false);
    return editor;
}

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

void ZLTextCellDelegate::takeAnyLength(QLineEdit& field)
{
    field.setMaxLength(std::numeric_limits<int>::max());
}

bool ZLTextCellDelegate::eventFilter(QObject* watched, QEvent* event)
{
    auto* field = qobject_cast<QLineEdit*>(watched);
    if (field && filterKey(field, event))
        return true;
    return QStyledItemDelegate::eventFilter(watched, event);
}

bool ZLTextCellDelegate::filterKey(QLineEdit* field, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && isUndoBeyond(*field, *static_cast<QKeyEvent*>(event))) {
        // The field would swallow the key; the menu has a use for it.
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::KeyPress || !ZLListKeys::isReturn(*static_cast<QKeyEvent*>(event)))
        return false;
    Q_EMIT commitData(field);
    Q_EMIT closeEditor(field, SubmitModelCache);
    return true;
}
