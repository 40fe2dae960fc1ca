#pragma once

#include "platform/media/ZLMediaChapter.h"

#include <QAbstractTableModel>

/// The chapters of an audio file in rows, to look at.
class ZLMediaChaptersModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { TimeColumn, TitleColumn, LinkColumn, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void setChapters(const ZLMediaChapters& chapters);
    [[nodiscard]] bool hasLinks() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    ZLMediaChapters m_chapters;
};
