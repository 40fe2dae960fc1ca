#include "delivery/ui/ZLDeliveryFilesModel.h"

#include "lists/ZLListTime.h"
#include "platform/ZLShownText.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;
using State = ZLDeliveryTarget::State;

namespace {

QString stateText(const ZLDeliveryTarget& target)
{
    switch (target.state) {
    case State::Reading:
        return ZLDeliveryFilesModel::tr("Reading…");
    case State::Writing:
        return ZLDeliveryFilesModel::tr("Writing…");
    case State::Ready:
        return ZLDeliveryFilesModel::tr("Chapters now: %1, to come: %2")
            .arg(target.plan->now.chapters.size())
            .arg(target.plan->toCome.size());
    case State::Unreadable:
    case State::Written:
    case State::Failed:
        break;
    }
    // The name stands beside it.
    const QString path = target.path + u": "_s;
    return target.message.startsWith(path) ? target.message.sliced(path.size()) : target.message;
}

QString textOf(const ZLDeliveryTarget& target, int column)
{
    switch (column) {
    case ZLDeliveryFilesModel::FileColumn:
        return ZLShownText::asOneLine(QFileInfo(target.path).fileName());
    case ZLDeliveryFilesModel::FormColumn:
        return target.plan ? target.plan->now.formName : QString();
    case ZLDeliveryFilesModel::LengthColumn:
        return target.plan ? ZLListTime::shortClock(double(target.plan->now.length) / 1000.0) : QString();
    default:
        return stateText(target);
    }
}

}

ZLDeliveryFilesModel::ZLDeliveryFilesModel(const ZLDeliveryDraft& draft, QObject* parent)
    : QAbstractTableModel(parent)
    , m_draft(draft)
    , m_paths(draft.paths())
{
    connect(&draft, &ZLDeliveryDraft::didChange, this, &ZLDeliveryFilesModel::update);
}

int ZLDeliveryFilesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_paths.size());
}

int ZLDeliveryFilesModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant ZLDeliveryFilesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const ZLDeliveryTarget target = m_draft.targets().value(index.row());
    if (role == Qt::ToolTipRole)
        return index.column() == FileColumn ? target.path : textOf(target, index.column());
    return role == Qt::DisplayRole ? textOf(target, index.column()) : QVariant();
}

QVariant ZLDeliveryFilesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QStringList titles { tr("File"), tr("Form"), tr("Length"), tr("State") };
    return titles.value(section);
}

void ZLDeliveryFilesModel::update()
{
    if (const QStringList paths = m_draft.paths(); paths != m_paths) {
        beginResetModel();
        m_paths = paths;
        endResetModel();
    } else if (rowCount() > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    }
}
