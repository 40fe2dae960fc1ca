#include "import/ui/ZLImportRowsModel.h"

#include "platform/ZLShownText.h"

#include <algorithm>

namespace {

QString shown(const QString& text)
{
    return ZLShownText::asOneLine(ZLShownText::shortened(text));
}

}

void ZLImportRowsModel::setChapters(const ZLChapterSequence& chapters)
{
    beginResetModel();
    m_chapters = chapters;
    endResetModel();
}

bool ZLImportRowsModel::hasLinks() const
{
    return !std::ranges::all_of(m_chapters, [](const ZLChapterPointer& chapter) { return chapter->link().isEmpty(); });
}

int ZLImportRowsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_chapters.size());
}

int ZLImportRowsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ZLImportRowsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ZLChapter& chapter = *m_chapters.at(index.row());
    if (role == Qt::ToolTipRole && !chapter.isEnabled())
        return tr("Will be disabled");
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case TimeColumn:
        return chapter.timeString();
    case TitleColumn:
        return shown(chapter.title());
    default:
        return shown(chapter.link());
    }
}

QVariant ZLImportRowsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case TimeColumn:
        return tr("Time");
    case TitleColumn:
        return tr("Title");
    default:
        return tr("Link");
    }
}
