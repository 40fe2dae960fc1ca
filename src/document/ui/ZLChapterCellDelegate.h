#pragma once

#include <QLineEdit>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

/// Paints and edits the cells of the chapter table. Return commits, Escape cancels, Tab and Shift+Tab go on to the next
/// and the previous editable cell. Text that nobody typed is never written, so that looking leaves no undo step, and
/// text that somebody is typing is never replaced by what the model says meanwhile.
class ZLChapterCellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The field that is open for typing, or null.
    [[nodiscard]] QLineEdit* openField() const { return m_openField; }
    /// The cell that it edits.
    [[nodiscard]] QModelIndex openIndex() const;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool filterKey(QLineEdit* field, QEvent* event);

    mutable QPointer<QLineEdit> m_openField;
    mutable QPersistentModelIndex m_openIndex;
};
