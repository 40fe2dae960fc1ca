#include "document/ui/menus/ZLViewMenu.h"

#include "document/ui/menus/ZLActionHelp.h"
#include "settings/ZLSettingsManager.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

ZLViewMenu::ZLViewMenu(QMenuBar& menuBar)
    : QObject(&menuBar)
    , m_menu(menuBar.addMenu(tr("&View")))
    , m_absoluteTimeItem(
          ZLActionHelp::addAction(*m_menu, u"absoluteTimeItem"_s, tr("Show Absolute Time"), QKeySequence(u"Ctrl+T"_s)))
    , m_drawerItem(ZLActionHelp::addAction(*m_menu, u"toggleDrawer"_s, tr("&Templates"), QKeySequence(Qt::Key_F9)))
{
    m_menu->setObjectName(u"viewMenu"_s);
    m_menu->setToolTipsVisible(true);
    m_absoluteTimeItem->setCheckable(true);
    m_drawerItem->setCheckable(true);
    connect(m_absoluteTimeItem, &QAction::triggered, this, &ZLViewMenu::absoluteTimeRequested);
    connect(m_drawerItem, &QAction::triggered, this, &ZLViewMenu::drawerRequested);
    connect(ZLActionHelp::addAction(*m_menu, u"goToMessages"_s, tr("Go to &Messages"), QKeySequence(Qt::Key_F6)),
        &QAction::triggered, this, &ZLViewMenu::messagesRequested);
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLShowAbsoluteTimeSettingDidChange, this,
        &ZLViewMenu::updateAbsoluteTime);
}

void ZLViewMenu::updateAbsoluteTime()
{
    const bool isAbsolute = ZLSettingsManager::showAbsoluteTime();
    m_absoluteTimeItem->setChecked(isAbsolute);
    m_absoluteTimeItem->setText(isAbsolute ? tr("Show Relative Time") : tr("Show Absolute Time"));
}

void ZLViewMenu::showSameTimeAs(const ZLViewMenu& other)
{
    m_absoluteTimeItem->setChecked(other.m_absoluteTimeItem->isChecked());
    m_absoluteTimeItem->setText(other.m_absoluteTimeItem->text());
}
