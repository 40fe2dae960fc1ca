#include "remote/ui/ZLOSCOutputsModel.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString outputStateText(const ZLOSCOutPort& port)
{
    switch (port.state()) {
    case ZLOSCOutPort::State::Resolving:
        return ZLOSCOutputsModel::tr("being looked up …");
    case ZLOSCOutPort::State::Failed:
        return ZLOSCOutputsModel::tr("not reachable: %1").arg(port.failure());
    case ZLOSCOutPort::State::Ready:
        break;
    }
    if (port.address().toString() == port.host())
        return ZLOSCOutputsModel::tr("ready");
    return ZLOSCOutputsModel::tr("ready, at %1").arg(port.address().toString());
}

}

ZLOSCOutputsModel::ZLOSCOutputsModel(ZLOSCController& controller, QObject* parent)
    : QAbstractTableModel(parent)
    , m_controller(controller)
{
    // Later, when the controller has followed it and knows whom it answers.
    connect(
        &controller.manager(), &ZLOSCManager::outputsDidChange, this, &ZLOSCOutputsModel::update, Qt::QueuedConnection);
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLOSCOutputsSettingDidChange, this,
        &ZLOSCOutputsModel::update, Qt::QueuedConnection);
    update();
}

QString ZLOSCOutputsModel::addOutput(const QString& text)
{
    const auto destination = ZLOSCDestination::fromText(text);
    if (const QString problem = problemWith(destination, text); !problem.isEmpty())
        return problem;
    ZLSettingsManager::setOSCOutputs(m_controller.outputs() + QList { *destination });
    update();
    return {};
}

QString ZLOSCOutputsModel::changeOutput(int row, const QString& text)
{
    QList<ZLOSCDestination> outputs = m_controller.outputs();
    const auto destination = ZLOSCDestination::fromText(text);
    if (row >= outputs.size() || outputs.at(row) == destination)
        return {};
    if (const QString problem = problemWith(destination, text); !problem.isEmpty())
        return problem;
    outputs[row] = *destination;
    ZLSettingsManager::setOSCOutputs(outputs);
    update();
    return {};
}

void ZLOSCOutputsModel::removeOutput(int row)
{
    QList<ZLOSCDestination> outputs = m_controller.outputs();
    if (row < 0 || row >= outputs.size())
        return;
    outputs.removeAt(row);
    ZLSettingsManager::setOSCOutputs(outputs);
    update();
}

QString ZLOSCOutputsModel::problemWith(const std::optional<ZLOSCDestination>& destination, const QString& text) const
{
    if (!destination)
        return tr("“%1” is not a host and port. Enter for example 192.168.1.20:9000 or tablet.local:9000.").arg(text);
    if (m_controller.outputs().contains(*destination))
        return tr("“%1” is in the list already.").arg(destination->text());
    return {};
}

int ZLOSCOutputsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ZLOSCOutputsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ZLOSCOutputsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::ToolTipRole)
        return {};
    const Row& row = m_rows.at(index.row());
    return index.column() == DestinationColumn ? row.destination : row.state;
}

QVariant ZLOSCOutputsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == DestinationColumn ? tr("Host and Port") : tr("Reachability");
}

Qt::ItemFlags ZLOSCOutputsModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    flags.setFlag(Qt::ItemIsEditable, index.column() == DestinationColumn && isChangeable(index.row()));
    return flags;
}

bool ZLOSCOutputsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable))
        return false;
    const QString problem = changeOutput(index.row(), value.toString().trimmed());
    Q_EMIT editWasRefused(problem);
    return problem.isEmpty();
}

QList<ZLOSCOutputsModel::Row> ZLOSCOutputsModel::presentRows() const
{
    QList<Row> rows;
    for (const ZLOSCDestination& destination : m_configured)
        rows.append({ destination.text(), tr("being looked up …") });
    const ZLOSCOutPortArray& outputs = m_controller.manager().outPortArray();
    outputs.rdlock();
    for (const ZLOSCOutPort* port : outputs.ports()) {
        const qsizetype row = m_configured.indexOf(ZLOSCDestination { port->host(), port->port() });
        if (m_controller.isAnsweredSender(port))
            rows.append({ port->label(), tr("getting replies") });
        else if (row >= 0)
            rows[row].state = outputStateText(*port);
    }
    outputs.unlock();
    return rows;
}

void ZLOSCOutputsModel::update()
{
    m_configured = m_controller.outputs();
    QList<Row> rows = presentRows();
    // Rows before the first other destination stay, so that an edit or a selection there is not disturbed.
    const auto [now, before] = std::ranges::mismatch(rows, m_rows, {}, &Row::destination, &Row::destination);
    const int kept = int(before - m_rows.begin());
    if (kept < m_rows.size()) {
        beginRemoveRows({}, kept, int(m_rows.size()) - 1);
        m_rows.resize(kept);
        endRemoveRows();
    }
    if (kept < rows.size()) {
        beginInsertRows({}, kept, int(rows.size()) - 1);
        m_rows += rows.mid(kept);
        endInsertRows();
    }
    m_rows = std::move(rows);
    if (kept > 0)
        Q_EMIT dataChanged(index(0, 0), index(kept - 1, ColumnCount - 1));
}
