#include "templates/ZLTemplatesViewController.h"

#include "templates/ZLOutlineImport.h"

#include <algorithm>

ZLTemplatesViewController::ZLTemplatesViewController(ZLTemplatesViewControllerDelegate* delegate, QObject* parent)
    : QObject(parent)
    , m_delegate(delegate)
    , m_tableModel(m_chapterManager)
    , m_selectionModel(&m_tableModel)
{
    m_chapterManager.setWantsSortedChapters(false);
    connect(
        &m_tableModel, &ZLTemplatesTableModel::didEditCell, this, &ZLTemplatesViewController::templateDidChangeInPlace);
    connect(&m_tableModel, &ZLTemplatesTableModel::didDropRow, this, &ZLTemplatesViewController::moveTemplate);
    // The document takes templates out of the list and puts them back by itself.
    const auto keepSelection = [this](const QModelIndex&, int row) { selectRowIfNoneIs(row); };
    connect(&m_tableModel, &QAbstractItemModel::rowsInserted, this, keepSelection);
    connect(&m_tableModel, &QAbstractItemModel::rowsRemoved, this, keepSelection);
}

void ZLTemplatesViewController::loadChapters(const QVariantList& savedChapters)
{
    m_chapterManager.loadChapters(savedChapters);
    // A view forgets the selection when everything is replaced, so it is set after all views have heard of that.
    selectRowIfNoneIs(0);
}

QVariantList ZLTemplatesViewController::chaptersForSaving()
{
    return m_chapterManager.chaptersForSaving();
}

qsizetype ZLTemplatesViewController::selectedRow() const
{
    const QItemSelection selection = m_selectionModel.selection();
    return selection.isEmpty() ? -1 : selection.constFirst().top();
}

void ZLTemplatesViewController::addChapterButtonPressed()
{
    tellDelegateBefore();
    const auto chapter = std::make_shared<ZLChapter>();
    const qsizetype selected = selectedRow();
    const qsizetype row = selected < 0 ? m_chapterManager.count() : selected + 1;
    m_chapterManager.insertChapterAtIndex(chapter, row);
    selectRow(row);
    Q_EMIT wantsEditing(m_tableModel.index(int(row), ZLTemplatesTableModel::TitleColumn));
    tellDelegate();
}

void ZLTemplatesViewController::removeChapterButtonPressed()
{
    const qsizetype row = selectedRow();
    if (row < 0)
        return;
    tellDelegateBefore();
    m_chapterManager.removeChapterAtIndex(row);
    tellDelegate();
}

void ZLTemplatesViewController::importFromPasteboard(const QStringList& plainTexts)
{
    tellDelegateBefore();
    for (const QString& text : plainTexts) {
        const ZLChapterSequence chapters = ZLOutlineImport::chaptersInText(text);
        for (const ZLChapterPointer& chapter : chapters)
            m_chapterManager.addChapter(chapter);
    }
    tellDelegate();
}

void ZLTemplatesViewController::moveTemplate(qsizetype row, qsizetype gap)
{
    const ZLChapterPointer chapter = m_chapterManager.chapterAtIndex(row);
    if (!chapter || gap < 0 || gap > m_chapterManager.count())
        return;
    tellDelegateBefore();
    // Taking the template out moves the rows behind it up by one.
    const qsizetype target = row < gap ? gap - 1 : gap;
    m_chapterManager.removeChapterAtIndex(row);
    m_chapterManager.insertChapterAtIndex(chapter, target);
    selectRow(target);
    tellDelegate();
}

void ZLTemplatesViewController::selectRow(qsizetype row)
{
    m_selectionModel.setCurrentIndex(m_tableModel.index(int(row), ZLTemplatesTableModel::TitleColumn),
        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ZLTemplatesViewController::selectRowIfNoneIs(qsizetype row)
{
    if (selectedRow() < 0 && m_chapterManager.count() > 0)
        selectRow(std::min(row, m_chapterManager.count() - 1));
}

void ZLTemplatesViewController::tellDelegateBefore()
{
    if (m_delegate)
        m_delegate->templatesViewControllerWillUpdateChapters(*this);
}

void ZLTemplatesViewController::tellDelegate()
{
    if (m_delegate)
        m_delegate->templatesViewControllerDidUpdateChapters(*this);
}
