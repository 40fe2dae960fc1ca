#pragma once

#include "model/ZLChapter.h"

#include <QAbstractTableModel>

/// The chapters that an import will bring: time, title and link of each.
class ZLImportRowsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { TimeColumn, TitleColumn, LinkColumn, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void setChapters(const ZLChapterSequence& chapters);
    [[nodiscard]] bool hasLinks() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(
        int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    ZLChapterSequence m_chapters;
};
