#include "remote/ZLOSCLog.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int logFlushMilliseconds = 100;

/// The row that can also stand for `entry`: an alike one among the last ones, with no message that came in since.
qsizetype rowToShare(const QList<ZLOSCLogEntry>& entries, const ZLOSCLogEntry& entry)
{
    if (entry.direction != ZLOSCLogEntry::Direction::Out)
        return -1;
    for (qsizetype row = entries.size() - 1; row >= 0; --row) {
        const ZLOSCLogEntry& other = entries.at(row);
        if (other.direction != ZLOSCLogEntry::Direction::Out)
            return -1;
        if (other.peer == entry.peer && other.address == entry.address && other.outcome == entry.outcome)
            return row;
    }
    return -1;
}

void addToShared(ZLOSCLogEntry& shared, const ZLOSCLogEntry& entry)
{
    shared.time = entry.time;
    shared.value = entry.value;
    shared.count += entry.count;
}

/// The row that has to go: the oldest of the direction that fills more than half.
qsizetype rowToDrop(const QList<ZLOSCLogEntry>& entries)
{
    const auto goesOut = [](const ZLOSCLogEntry& entry) { return entry.direction == ZLOSCLogEntry::Direction::Out; };
    const bool tooManyGoOut = std::ranges::count_if(entries, goesOut) * 2 > entries.size();
    const auto found =
        std::ranges::find_if(entries, [&](const ZLOSCLogEntry& entry) { return goesOut(entry) == tooManyGoOut; });
    return std::distance(entries.begin(), found);
}

}

ZLOSCLog::ZLOSCLog(QObject* parent)
    : QAbstractTableModel(parent)
{
    m_flushTimer.setSingleShot(true);
    m_flushTimer.setInterval(logFlushMilliseconds);
    connect(&m_flushTimer, &QTimer::timeout, this, &ZLOSCLog::flush);
}

void ZLOSCLog::append(const ZLOSCLogEntry& entry)
{
    if (const qsizetype row = rowToShare(m_pending, entry); row >= 0)
        addToShared(m_pending[row], entry);
    else
        m_pending.append(entry);
    if (m_pending.size() > Capacity)
        m_pending.removeAt(rowToDrop(m_pending));
    if (!m_isHeld && !m_flushTimer.isActive())
        m_flushTimer.start();
}

void ZLOSCLog::setHeld(bool held)
{
    m_isHeld = held;
    if (held)
        m_flushTimer.stop();
    else
        flush();
}

void ZLOSCLog::flush()
{
    m_flushTimer.stop();
    while (!m_pending.isEmpty()) {
        const qsizetype row = rowToShare(m_entries, m_pending.constFirst());
        if (row < 0)
            break;
        addToShared(m_entries[row], m_pending.takeFirst());
        Q_EMIT dataChanged(index(int(row), 0), index(int(row), ColumnCount - 1));
    }
    if (m_pending.isEmpty())
        return;
    const int first = int(m_entries.size());
    beginInsertRows({}, first, first + int(m_pending.size()) - 1);
    m_entries += std::exchange(m_pending, {});
    endInsertRows();
    makeRoom();
}

void ZLOSCLog::clear()
{
    beginResetModel();
    m_entries.clear();
    m_pending.clear();
    endResetModel();
}

int ZLOSCLog::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_entries.size());
}

int ZLOSCLog::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ZLOSCLog::data(const QModelIndex& index, int role) const
{
    if (checkIndex(index, CheckIndexOption::IndexIsValid) && role == ProblemRole)
        return m_entries.at(index.row()).isProblem;
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    return textFor(m_entries.at(index.row()), index.column());
}

QVariant ZLOSCLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case TimeColumn:
        return tr("Time");
    case DirectionColumn:
        return tr("Direction");
    case PeerColumn:
        return tr("From or To");
    case AddressColumn:
        return tr("Address");
    case ValueColumn:
        return tr("Value");
    case OutcomeColumn:
        return tr("Outcome");
    default:
        return {};
    }
}

void ZLOSCLog::makeRoom()
{
    while (m_entries.size() > Capacity) {
        const int row = int(rowToDrop(m_entries));
        beginRemoveRows({}, row, row);
        m_entries.removeAt(row);
        endRemoveRows();
    }
}

QString ZLOSCLog::textFor(const ZLOSCLogEntry& entry, int column) const
{
    switch (column) {
    case TimeColumn:
        return entry.time.toLocalTime().toString(u"HH:mm:ss.zzz"_s);
    case DirectionColumn:
        return entry.direction == ZLOSCLogEntry::Direction::In ? tr("in") : tr("out");
    case PeerColumn:
        return entry.peer;
    case AddressColumn:
        return entry.address;
    case ValueColumn:
        return entry.value;
    case OutcomeColumn:
        return entry.count == 1 ? entry.outcome : tr("%1 (%2 times)").arg(entry.outcome).arg(entry.count);
    default:
        return {};
    }
}
