#pragma once

#include "delivery/fit/ZLFit.h"

#include <QAbstractTableModel>

#include <optional>

/// The chapters of a fit in rows, in the order of the show: where each was, where it is, and how sure that is.
class ZLFitMarksModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { TitleColumn, OldTimeColumn, NewTimeColumn, StateColumn, ConfidenceColumn, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    /// Rows stay while there are as many as before, so that the selected one does.
    void setFit(const std::optional<ZLFit>& fit);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QList<ZLFittedChapter> m_chapters;
};
