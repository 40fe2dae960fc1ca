#include "templates/ZLTemplatesTableModel.h"

#include "platform/ZLShownText.h"

#include <QMimeData>

#include <optional>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// The private drag type: the dragged rows as decimal numbers with spaces between them, in ascending order.
const QString dragType = QStringLiteral("ZLTableViewDataType");

/// Only the first of the dragged rows moves.
std::optional<int> firstDraggedRow(const QMimeData& data)
{
    bool isNumber = false;
    const int row = data.data(dragType).split(' ').constFirst().toInt(&isNumber);
    return isNumber ? std::optional(row) : std::nullopt;
}

/// Tool tips take markup; a template's text is none.
QString plainToolTip(const QString& text)
{
    return text.isEmpty() ? QString() : u"<span>%1</span>"_s.arg(text.toHtmlEscaped());
}

}

ZLTemplatesTableModel::ZLTemplatesTableModel(ZLChapterManager& chapterManager, QObject* parent)
    : QAbstractTableModel(parent)
    , m_chapterManager(chapterManager)
{
    followChapters();
}

void ZLTemplatesTableModel::reload()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

int ZLTemplatesTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_chapterManager.count());
}

int ZLTemplatesTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant ZLTemplatesTableModel::data(const QModelIndex& index, int role) const
{
    const ZLChapter* chapter = chapterAt(index);
    if (!chapter)
        return {};
    const QString& text = index.column() == TitleColumn ? chapter->title() : chapter->link();
    switch (role) {
    case Qt::DisplayRole:
        return ZLShownText::shortened(text);
    case Qt::EditRole:
        return text;
    case Qt::ToolTipRole:
        return plainToolTip(ZLShownText::shortened(text));
    default:
        return {};
    }
}

bool ZLTemplatesTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!chapterAt(index) || role != Qt::EditRole)
        return false;
    ZLChapter& chapter = *m_chapterManager.chapters().at(index.row());
    // What was typed is never absent: a null text would keep the later fields out of the file.
    const QString typed = value.toString();
    const QString text = typed.isNull() ? u""_s : typed;
    const QString& oldText = index.column() == TitleColumn ? chapter.title() : chapter.link();
    if (text == oldText && !oldText.isNull())
        return true;
    if (index.column() == TitleColumn)
        chapter.setTitle(text);
    else
        chapter.setLink(text);
    Q_EMIT dataChanged(index, index);
    Q_EMIT didEditCell();
    return true;
}

QVariant ZLTemplatesTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QStringList { tr("Title"), tr("Link") }.value(section);
}

Qt::ItemFlags ZLTemplatesTableModel::flags(const QModelIndex& index) const
{
    // Only what lies between the rows takes a drop, so the rows themselves are no targets.
    if (!chapterAt(index))
        return Qt::ItemIsDropEnabled;
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

Qt::DropActions ZLTemplatesTableModel::supportedDropActions() const
{
    return Qt::MoveAction;
}

QStringList ZLTemplatesTableModel::mimeTypes() const
{
    return { dragType };
}

QMimeData* ZLTemplatesTableModel::mimeData(const QModelIndexList& indexes) const
{
    std::set<int> rows;
    for (const QModelIndex& index : indexes)
        rows.insert(index.row());
    if (rows.empty())
        return nullptr;
    QByteArrayList numbers;
    for (const int row : rows)
        numbers.append(QByteArray::number(row));
    auto data = std::make_unique<QMimeData>();
    data->setData(dragType, numbers.join(' '));
    return data.release();
}

bool ZLTemplatesTableModel::canDropMimeData(
    const QMimeData* data, Qt::DropAction action, int row, int column, const QModelIndex& parent) const
{
    Q_UNUSED(action);
    Q_UNUSED(column);
    if (!data || parent.isValid() || row > rowCount())
        return false;
    const auto draggedRow = firstDraggedRow(*data);
    return draggedRow && *draggedRow >= 0 && *draggedRow < rowCount();
}

bool ZLTemplatesTableModel::dropMimeData(
    const QMimeData* data, Qt::DropAction action, int row, int column, const QModelIndex& parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    Q_EMIT didDropRow(*firstDraggedRow(*data), row < 0 ? rowCount() : row);
    return true;
}

void ZLTemplatesTableModel::followChapters()
{
    const ZLChapterManager& chapters = m_chapterManager;
    connect(&chapters, &ZLChapterManager::willInsertChapterAtIndex, this,
        [this](qsizetype row) { beginInsertRows({}, int(row), int(row)); });
    connect(&chapters, &ZLChapterManager::didInsertChapterAtIndex, this, [this] { endInsertRows(); });
    connect(&chapters, &ZLChapterManager::willRemoveChapterAtIndex, this,
        [this](qsizetype row) { beginRemoveRows({}, int(row), int(row)); });
    connect(&chapters, &ZLChapterManager::didRemoveChapterAtIndex, this, [this] { endRemoveRows(); });
    connect(&chapters, &ZLChapterManager::willReplaceChapters, this, [this] { beginResetModel(); });
    connect(&chapters, &ZLChapterManager::didReplaceChapters, this, [this] { endResetModel(); });
}

const ZLChapter* ZLTemplatesTableModel::chapterAt(const QModelIndex& index) const
{
    const bool isCell = index.isValid() && index.row() < rowCount();
    return isCell ? m_chapterManager.chapters().at(index.row()).get() : nullptr;
}
