#include "delivery/fit/ui/ZLFitMarksModel.h"

#include "delivery/fit/ZLFitReport.h"
#include "lists/ZLListTime.h"
#include "platform/ZLShownText.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QString textOf(const ZLFittedChapter& found, int column)
{
    switch (column) {
    case ZLFitMarksModel::TitleColumn:
        return ZLShownText::asOneLine(ZLShownText::shortened(found.mark.chapter->title()));
    case ZLFitMarksModel::OldTimeColumn:
        return found.mark.chapter->timeString();
    case ZLFitMarksModel::NewTimeColumn:
        return found.isFound() ? ZLListTime::clock(found.place.fileTime) : u"–"_s;
    case ZLFitMarksModel::StateColumn:
        return ZLFitReport::stateText(found.place.state);
    default:
        return found.isFound() ? u"%1 %"_s.arg(std::lround(found.place.confidence * 100.0)) : u"–"_s;
    }
}

}

void ZLFitMarksModel::setFit(const std::optional<ZLFit>& fit)
{
    const QList<ZLFittedChapter> chapters = fit ? fit->chapters : QList<ZLFittedChapter>();
    if (chapters.size() == m_chapters.size()) {
        m_chapters = chapters;
        if (!chapters.isEmpty())
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
        return;
    }
    beginResetModel();
    m_chapters = chapters;
    endResetModel();
}

int ZLFitMarksModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_chapters.size());
}

int ZLFitMarksModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant ZLFitMarksModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_chapters.size())
        return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return textOf(m_chapters.at(index.row()), index.column());
    const bool isNumber = index.column() != TitleColumn && index.column() != StateColumn;
    if (role == Qt::TextAlignmentRole && isNumber)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant ZLFitMarksModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QStringList titles { tr("Title"), tr("Old Time"), tr("New Time"), tr("State"), tr("Confidence") };
    return titles.value(section);
}
