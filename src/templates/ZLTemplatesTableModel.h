#pragma once

#include "model/ZLChapterManager.h"

#include <QAbstractTableModel>

/// The templates as a table with the columns "title" and "link", both editable, and rows that can be dragged into the
/// gaps between rows of the same table.
class ZLTemplatesTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { TitleColumn, LinkColumn, ColumnCount };

    /// `chapterManager` has to outlive the model.
    explicit ZLTemplatesTableModel(ZLChapterManager& chapterManager, QObject* parent = nullptr);

    /// Announces that every cell may show something else.
    void reload();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    [[nodiscard]] QVariant headerData(
        int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
    /// A `row` of -1 outside of any item is the space below the last row: the last gap.
    [[nodiscard]] bool canDropMimeData(
        const QMimeData* data, Qt::DropAction action, int row, int column, const QModelIndex& parent) const override;
    bool dropMimeData(
        const QMimeData* data, Qt::DropAction action, int row, int column, const QModelIndex& parent) override;

Q_SIGNALS:
    /// A title or a link was changed by typing.
    void didEditCell();
    /// The template at `row` was dropped into the gap before `gap`.
    void didDropRow(qsizetype row, qsizetype gap);

private:
    void followChapters();
    [[nodiscard]] const ZLChapter* chapterAt(const QModelIndex& index) const;

    ZLChapterManager& m_chapterManager;
};
