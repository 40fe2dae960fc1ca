#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QList>
#include <QTimer>

#include <functional>

/// One message that came or went, and what became of it. The texts are made for a person.
struct ZLOSCLogEntry {
    enum class Direction { In, Out };

    /// Of the latest one when there were several.
    QDateTime time {};
    Direction direction = Direction::In;
    /// "192.0.2.1:9000", or the program "zelta send".
    QString peer {};
    /// Empty when the datagram was not read.
    QString address {};
    QString value {};
    /// "added a chapter", "ignored: value 0", "sent" …
    QString outcome {};
    /// How many messages the row stands for: repeated status messages share one.
    int count = 1;
    /// It changed nothing here, or did not go out.
    bool isProblem = false;

    bool operator==(const ZLOSCLogEntry&) const = default;
};

/// The last few hundred OSC messages, oldest first. New ones appear a few times a second at most, all at once, so that
/// a flood of messages is no flood of signals. Messages that go out again and again between two that come in share a
/// row, and neither direction can take more than half of a full log from the other.
class ZLOSCLog : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { TimeColumn, DirectionColumn, PeerColumn, AddressColumn, ValueColumn, OutcomeColumn, ColumnCount };

    static constexpr qsizetype Capacity = 400;
    /// ZLOSCLogEntry::isProblem, for every column.
    static constexpr int ProblemRole = Qt::UserRole;

    explicit ZLOSCLog(QObject* parent = nullptr);

    void append(const ZLOSCLogEntry& entry);
    /// Shows at once what has been appended.
    void flush();
    /// While it is held, nothing appears; the latest ones wait.
    void setHeld(bool held);
    [[nodiscard]] bool isHeld() const { return m_isHeld; }
    void clear();

    [[nodiscard]] const QList<ZLOSCLogEntry>& entries() const { return m_entries; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void makeRoom();
    [[nodiscard]] QString textFor(const ZLOSCLogEntry& entry, int column) const;

    QList<ZLOSCLogEntry> m_entries;
    QList<ZLOSCLogEntry> m_pending;
    QTimer m_flushTimer;
    bool m_isHeld = false;
};
