#include "document/ui/table/ZLChapterCellDelegate.h"

#include "document/editing/ZLChapterTableModel.h"
#include "document/editing/ZLTimeEntry.h"
#include "document/ui/table/ZLChapterTableHeader.h"
#include "settings/ZLSettingsManager.h"
#include "templates/ui/ZLQuietColor.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QStyle>

#include <utility>

QModelIndex ZLChapterCellDelegate::openIndex() const
{
    return m_openField ? QModelIndex(m_openIndex) : QModelIndex();
}

bool ZLChapterCellDelegate::isTypingUnfinishedTime() const
{
    const bool isTime = openIndex().isValid() && openIndex().column() == ZLChapterTableModel::TimeColumn;
    return isTime && !ZLSettingsManager::showAbsoluteTime() && !ZLTimeEntry::secondsFromText(m_openField->text());
}

QWidget* ZLChapterCellDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    auto* field = new QLineEdit(parent);
    takeAnyLength(*field);
    field->setFrame(false);
    field->setFont(option.font);
    field->setAutoFillBackground(true);
    field->setObjectName(ZLChapterTableModel::columnIdentifier(index.column()));
    const QString columnName = index.model()->headerData(index.column(), Qt::Horizontal).toString();
    field->setAccessibleName(tr("%1 of chapter %2").arg(columnName).arg(index.row() + 1));
    field->setAlignment(ZLChapterTableHeader::alignmentOf(index.column()));
    m_openField = field;
    m_openIndex = index;
    Q_EMIT fieldDidOpen(index.column());
    return field;
}

void ZLChapterCellDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const
{
    if (editor == m_openField) {
        m_openField = nullptr;
        Q_EMIT fieldDidClose();
    }
    ZLTextCellDelegate::destroyEditor(editor, index);
}

void ZLChapterCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QString text = ZLCellTexts::canDraw(cell) ? std::exchange(cell.text, {}) : QString();
    cell.widget->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
    if (!text.isEmpty())
        m_texts.draw(*painter, cell, text);
}

bool ZLChapterCellDelegate::eventFilter(QObject* watched, QEvent* event)
{
    const bool isWindowLeft =
        event->type() == QEvent::FocusOut && static_cast<QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason;
    // Writing it would bring up an alert. The one that is just closing takes the keyboard along for a moment, too.
    if (isWindowLeft && watched == m_openField && isTypingUnfinishedTime())
        return false;
    return ZLTextCellDelegate::eventFilter(watched, event);
}

void ZLChapterCellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    ZLTextCellDelegate::initStyleOption(option, index);
    option->displayAlignment = ZLChapterTableHeader::alignmentOf(index.column());
    if (index.data(ZLChapterTableModel::ChapterEnabledRole).toBool())
        return;
    const QPalette colors = option->palette;
    option->palette.setColor(QPalette::Text, ZLQuietColor::onBase(colors));
    option->palette.setColor(QPalette::HighlightedText, ZLQuietColor::onHighlight(colors));
}
