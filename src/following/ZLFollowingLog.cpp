#include "following/ZLFollowingLog.h"

using namespace Qt::StringLiterals;

void ZLFollowingLog::append(const QDateTime& time, const QString& sentence)
{
    if (m_entries.size() == MostEntries) {
        beginRemoveRows({}, 0, 0);
        m_entries.removeFirst();
        endRemoveRows();
    }
    const int row = int(m_entries.size());
    beginInsertRows({}, row, row);
    m_entries.append({ time.toLocalTime(), sentence });
    endInsertRows();
}

int ZLFollowingLog::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_entries.size());
}

int ZLFollowingLog::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ZLFollowingLog::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const Entry& entry = m_entries.at(index.row());
    return index.column() == TimeColumn ? entry.time.toString(u"HH:mm:ss"_s) : entry.sentence;
}

QVariant ZLFollowingLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == TimeColumn ? tr("Time") : tr("Event");
}
