#pragma once

#include "delivery/ZLDeliveryDraft.h"

#include <QAbstractTableModel>

/// The audio files of a draft in rows, each with what is known of it and what became of it.
class ZLDeliveryFilesModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { FileColumn, FormColumn, LengthColumn, StateColumn, ColumnCount };

    /// `draft` has to outlive it.
    explicit ZLDeliveryFilesModel(const ZLDeliveryDraft& draft, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void update();

    const ZLDeliveryDraft& m_draft;
    QStringList m_paths;
};
