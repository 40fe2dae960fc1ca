#pragma once

#include <QFormLayout>
#include <QLabel>

/// Rows of a form that show a text, which a person may select and copy.
namespace ZLFormText {

/// Adds a row with this title. The text may come from another program, so it is shown as plain text.
inline QLabel* addRow(QFormLayout& form, const QString& objectName, const QString& title)
{
    auto* const label = new QLabel;
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    form.addRow(title, label);
    return label;
}

}
