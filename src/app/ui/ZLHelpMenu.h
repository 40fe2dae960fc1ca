#pragma once

#include <QObject>

class QMenu;
class ZLChapterDocumentWindow;

/// The Help menu of a window: the guide, the keys of all commands, and the way to what program this is.
class ZLHelpMenu : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window` and puts itself after the other menus.
    explicit ZLHelpMenu(ZLChapterDocumentWindow& window);

Q_SIGNALS:
    void aboutRequested();

private:
    void openGuide();
    void showKeys();
    /// The commands that have a key, in the order of the menus, in two columns.
    [[nodiscard]] QString keysAsRichText() const;

    ZLChapterDocumentWindow& m_window;
};
