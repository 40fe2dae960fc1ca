#pragma once

#include "templates/ui/ZLTextCellDelegate.h"

#include <QLineEdit>
#include <QPersistentModelIndex>
#include <QPointer>

/// Paints and edits the cells of the chapter table. Return commits, Escape cancels, Tab and Shift+Tab go on to the next
/// and the previous editable cell.
class ZLChapterCellDelegate : public ZLTextCellDelegate {
    Q_OBJECT

public:
    using ZLTextCellDelegate::ZLTextCellDelegate;

    /// The field that is open for typing, or null.
    [[nodiscard]] QLineEdit* openField() const { return m_openField; }
    /// The cell that it edits.
    [[nodiscard]] QModelIndex openIndex() const;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool filterKey(QLineEdit* field, QEvent* event);

    mutable QPointer<QLineEdit> m_openField;
    mutable QPersistentModelIndex m_openIndex;
};
