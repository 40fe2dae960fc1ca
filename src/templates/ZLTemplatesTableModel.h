#pragma once

#include "model/ZLChapterManager.h"

#include <QAbstractTableModel>

/// The templates as a table with the columns "title" and "link", both editable, and rows that can be dragged.
class ZLTemplatesTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { TitleColumn, LinkColumn, ColumnCount };

    /// `chapterManager` has to outlive the model.
    explicit ZLTemplatesTableModel(ZLChapterManager& chapterManager, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
    [[nodiscard]] bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
        const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
        const QModelIndex& parent) override;

Q_SIGNALS:
    void didEditCell();
    /// The template at `row` was dropped into the gap before `gap`.
    void didDropRow(qsizetype row, qsizetype gap);

private:
    ZLChapterManager& m_chapterManager;
};
