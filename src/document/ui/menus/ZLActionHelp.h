#pragma once

#include <QKeySequence>

class QAction;
class QMenu;
class QString;

/// Commands in menus, and their help texts.
namespace ZLActionHelp {

/// "New Chapter (Ctrl+Return)": the text with the key of the action, when it has one.
[[nodiscard]] QString textWithKey(const QString& text, const QAction& action);

/// A title without its mnemonic and its ellipsis.
[[nodiscard]] QString plainTitle(const QString& title);
/// The plain title that addAction() was given. Some items change theirs: they name a step to undo, or the other state.
[[nodiscard]] QString firstTitle(const QAction& action);

/// Keeps the action's tool tip naming its key, also when title or key change.
void followKey(QAction& action);

/// Appends an item with the object name `name`, whose tool tip names its key. `key` may be empty.
QAction* addAction(QMenu& menu, const QString& name, const QString& title, const QKeySequence& key = {});

}
