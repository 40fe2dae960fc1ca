#include "templates/ui/ZLTemplateCellDelegate.h"

#include "templates/ZLTemplatesTableModel.h"

#include <QLineEdit>
#include <QPersistentModelIndex>

namespace {

/// With one sign for the end of a line, and none at the end.
QString linesIn(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (const QChar end : { QChar(u'\r'), QChar(QChar::ParagraphSeparator), QChar(QChar::LineSeparator) })
        text.replace(end, u'\n');
    while (text.endsWith(u'\n'))
        text.chop(1);
    return text;
}

}

QWidget* ZLTemplateCellDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QWidget* editor = ZLTextCellDelegate::createEditor(parent, option, index);
    auto* field = qobject_cast<QLineEdit*>(editor);
    if (field && index.column() == ZLTemplatesTableModel::TitleColumn)
        connect(field, &QLineEdit::textEdited, this,
            [this, field, title = QPersistentModelIndex(index)](
                const QString& text) { takeLines(*field, title, text); });
    return editor;
}

void ZLTemplateCellDelegate::takeLines(QLineEdit& field, const QModelIndex& title, const QString& text) const
{
    const QString lines = linesIn(text);
    if (lines.contains(u'\n')) {
        Q_EMIT linesPasted(title, lines);
        field.setText(title.data(Qt::EditRole).toString());
    } else if (lines != text) {
        field.setText(lines);
        field.setModified(true);
    }
}
