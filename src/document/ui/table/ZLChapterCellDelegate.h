#pragma once

#include "document/ui/table/ZLCellTexts.h"
#include "templates/ui/ZLTextCellDelegate.h"

#include <QLineEdit>
#include <QPersistentModelIndex>
#include <QPointer>

/// Paints and edits the cells of the chapter table. Return commits, Escape cancels, Tab and Shift+Tab go on to the next
/// and the previous editable cell. A time that is not finished stays open while another window has the keyboard.
class ZLChapterCellDelegate : public ZLTextCellDelegate {
    Q_OBJECT

public:
    using ZLTextCellDelegate::ZLTextCellDelegate;

    /// The field that is open for typing, or null.
    [[nodiscard]] QLineEdit* openField() const { return m_openField; }
    /// The cell that it edits.
    [[nodiscard]] QModelIndex openIndex() const;
    /// Whether a time is being typed that is none yet.
    [[nodiscard]] bool isTypingUnfinishedTime() const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;

Q_SIGNALS:
    void fieldDidOpen(int column) const;
    void fieldDidClose() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    mutable ZLCellTexts m_texts;
    mutable QPointer<QLineEdit> m_openField;
    mutable QPersistentModelIndex m_openIndex;
};
