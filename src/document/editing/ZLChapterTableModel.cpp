#include "document/editing/ZLChapterTableModel.h"

#include "document/editing/ZLChapterEditing.h"
#include "document/editing/ZLTimeEntry.h"
#include "platform/ZLShownText.h"
#include "settings/ZLSettingsManager.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Beyond this many edited rows, refreshing all of them at once costs less.
constexpr qsizetype mostRowsByThemselves = 20;

}

ZLChapterTableModel::ZLChapterTableModel(ZLChapterEditing& editing)
    : m_editing(editing)
{
    followRowsOf(editing.chapterManager());
    followOrderOf(editing.chapterManager());
}

QString ZLChapterTableModel::columnIdentifier(int column)
{
    switch (column) {
    case NumberColumn:
        return u"number"_s;
    case EnabledColumn:
        return u"enabled"_s;
    case TimeColumn:
        return u"time"_s;
    case DurationColumn:
        return u"duration"_s;
    case TitleColumn:
        return u"title"_s;
    case LinkColumn:
        return u"link"_s;
    default:
        return {};
    }
}

void ZLChapterTableModel::showChange(const ZLDocumentChange& change)
{
    const bool isInPlace = change.concerns(ZLDocumentChange::inPlace);
    const bool areAll = isInPlace && (change.chapters.isEmpty() || change.chapters.size() > mostRowsByThemselves);
    if (areAll || change.concerns(ZLDocumentChange::EveryCell)) {
        refreshAllRows();
    } else if (isInPlace) {
        for (const ZLChapterPointer& chapter : change.chapters)
            refreshRowOf(chapter, change);
    }
}

int ZLChapterTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(chapters().size());
}

int ZLChapterTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant ZLChapterTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const ZLChapter& chapter = *chapters().at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == EnabledColumn ? QVariant() : ZLShownText::shortened(textAt(index));
    case Qt::EditRole:
        return index.column() == EnabledColumn ? QVariant() : textAt(index);
    case Qt::CheckStateRole:
        if (index.column() != EnabledColumn)
            return {};
        return chapter.isEnabled() ? Qt::Checked : Qt::Unchecked;
    case Qt::ToolTipRole:
        return toolTipAt(index);
    case Qt::AccessibleTextRole:
        return index.column() == EnabledColumn ? headerData(EnabledColumn, Qt::Horizontal, Qt::ToolTipRole)
                                               : QVariant();
    case ChapterEnabledRole:
        return chapter.isEnabled();
    default:
        return {};
    }
}

bool ZLChapterTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const int wantedRole = index.column() == EnabledColumn ? Qt::CheckStateRole : Qt::EditRole;
    if (!index.isValid() || index.row() >= rowCount() || role != wantedRole)
        return false;
    // A pointer of its own: the edit may reorder the list in which the other one lies.
    const ZLChapterPointer chapter = chapters().at(index.row());
    return m_editing.takeTypedEntry([&] { return editChapter(chapter, index.column(), value); });
}

QVariant ZLChapterTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole) {
        const QStringList titles { tr("#"), u"✓"_s, tr("Time"), tr("Duration"), tr("Title"), tr("Link") };
        return titles.value(section);
    }
    if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) {
        const QStringList meanings { tr("Number"), tr("Exported"), tr("Time"), tr("Duration"), tr("Title"),
            tr("Link") };
        return meanings.value(section);
    }
    return {};
}

Qt::ItemFlags ZLChapterTableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    switch (index.column()) {
    case EnabledColumn:
        // A chapter before the recording's start is no part of it and stays disabled.
        flags.setFlag(Qt::ItemIsUserCheckable, !(chapters().at(index.row())->timeStamp() < 0.0));
        break;
    case TimeColumn:
    case TitleColumn:
    case LinkColumn:
        flags |= Qt::ItemIsEditable;
        break;
    default:
        break;
    }
    return flags;
}

void ZLChapterTableModel::followRowsOf(const ZLChapterManager& chapters)
{
    connect(&chapters, &ZLChapterManager::willInsertChapterAtIndex, this,
        [this](qsizetype row) { beginInsertRows({}, int(row), int(row)); });
    connect(&chapters, &ZLChapterManager::didInsertChapterAtIndex, this, [this](qsizetype row) {
        endInsertRows();
        refreshNeighboursOf(int(row));
    });
    connect(&chapters, &ZLChapterManager::willRemoveChapterAtIndex, this,
        [this](qsizetype row) { beginRemoveRows({}, int(row), int(row)); });
    connect(&chapters, &ZLChapterManager::didRemoveChapterAtIndex, this, [this](qsizetype row) {
        endRemoveRows();
        refreshNeighboursOf(int(row));
    });
}

void ZLChapterTableModel::followOrderOf(const ZLChapterManager& chapters)
{
    connect(&chapters, &ZLChapterManager::willMoveChapter, this, [this](qsizetype from, qsizetype to) {
        // Counted with the row that moves.
        beginMoveRows({}, int(from), int(from), {}, int(to > from ? to + 1 : to));
    });
    connect(&chapters, &ZLChapterManager::didMoveChapter, this, [this](qsizetype from, qsizetype to) {
        endMoveRows();
        refreshRowsBetween(int(from), int(to));
    });
    connect(&chapters, &ZLChapterManager::willReorderChapters, this,
        [this] { Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint); });
    connect(&chapters, &ZLChapterManager::didReorderChapters, this, &ZLChapterTableModel::restorePersistentRows);
    connect(&chapters, &ZLChapterManager::willReplaceChapters, this, [this] { beginResetModel(); });
    connect(&chapters, &ZLChapterManager::didReplaceChapters, this, [this] { endResetModel(); });
}

void ZLChapterTableModel::refreshAllRows()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

void ZLChapterTableModel::refreshRowOf(const ZLChapterPointer& chapter, const ZLDocumentChange& change)
{
    const auto found = m_editing.chapterManager().indexOfChapter(chapter);
    if (!found)
        return;
    const int row = int(*found);
    for (int column = 0; column < ColumnCount; ++column)
        refreshCell(row, column);
    // The row before lasts until this one.
    if (row > 0 && change.concerns(ZLDocumentChange::Times))
        refreshCell(row - 1, DurationColumn);
}

void ZLChapterTableModel::refreshCell(int row, int column)
{
    // Each cell by itself: a view paints all its rows anew for a range of cells.
    Q_EMIT dataChanged(index(row, column), index(row, column));
}

void ZLChapterTableModel::refreshNeighboursOf(int row)
{
    // The row before lasts until another chapter now, and the rows behind have other numbers.
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(std::max(row - 1, 0), NumberColumn), index(rowCount() - 1, DurationColumn));
}

void ZLChapterTableModel::refreshRowsBetween(int from, int to)
{
    const int first = std::max(std::min(from, to) - 1, 0);
    for (const int column : { NumberColumn, DurationColumn })
        Q_EMIT dataChanged(index(first, column), index(std::max(from, to), column));
}

void ZLChapterTableModel::restorePersistentRows(const ZLChapterSequence& previousOrder)
{
    QHash<int, int> rowBefore;
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& old : before) {
        auto row = rowBefore.constFind(old.row());
        if (row == rowBefore.constEnd()) {
            const auto position = m_editing.chapterManager().indexOfChapter(previousOrder.at(old.row()));
            row = rowBefore.insert(old.row(), int(position.value_or(0)));
        }
        after.append(index(*row, old.column()));
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

const ZLChapterSequence& ZLChapterTableModel::chapters() const
{
    return m_editing.chapterManager().chapters();
}

QString ZLChapterTableModel::textAt(const QModelIndex& index) const
{
    const ZLChapter& chapter = *chapters().at(index.row());
    switch (index.column()) {
    case NumberColumn:
        return QString::number(index.row() + 1);
    case TimeColumn:
        return timeText(chapter);
    case DurationColumn:
        return durationText(index.row());
    case TitleColumn:
        return chapter.title();
    case LinkColumn:
        return chapter.link();
    default:
        return {};
    }
}

QString ZLChapterTableModel::timeText(const ZLChapter& chapter) const
{
    return ZLSettingsManager::showAbsoluteTime() ? ZLTimeEntry::textFromDate(chapter.realDate()) : chapter.timeString();
}

QString ZLChapterTableModel::durationText(int row) const
{
    if (row + 1 >= rowCount())
        return {};
    return chapters().at(row)->durationToNextChapter(*chapters().at(row + 1));
}

QVariant ZLChapterTableModel::toolTipAt(const QModelIndex& index) const
{
    const ZLChapter& chapter = *chapters().at(index.row());
    // A file may hold an enabled one, which is exported all the same.
    if (chapter.timeStamp() < 0.0 && !chapter.isEnabled())
        return tr("This chapter lies before the start of the recording and is not exported.");
    if (index.column() == EnabledColumn)
        return chapter.isEnabled() ? tr("This chapter is exported.") : tr("This chapter is not exported.");
    if (index.column() == LinkColumn && !chapter.link().isEmpty())
        // Plain text that looks like markup would be shown as markup.
        return u"<p>%1<br>%2</p>"_s.arg(
            ZLShownText::shortened(chapter.link()).toHtmlEscaped(), tr("Ctrl+click opens the link."));
    return {};
}

bool ZLChapterTableModel::editChapter(const ZLChapterPointer& chapter, int column, const QVariant& value)
{
    switch (column) {
    case EnabledColumn:
        m_editing.updateChapterToEnabledState(chapter, value.toInt() != Qt::Unchecked);
        return true;
    case TimeColumn:
        return editTime(chapter, value.toString());
    case TitleColumn:
        m_editing.updateChapterToTitle(chapter, value.toString());
        return true;
    case LinkColumn:
        m_editing.updateChapterToLink(chapter, value.toString());
        return true;
    default:
        return false;
    }
}

bool ZLChapterTableModel::editTime(const ZLChapterPointer& chapter, const QString& text)
{
    if (ZLSettingsManager::showAbsoluteTime()) {
        // What was shown and left as it is changes nothing, although a text may stand for two moments in autumn.
        if (text == ZLTimeEntry::textFromDate(chapter->realDate()))
            return true;
        const qint64 shift = chapter->realDate().msecsTo(ZLTimeEntry::dateFromText(text));
        m_editing.updateChapterToTime(chapter, double(shift) / 1000.0 + chapter->timeStamp());
        return true;
    }
    const auto seconds = ZLTimeEntry::secondsFromText(text);
    if (!seconds) {
        m_editing.refuseTime(chapter, text);
        return false;
    }
    m_editing.updateChapterToTime(chapter, *seconds);
    return true;
}
