#pragma once

#include <QObject>

class QMainWindow;

/// The Help menu of a window: the keys of all commands, and the way to what program this is.
class ZLHelpMenu : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window` and puts itself after the other menus.
    explicit ZLHelpMenu(QMainWindow& window);

Q_SIGNALS:
    void aboutRequested();

private:
    void showKeys();
    /// A table of the commands that have a key, in the order of the menus.
    [[nodiscard]] QString keysAsRichText() const;

    QMainWindow& m_window;
};
