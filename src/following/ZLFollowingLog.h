#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QList>

/// What happened between a recorder and the clock, oldest first, as a table: when, and a sentence. It has a bound.
class ZLFollowingLog : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { TimeColumn, EventColumn, ColumnCount };
    static constexpr int MostEntries = 500;

    using QAbstractTableModel::QAbstractTableModel;

    void append(const QDateTime& time, const QString& sentence);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Entry {
        QDateTime time;
        QString sentence;
    };
    QList<Entry> m_entries;
};
