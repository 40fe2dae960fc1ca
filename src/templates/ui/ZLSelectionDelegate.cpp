#include "templates/ui/ZLSelectionDelegate.h"

#include "templates/ui/ZLReadableColors.h"

#include <QApplication>

namespace {

/// A field that is open in the list counts as the list.
bool hasKeyboard(const QWidget& list)
{
    const QWidget* focused = QApplication::focusWidget();
    return focused && (focused == &list || list.isAncestorOf(focused));
}

}

void ZLSelectionDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!option->state.testFlag(QStyle::State_Selected))
        return;
    const bool isStrong = !option->widget || hasKeyboard(*option->widget);
    const QPalette colors = option->palette;
    const QColor ground =
        isStrong ? colors.color(QPalette::Active, QPalette::Highlight) : ZLReadableColors::weakSelection(colors);
    const QPalette::ColorRole text = isStrong ? QPalette::HighlightedText : QPalette::Text;
    for (const QPalette::ColorGroup group : { QPalette::Active, QPalette::Inactive }) {
        option->palette.setColor(group, QPalette::Highlight, ground);
        option->palette.setColor(group, QPalette::HighlightedText, colors.color(QPalette::Active, text));
    }
}
