#pragma once

#include "app/ZLDocumentController.h"

#include <QObject>

class QAction;
class QMenu;
class ZLChapterDocumentWindow;

/// The Window menu of a window: away with it, on to the next one, and one item a document that is open, in the order
/// in which they were opened. The tick stands at the window itself.
class ZLWindowMenu : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window` and puts itself after the menus that are there; `controller` has to outlive it.
    ZLWindowMenu(ZLDocumentController& controller, ZLChapterDocumentWindow& window);

Q_SIGNALS:
    /// The window of this document is wanted in front.
    void windowRequested(ZLChapterDocument* document);

private:
    void addCommands();
    /// The documents may have been opened, closed, renamed or started since the menu was last seen.
    void listDocuments();
    void requestNeighbour(qsizetype step);
    [[nodiscard]] static QString titleOf(const ZLChapterDocument& document, qsizetype number);

    ZLDocumentController& m_controller;
    ZLChapterDocumentWindow& m_window;
    QMenu* m_menu;
    QList<QAction*> m_documentItems;
    QList<QAction*> m_neighbourItems;
};
