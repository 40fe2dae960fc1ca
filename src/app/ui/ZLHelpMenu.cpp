#include "app/ui/ZLHelpMenu.h"

#include "document/ui/menus/ZLActionHelp.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

void showMessageBox(QMainWindow& window, const QString& name, const QString& title, const QString& richText)
{
    auto* box = new QMessageBox(QMessageBox::NoIcon, title, richText, QMessageBox::Close, &window);
    box->setObjectName(name);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::RichText);
    box->open();
}

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
        &ZLHelpMenu::showAbout);
}

void ZLHelpMenu::showKeys()
{
    showMessageBox(m_window, u"keysBox"_s, tr("Keyboard Shortcuts"), keysAsRichText());
}

void ZLHelpMenu::showAbout()
{
    showMessageBox(m_window, u"aboutBox"_s, tr("About Zelta"),
        tr("<h3>Zelta %1</h3><p>Marks chapters while a show is recorded.</p>").arg(QApplication::applicationVersion()));
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
