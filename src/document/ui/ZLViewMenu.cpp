#include "document/ui/ZLViewMenu.h"

#include "document/ui/ZLActionHelp.h"
#include "settings/ZLSettingsManager.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

ZLViewMenu::ZLViewMenu(QMenuBar& menuBar)
    : QObject(&menuBar)
    , m_menu(menuBar.addMenu(tr("&View")))
    , m_absoluteTimeItem(m_menu->addAction(tr("Show Absolute Time")))
    , m_drawerItem(m_menu->addAction(tr("&Templates")))
{
    m_menu->setObjectName(u"viewMenu"_s);
    m_menu->setToolTipsVisible(true);
    m_absoluteTimeItem->setObjectName(u"absoluteTimeItem"_s);
    m_absoluteTimeItem->setShortcut(QKeySequence(u"Ctrl+T"_s));
    m_absoluteTimeItem->setCheckable(true);
    m_drawerItem->setObjectName(u"toggleDrawer"_s);
    m_drawerItem->setShortcut(QKeySequence(Qt::Key_F9));
    m_drawerItem->setCheckable(true);
    for (QAction* action : { m_absoluteTimeItem, m_drawerItem })
        ZLActionHelp::followKey(*action);
    connect(m_absoluteTimeItem, &QAction::triggered, this, &ZLViewMenu::absoluteTimeRequested);
    connect(m_drawerItem, &QAction::triggered, this, &ZLViewMenu::drawerRequested);
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLShowAbsoluteTimeSettingDidChange, this,
        &ZLViewMenu::updateAbsoluteTime);
}

void ZLViewMenu::updateAbsoluteTime()
{
    const bool isAbsolute = ZLSettingsManager::showAbsoluteTime();
    m_absoluteTimeItem->setChecked(isAbsolute);
    m_absoluteTimeItem->setText(isAbsolute ? tr("Show Relative Time") : tr("Show Absolute Time"));
}
