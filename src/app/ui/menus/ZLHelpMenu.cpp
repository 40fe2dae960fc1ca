#include "app/ui/menus/ZLHelpMenu.h"

#include "app/ui/menus/ZLGuide.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLActionHelp.h"

#include <QDesktopServices>
#include <QMenu>
#include <QMenuBar>
#include <QUrl>

using namespace Qt::StringLiterals;

ZLHelpMenu::ZLHelpMenu(ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_window(window)
{
    QMenu* menu = window.menuBar()->addMenu(tr("&Help"));
    menu->setObjectName(u"helpMenu"_s);
    menu->setToolTipsVisible(true);
    connect(ZLActionHelp::addAction(*menu, u"openGuide"_s, tr("Zelta &Guide"), QKeySequence(u"F1"_s)),
        &QAction::triggered, this, &ZLHelpMenu::openGuide);
    connect(ZLActionHelp::addAction(*menu, u"showKeys"_s, tr("&Keyboard Shortcuts"), QKeySequence(u"Ctrl+F1"_s)),
        &QAction::triggered, this, &ZLHelpMenu::keysRequested);
    menu->addSeparator();
    connect(ZLActionHelp::addAction(*menu, u"showAbout"_s, tr("&About Zelta")), &QAction::triggered, this,
        &ZLHelpMenu::aboutRequested);
}

void ZLHelpMenu::openGuide()
{
    const QString path = ZLGuide::pathIn(ZLGuide::standardFolders());
    if (path.isEmpty())
        m_window.statusLine().showPassingMessage(tr("The guide is not installed."));
    else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        m_window.statusLine().showPassingMessage(tr("No program opens the guide. It is in %1.").arg(path));
}
