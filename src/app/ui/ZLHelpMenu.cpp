#include "app/ui/ZLHelpMenu.h"

#include "app/ui/ZLGuide.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLActionHelp.h"

#include <QDesktopServices>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QString keyRowOf(const QAction& item)
{
    return u"<tr><td><nobr>%1</nobr>&nbsp;&nbsp;&nbsp;</td><td><b>%2</b></td></tr>"_s.arg(
        ZLActionHelp::firstTitle(item).toHtmlEscaped(),
        item.shortcut().toString(QKeySequence::NativeText).toHtmlEscaped());
}

/// The rows of one menu, its title in front; empty when no item has a key.
QStringList keyRowsOf(const QAction& menu)
{
    QStringList rows;
    const auto items = menu.menu() ? menu.menu()->actions() : QList<QAction*>();
    for (const QAction* item : items) {
        if (!item->shortcut().isEmpty())
            rows.append(keyRowOf(*item));
    }
    if (!rows.isEmpty())
        rows.prepend(u"<tr><td colspan=2><u>%1</u></td></tr>"_s.arg(ZLActionHelp::plainTitle(menu.text())));
    return rows;
}

}

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
        &QAction::triggered, this, &ZLHelpMenu::showKeys);
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

void ZLHelpMenu::showKeys()
{
    auto* box =
        new QMessageBox(QMessageBox::NoIcon, tr("Keyboard Shortcuts"), keysAsRichText(), QMessageBox::Close, &m_window);
    box->setObjectName(u"keysBox"_s);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::RichText);
    box->open();
}

QString ZLHelpMenu::keysAsRichText() const
{
    QList<QStringList> menus;
    qsizetype rowCount = 0;
    const auto actions = m_window.menuBar()->actions();
    for (const QAction* menu : actions) {
        menus.append(keyRowsOf(*menu));
        rowCount += menus.last().size();
    }
    QStringList columns[2];
    for (const QStringList& rows : std::as_const(menus)) {
        const bool isFirstHalf = columns[1].isEmpty() && 2 * columns[0].size() + rows.size() <= rowCount;
        columns[isFirstHalf ? 0 : 1] += rows;
    }
    return u"<table><tr><td><table>%1</table></td><td width=32></td><td><table>%2</table></td></tr></table>"_s.arg(
        columns[0].join(QString()), columns[1].join(QString()));
}
