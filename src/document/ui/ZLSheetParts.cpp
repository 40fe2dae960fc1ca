#include "document/ui/ZLSheetParts.h"

#include "templates/ui/ZLSelectionDelegate.h"

QPushButton* ZLSheetParts::button(const QString& objectName, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(objectName);
    button->setAutoDefault(true);
    return button;
}

QTreeView* ZLSheetParts::list(
    const QString& objectName, const QString& accessibleName, QAbstractItemModel* model, QWidget* parent)
{
    auto* list = new QTreeView(parent);
    list->setObjectName(objectName);
    list->setAccessibleName(accessibleName);
    list->setModel(model);
    list->setItemDelegate(new ZLSelectionDelegate(list));
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setTabKeyNavigation(false);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    return list;
}

QScrollArea* ZLSheetParts::scrolling(QWidget* body, QWidget* parent)
{
    auto* scroll = new QScrollArea(parent);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidgetResizable(true);
    scroll->setWidget(body);
    return scroll;
}
