#include "templates/ui/ZLListKeys.h"

#include <QKeyEvent>
#include <QTableView>

namespace {

bool hasModifiers(const QKeyEvent& event)
{
    return event.modifiers() & ~Qt::KeypadModifier;
}

}

bool ZLListKeys::goToEnd(QTableView& list, const QKeyEvent& event)
{
    const bool isHome = event.key() == Qt::Key_Home;
    if (hasModifiers(event) || (!isHome && event.key() != Qt::Key_End))
        return false;
    const QAbstractItemModel& rows = *list.model();
    const QModelIndex end = rows.index(isHome ? 0 : rows.rowCount() - 1, qMax(list.currentIndex().column(), 0));
    if (end.isValid())
        list.setCurrentIndex(end);
    return true;
}

bool ZLListKeys::isReturn(const QKeyEvent& event)
{
    return !hasModifiers(event) && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter);
}
