#include "document/ui/menus/ZLActionHelp.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

void updateToolTipOf(QAction& action)
{
    QString title = action.text();
    title.remove(u'&').remove(u'…');
    const QString help = ZLActionHelp::textWithKey(title, action);
    // Setting a tool tip is a change itself.
    if (action.toolTip() != help)
        action.setToolTip(help);
}

}

QString ZLActionHelp::textWithKey(const QString& text, const QAction& action)
{
    if (action.shortcut().isEmpty())
        return text;
    return u"%1 (%2)"_s.arg(text, action.shortcut().toString(QKeySequence::NativeText));
}

void ZLActionHelp::followKey(QAction& action)
{
    updateToolTipOf(action);
    QObject::connect(&action, &QAction::changed, &action, [&action] { updateToolTipOf(action); });
}

QAction* ZLActionHelp::addAction(QMenu& menu, const QString& name, const QString& title, const QKeySequence& key)
{
    QAction* action = menu.addAction(title);
    action->setObjectName(name);
    action->setShortcut(key);
    followKey(*action);
    return action;
}
