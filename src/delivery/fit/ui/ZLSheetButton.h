#pragma once

#include <QPushButton>

/// A button of a sheet.
namespace ZLSheetButton {

[[nodiscard]] inline QPushButton* make(const QString& name, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(name);
    // Return presses the button that has the keyboard, as in a dialog.
    button->setAutoDefault(true);
    return button;
}

}
