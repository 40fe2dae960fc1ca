#pragma once

#include "app/ZLDocumentController.h"

#include <QObject>

class QAction;
class QMenu;
class ZLChapterDocumentWindow;
class ZLExportMenu;
class ZLRevertMenu;
class ZLSavePanel;

/// The File menu of a window. It acts on the window's own document; what concerns all windows it asks for by signal.
class ZLFileMenu : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window` and puts itself before the other menus; `exportMenus` are shown as submenus.
    ZLFileMenu(ZLDocumentController& controller, ZLSavePanel& savePanel, const QList<ZLExportMenu*>& exportMenus,
        ZLChapterDocumentWindow& window);

Q_SIGNALS:
    void newDocumentRequested();
    void openRequested(const QStringList& paths);
    void writeChaptersRequested();
    void fitRequested();
    void quitRequested();
    void importRequested();
    void exportAgainRequested();

private:
    void addOpeningActions();
    void addSavingActions();
    void addExportActions(const QList<ZLExportMenu*>& exportMenus);
    void addFinishedFileActions();
    void addClosingActions();
    void chooseFilesToOpen();
    void fillRecentMenu();
    void revert();
    void validate();

    ZLDocumentController& m_controller;
    ZLSavePanel& m_savePanel;
    ZLChapterDocumentWindow& m_window;
    QMenu* m_menu;
    QMenu* m_recentMenu = nullptr;
    QAction* m_revertAction = nullptr;
    ZLRevertMenu* m_revertMenu = nullptr;
};
