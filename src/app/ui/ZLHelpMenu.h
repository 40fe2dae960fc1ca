#pragma once

#include <QObject>

class QMainWindow;

/// The Help menu of a window: the keys of all commands, and what program this is.
class ZLHelpMenu : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window` and puts itself after the other menus.
    explicit ZLHelpMenu(QMainWindow& window);

private:
    void showKeys();
    void showAbout();
    /// A table of the commands that have a key, in the order of the menus.
    [[nodiscard]] QString keysAsRichText() const;

    QMainWindow& m_window;
};
