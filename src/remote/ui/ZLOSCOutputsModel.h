#pragma once

#include "remote/ZLOSCController.h"

#include <QAbstractTableModel>

/// The outputs of an OSC controller and how they can be reached. Those the user chose come first and can be edited; the
/// senders that are being answered follow.
class ZLOSCOutputsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { DestinationColumn, StateColumn, ColumnCount };

    /// `controller` has to outlive the model.
    explicit ZLOSCOutputsModel(ZLOSCController& controller, QObject* parent = nullptr);

    /// Each says in a sentence why nothing was changed, nothing when it was.
    /// @{
    [[nodiscard]] QString addOutput(const QString& text);
    [[nodiscard]] QString changeOutput(int row, const QString& text);
    /// @}
    void removeOutput(int row);
    /// False for an answered sender.
    [[nodiscard]] bool isChangeable(int row) const { return row >= 0 && row < m_configured.size(); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

Q_SIGNALS:
    /// What was typed into the table was refused.
    void editWasRefused(const QString& problem);

private:
    struct Row {
        QString destination;
        QString state;
    };

    void update();
    [[nodiscard]] QList<Row> presentRows() const;
    [[nodiscard]] QString problemWith(const std::optional<ZLOSCDestination>& destination, const QString& text) const;

    ZLOSCController& m_controller;
    QList<ZLOSCDestination> m_configured;
    QList<Row> m_rows;
};
