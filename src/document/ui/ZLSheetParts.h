#pragma once

#include <QPushButton>
#include <QScrollArea>
#include <QTreeView>

/// What the sheets in a document's window are made of, alike in all of them.
namespace ZLSheetParts {

/// Return presses the button that has the keyboard, as in a dialog.
[[nodiscard]] QPushButton* button(const QString& objectName, QWidget* parent);

/// A list of rows that are selected whole and not edited; Tab leaves it.
[[nodiscard]] QTreeView* list(
    const QString& objectName, const QString& accessibleName, QAbstractItemModel* model, QWidget* parent);

/// Takes `body` in: in a small window it scrolls, and the table below keeps its room.
[[nodiscard]] QScrollArea* scrolling(QWidget* body, QWidget* parent);

}
