#pragma once

class QAction;
class QString;

/// Help texts of commands.
namespace ZLActionHelp {

/// "New Chapter (Ctrl+Return)": the text with the key of the action, when it has one.
[[nodiscard]] QString textWithKey(const QString& text, const QAction& action);

/// Keeps the action's tool tip naming its key, also when title or key change.
void followKey(QAction& action);

}
