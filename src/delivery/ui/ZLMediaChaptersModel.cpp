#include "delivery/ui/ZLMediaChaptersModel.h"

#include "lists/ZLListTime.h"
#include "platform/ZLShownText.h"

#include <algorithm>

void ZLMediaChaptersModel::setChapters(const ZLMediaChapters& chapters)
{
    // Where nothing is different, what is selected and in view stays so.
    if (chapters == m_chapters)
        return;
    beginResetModel();
    m_chapters = chapters;
    endResetModel();
}

bool ZLMediaChaptersModel::hasLinks() const
{
    return std::ranges::any_of(m_chapters, [](const ZLMediaChapter& chapter) { return !chapter.link.isEmpty(); });
}

int ZLMediaChaptersModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_chapters.size());
}

int ZLMediaChaptersModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant ZLMediaChaptersModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const ZLMediaChapter& chapter = m_chapters.at(index.row());
    if (index.column() == TimeColumn)
        return role == Qt::DisplayRole ? ZLListTime::clock(double(chapter.start) / 1000.0) : QVariant();
    return ZLShownText::asOneLine(ZLShownText::shortened(index.column() == TitleColumn ? chapter.title : chapter.link));
}

QVariant ZLMediaChaptersModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QStringList titles { tr("Time"), tr("Title"), tr("Link") };
    return titles.value(section);
}
