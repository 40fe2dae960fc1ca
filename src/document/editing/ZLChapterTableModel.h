#pragma once

#include "document/shared/ZLDocumentChange.h"
#include "model/ZLChapterManager.h"

#include <QAbstractTableModel>

class ZLChapterEditing;

/// A document's chapters as a table, one row a chapter in list order. Edits become undoable commands.
/// Rows follow the chapter list step by step, so that a change costs the same whatever the length of the list.
class ZLChapterTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { NumberColumn, EnabledColumn, TimeColumn, DurationColumn, TitleColumn, LinkColumn, ColumnCount };

    /// Whether the row's chapter takes part in exports (bool), for dimming.
    static constexpr int ChapterEnabledRole = Qt::UserRole;

    /// `editing` owns the model.
    explicit ZLChapterTableModel(ZLChapterEditing& editing);

    /// "number", "enabled", "time", "duration", "title" or "link"; empty for any other column.
    [[nodiscard]] static QString columnIdentifier(int column);

    /// Announces the cells that show something else after `change`, those of an edited chapter alone. Rows that come,
    /// go and move announce themselves.
    void showChange(const ZLDocumentChange& change);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void followRowsOf(const ZLChapterManager& chapters);
    void followOrderOf(const ZLChapterManager& chapters);
    void refreshAllRows();
    void refreshRowOf(const ZLChapterPointer& chapter, const ZLDocumentChange& change);
    void refreshCell(int row, int column);
    void refreshNeighboursOf(int row);
    /// After one row moved: those in between have other numbers, and the one before another duration.
    void refreshRowsBetween(int from, int to);
    void restorePersistentRows(const ZLChapterSequence& previousOrder);
    /// The chapter in the list as it stands: painting a cell never sorts.
    [[nodiscard]] const ZLChapterSequence& chapters() const;
    [[nodiscard]] QString textAt(const QModelIndex& index) const;
    [[nodiscard]] QString timeText(const ZLChapter& chapter) const;
    [[nodiscard]] QString durationText(int row) const;
    [[nodiscard]] QVariant toolTipAt(const QModelIndex& index) const;
    bool editChapter(const ZLChapterPointer& chapter, int column, const QVariant& value);
    bool editTime(const ZLChapterPointer& chapter, const QString& text);

    ZLChapterEditing& m_editing;
};
