#include "app/ui/ZLHelpMenu.h"

#include "document/ui/menus/ZLActionHelp.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

QString plainTitle(const QAction& action)
{
    return action.text().remove(u'&').remove(u'…');
}

}

ZLHelpMenu::ZLHelpMenu(QMainWindow& window)
    : QObject(&window)
    , m_window(window)
{
    QMenu* menu = window.menuBar()->addMenu(tr("&Help"));
    menu->setObjectName(u"helpMenu"_s);
    menu->setToolTipsVisible(true);
    connect(ZLActionHelp::addAction(*menu, u"showKeys"_s, tr("&Keyboard Shortcuts"), QKeySequence(u"F1"_s)),
        &QAction::triggered, this, &ZLHelpMenu::showKeys);
    menu->addSeparator();
    connect(ZLActionHelp::addAction(*menu, u"showAbout"_s, tr("&About Zelta")), &QAction::triggered, this,
        &ZLHelpMenu::aboutRequested);
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
    QString rows;
    const auto menus = m_window.menuBar()->actions();
    for (const QAction* menu : menus) {
        const auto items = menu->menu() ? menu->menu()->actions() : QList<QAction*>();
        for (const QAction* item : items) {
            if (!item->shortcut().isEmpty())
                rows +=
                    u"<tr><td>%1&nbsp;&nbsp;&nbsp;</td><td><b>%2</b></td></tr>"_s.arg(plainTitle(*item).toHtmlEscaped(),
                        item->shortcut().toString(QKeySequence::NativeText).toHtmlEscaped());
        }
    }
    return u"<table>%1</table>"_s.arg(rows);
}
