#include "app/ui/shortcuts/ZLShortcutListDisplay.h"

#include "app/ZLApplication.h"
#include "app/ui/shortcuts/ZLShortcutListWindow.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "platform/window/ZLWindowInFront.h"
#include "settings/ZLSettingsManager.h"

#include <QMenuBar>

ZLShortcutListDisplay::ZLShortcutListDisplay(ZLApplication& application, QObject* parent)
    : QObject(parent)
    , m_application(application)
{
    // Later, for the menus follow the same news.
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLShortcutsDidChange, this,
        &ZLShortcutListDisplay::update, Qt::QueuedConnection);
    connect(&application, &ZLApplication::hotKeysDidChange, this, &ZLShortcutListDisplay::update, Qt::QueuedConnection);
}

void ZLShortcutListDisplay::showFor(ZLChapterDocumentWindow* window)
{
    if (m_window && m_documentWindow != window)
        delete m_window;
    m_documentWindow = window;
    if (!m_window) {
        m_window = new ZLShortcutListWindow(window);
        connect(m_window, &ZLShortcutListWindow::changeRequested, this, &ZLShortcutListDisplay::changeRequested);
    }
    update();
    m_window->show();
    ZLWindowInFront::bring(*m_window->windowHandle());
}

void ZLShortcutListDisplay::update()
{
    if (!m_window || !m_documentWindow)
        return;
    auto groups = ZLShortcutList::ofMenus(*m_documentWindow->menuBar());
    groups.append(ZLShortcutList::ofWholeSystem(m_application));
    m_window->setGroups(groups);
}
