#include "document/ui/menus/ZLActionHelp.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* firstTitleProperty = "firstTitle";

void updateToolTipOf(QAction& action)
{
    const QString help = ZLActionHelp::textWithKey(ZLActionHelp::plainTitle(action.text()), action);
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

QString ZLActionHelp::plainTitle(const QString& title)
{
    // An ampersand that is meant as one stands twice.
    QString plain = title;
    plain.replace(u"&&"_s, QString(QChar::Null)).remove(u'&').replace(QChar::Null, u'&');
    return plain.remove(u'…');
}

QString ZLActionHelp::firstTitle(const QAction& action)
{
    return action.property(firstTitleProperty).toString();
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
    action->setProperty(firstTitleProperty, plainTitle(title));
    action->setShortcut(key);
    followKey(*action);
    return action;
}
