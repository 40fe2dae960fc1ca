#include "app/ui/shortcuts/ZLShortcutListWindow.h"

#include "templates/ui/ZLSelectionDelegate.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowsToShowAtOnce = 26;

/// The place of the current row, counted over all groups; the first one where there is none.
int placeOfCurrentRow(const QTreeWidget& list)
{
    int place = 0;
    for (QTreeWidgetItemIterator item(const_cast<QTreeWidget*>(&list)); *item; ++item, ++place) {
        if (*item == list.currentItem())
            return place;
    }
    return 0;
}

}

ZLShortcutListWindow::ZLShortcutListWindow(QWidget* parent)
    : QDialog(parent)
    , m_list(new QTreeWidget(this))
{
    setObjectName(u"shortcutListWindow"_s);
    setWindowTitle(tr("Keyboard Shortcuts"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_list->setAccessibleName(tr("Keyboard Shortcuts"));
    m_list->setItemDelegate(new ZLSelectionDelegate(m_list));
    m_list->setHeaderLabels({ tr("Command"), tr("Keys") });
    m_list->setItemsExpandable(false);
    m_list->setRootIsDecorated(false);
    m_list->setAllColumnsShowFocus(true);
    m_list->setUniformRowHeights(true);
    m_list->header()->setStretchLastSection(true);
    m_list->header()->setSectionsMovable(false);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* change = buttons->addButton(tr("C&hange…"), QDialogButtonBox::ActionRole);
    change->setObjectName(u"changeButton"_s);
    change->setToolTip(tr("Choose your own keys for the global shortcuts"));
    change->setAutoDefault(false);
    connect(change, &QPushButton::clicked, this, &ZLShortcutListWindow::changeRequested);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_list);
    column->addWidget(buttons);
}

void ZLShortcutListWindow::setGroups(const QList<ZLShortcutList::Group>& groups)
{
    const bool isFirstTime = m_list->topLevelItemCount() == 0;
    const int place = placeOfCurrentRow(*m_list);
    m_list->clear();
    for (const ZLShortcutList::Group& group : groups)
        addGroup(group);
    QTreeWidgetItemIterator item(m_list);
    item += place;
    m_list->setCurrentItem(*item ? *item : m_list->topLevelItem(0));
    if (!isFirstTime)
        return;
    m_list->resizeColumnToContents(0);
    m_list->setColumnWidth(0, m_list->columnWidth(0) + m_list->sizeHintForRow(0));
    m_list->resizeColumnToContents(1);
    resize(fittingSize());
}

void ZLShortcutListWindow::addGroup(const ZLShortcutList::Group& group)
{
    auto* heading = new QTreeWidgetItem(m_list, { group.title });
    QFont bold = m_list->font();
    bold.setBold(true);
    heading->setFont(0, bold);
    heading->setFirstColumnSpanned(true);
    for (const ZLShortcutList::Row& row : group.rows)
        new QTreeWidgetItem(heading, { row.command, row.keys });
    heading->setExpanded(true);
}

QSize ZLShortcutListWindow::fittingSize() const
{
    const int columns = m_list->columnWidth(0) + m_list->columnWidth(1);
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const QSize rest = sizeHint() - m_list->sizeHint();
    const int rowHeight = m_list->sizeHintForRow(0);
    const QSize list(columns + scrollBar + 2 * rowHeight, rowsToShowAtOnce * rowHeight);
    return (list + QSize(0, rest.height())).boundedTo(screen()->availableSize() * 3 / 4);
}
