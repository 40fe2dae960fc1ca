#include "delivery/ui/ZLDeliveryFileList.h"

#include "delivery/ui/ZLDeliveryFilesModel.h"
#include "document/ui/ZLSheetParts.h"
#include "templates/ui/ZLSelectionDelegate.h"

#include <QHeaderView>
#include <QTreeView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Files that are in sight at once.
constexpr int filesInSight = 4;

/// Letters of a name; what became of the file needs room beside it.
constexpr int longestName = 30;

/// Of a long name both ends are shown: the number of the episode and the kind of file.
class NameDelegate final : public ZLSelectionDelegate {
public:
    using ZLSelectionDelegate::ZLSelectionDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        ZLSelectionDelegate::initStyleOption(option, index);
        option->textElideMode = Qt::ElideMiddle;
    }
};

/// Whole rows, as high as the style draws them once there are some, and names that are not too long.
void fitToFiles(QTreeView& list)
{
    const int row = std::max(list.sizeHintForRow(0), list.fontMetrics().height());
    list.setFixedHeight(list.header()->sizeHint().height() + filesInSight * row + 2 * list.frameWidth());
    list.resizeColumnToContents(ZLDeliveryFilesModel::FileColumn);
    const int widest = longestName * list.fontMetrics().averageCharWidth();
    list.setColumnWidth(
        ZLDeliveryFilesModel::FileColumn, std::min(list.columnWidth(ZLDeliveryFilesModel::FileColumn), widest));
}

}

QTreeView* ZLDeliveryFileList::make(const ZLDeliveryDraft& draft, QWidget* parent)
{
    QTreeView* list = ZLSheetParts::list(
        u"deliveryFiles"_s, ZLDeliveryFilesModel::tr("Audio files"), new ZLDeliveryFilesModel(draft, parent), parent);
    list->setItemDelegateForColumn(ZLDeliveryFilesModel::FileColumn, new NameDelegate(list));
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(ZLDeliveryFilesModel::FileColumn, QHeaderView::Interactive);
    list->header()->setStretchLastSection(true);
    fitToFiles(*list);
    QObject::connect(list->model(), &QAbstractItemModel::modelReset, list, [list] { fitToFiles(*list); });
    return list;
}
