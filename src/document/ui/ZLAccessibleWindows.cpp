#include "document/ui/ZLAccessibleWindows.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QSet>
#include <QWidget>

namespace {

QSet<QString>& classNames()
{
    static QSet<QString> names;
    return names;
}

QAccessibleInterface* accessibleWindow(const QString& className, QObject* object)
{
    auto* window = classNames().contains(className) ? qobject_cast<QWidget*>(object) : nullptr;
    return window ? new QAccessibleWidget(window, QAccessible::Window) : nullptr;
}

}

void ZLAccessibleWindows::addClass(const QString& className)
{
    if (classNames().isEmpty())
        QAccessible::installFactory(accessibleWindow);
    classNames().insert(className);
}
