#pragma once

#include <QObject>

class ZLChapterDocumentWindow;

/// The Help menu of a window: the guide, the keys of all commands, and the way to what program this is.
class ZLHelpMenu : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window` and puts itself after the other menus.
    explicit ZLHelpMenu(ZLChapterDocumentWindow& window);

Q_SIGNALS:
    void keysRequested();
    void aboutRequested();

private:
    void openGuide();

    ZLChapterDocumentWindow& m_window;
};
