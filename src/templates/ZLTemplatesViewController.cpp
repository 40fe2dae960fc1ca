#include "templates/ZLTemplatesViewController.h"

#include "templates/ZLOutlineImport.h"

#include <algorithm>

namespace {

const QString addTemplateActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Add Template"));
const QString removeTemplateActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Remove Template"));
const QString importTemplatesActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Import Templates"));
const QString moveTemplateActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Move Template"));

ZLChapterSequence chaptersIn(const QStringList& plainTexts, ZLChapterSequence (*chaptersInText)(QStringView))
{
    ZLChapterSequence chapters;
    for (const QString& text : plainTexts)
        chapters.append(chaptersInText(text));
    return chapters;
}

}

ZLTemplatesViewController::ZLTemplatesViewController(
    ZLTemplatesViewControllerDelegate* delegate, ZLUndoManager& undoManager, QObject* parent)
    : QObject(parent)
    , m_delegate(delegate)
    , m_undoManager(undoManager)
    , m_tableModel(m_chapterManager)
    , m_selectionModel(&m_tableModel)
{
    m_chapterManager.setWantsSortedChapters(false);
    connect(
        &m_tableModel, &ZLTemplatesTableModel::didEditCell, this, &ZLTemplatesViewController::templateDidChangeInPlace);
    connect(&m_tableModel, &ZLTemplatesTableModel::didDropRow, this, &ZLTemplatesViewController::moveTemplate);
    connect(&m_undoManager, &ZLUndoManager::historyDidChange, this, [this] { m_isAdditionLastStep = false; });
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

void ZLTemplatesViewController::setTemplates(const ZLChapterSequence& templates)
{
    m_chapterManager.setChapters(templates);
    selectRowIfNoneIs(0);
}

qsizetype ZLTemplatesViewController::selectedRow() const
{
    const QItemSelection selection = m_selectionModel.selection();
    return selection.isEmpty() ? -1 : selection.constFirst().top();
}

void ZLTemplatesViewController::addChapterButtonPressed()
{
    tellDelegateBefore();
    const qsizetype selected = selectedRow();
    const qsizetype row = selected < 0 ? m_chapterManager.count() : selected + 1;
    const auto chapter = std::make_shared<ZLChapter>();
    insertTemplates({ chapter }, row, addTemplateActionName);
    selectRow(row);
    Q_EMIT wantsEditing(m_tableModel.index(int(row), ZLTemplatesTableModel::TitleColumn));
    tellDelegate();
    m_newTemplate = chapter;
    m_isAdditionLastStep = true;
}

void ZLTemplatesViewController::returnPressedInRow(qsizetype row)
{
    if (!takeAwayEmptyNewTemplate(row) && row >= 0 && row + 1 == m_chapterManager.count())
        addChapterButtonPressed();
}

void ZLTemplatesViewController::escapePressedInRow(qsizetype row)
{
    takeAwayEmptyNewTemplate(row);
}

void ZLTemplatesViewController::removeChapterButtonPressed()
{
    if (selectedRow() >= 0)
        removeRow(selectedRow());
}

void ZLTemplatesViewController::importFromPasteboard(const QStringList& plainTexts)
{
    const ZLChapterSequence imported = chaptersIn(plainTexts, ZLOutlineImport::chaptersInText);
    appendImported(imported);
    if (imported.isEmpty())
        Q_EMIT didImportNothing(plainTexts);
}

void ZLTemplatesViewController::importTopicLines(const QStringList& plainTexts)
{
    appendImported(chaptersIn(plainTexts, ZLOutlineImport::chaptersInTopicLines));
}

qsizetype ZLTemplatesViewController::countOfTopicLines(const QStringList& plainTexts)
{
    return chaptersIn(plainTexts, ZLOutlineImport::chaptersInTopicLines).size();
}

void ZLTemplatesViewController::takePastedLines(qsizetype row, const QString& lines)
{
    const ZLChapterPointer chapter = m_chapterManager.chapterAtIndex(row);
    const qsizetype end = lines.indexOf(u'\n');
    if (!chapter || end < 0)
        return;
    const QString line = lines.left(end).trimmed();
    const ZLChapterPointer first = ZLOutlineImport::chaptersInTopicLines(line).value(0, std::make_shared<ZLChapter>());
    const QString title = first->title().isEmpty() ? line : first->title();
    const ZLChapterSequence others = ZLOutlineImport::chaptersInTopicLines(lines.sliced(end + 1));
    const ZLUndoGroup group(m_undoManager);
    tellDelegateBefore();
    exchangeTexts(chapter, title, chapter->link().isEmpty() ? first->link() : chapter->link());
    insertTemplates(others, row + 1, importTemplatesActionName);
    tellDelegate();
    if (!others.isEmpty())
        Q_EMIT didImport(others.size() + 1);
}

void ZLTemplatesViewController::moveTemplate(qsizetype row, qsizetype gap)
{
    const ZLChapterPointer chapter = m_chapterManager.chapterAtIndex(row);
    if (!chapter || gap < 0 || gap > m_chapterManager.count())
        return;
    tellDelegateBefore();
    // Taking the template out moves the rows behind it up by one.
    relocateTemplate(chapter, row < gap ? gap - 1 : gap);
    tellDelegate();
}

void ZLTemplatesViewController::appendImported(const ZLChapterSequence& imported)
{
    tellDelegateBefore();
    if (!imported.isEmpty())
        insertTemplates(imported, m_chapterManager.count(), importTemplatesActionName);
    tellDelegate();
    if (!imported.isEmpty())
        Q_EMIT didImport(imported.size());
}

void ZLTemplatesViewController::insertTemplates(
    const ZLChapterSequence& templates, qsizetype row, const QString& actionName)
{
    for (qsizetype offset = 0; offset < templates.size(); ++offset)
        m_chapterManager.insertChapterAtIndex(templates.at(offset), row + offset);
    registerStep(actionName, [this, templates, row, actionName] { removeTemplates(templates, row, actionName); });
}

void ZLTemplatesViewController::removeTemplates(
    const ZLChapterSequence& templates, qsizetype row, const QString& actionName)
{
    for (qsizetype offset = templates.size() - 1; offset >= 0; --offset)
        m_chapterManager.removeChapterAtIndex(row + offset);
    registerStep(actionName, [this, templates, row, actionName] {
        insertTemplates(templates, row, actionName);
        selectRow(row);
    });
}

void ZLTemplatesViewController::exchangeTexts(
    const ZLChapterPointer& chapter, const QString& title, const QString& link)
{
    const QString formerTitle = chapter->title();
    const QString formerLink = chapter->link();
    chapter->setTitle(title);
    chapter->setLink(link);
    m_tableModel.reload();
    registerStep(importTemplatesActionName,
        [this, chapter, formerTitle, formerLink] { exchangeTexts(chapter, formerTitle, formerLink); });
}

void ZLTemplatesViewController::relocateTemplate(const ZLChapterPointer& chapter, qsizetype row)
{
    const qsizetype formerRow = m_chapterManager.indexOfChapter(chapter).value_or(row);
    if (formerRow != row) {
        m_chapterManager.removeChapterAtIndex(formerRow);
        m_chapterManager.insertChapterAtIndex(chapter, row);
        registerStep(moveTemplateActionName, [this, chapter, formerRow] { relocateTemplate(chapter, formerRow); });
    }
    selectRow(row);
}

void ZLTemplatesViewController::registerStep(const QString& actionName, const std::function<void()>& inverse)
{
    m_undoManager.registerStep([this, inverse] {
        tellDelegateBefore();
        inverse();
        tellDelegate();
    });
    m_undoManager.setActionName(actionName);
}

bool ZLTemplatesViewController::takeAwayEmptyNewTemplate(qsizetype row)
{
    const ZLChapterPointer chapter = m_chapterManager.chapterAtIndex(row);
    if (!chapter || chapter != m_newTemplate.lock() || !chapter->title().isEmpty() || !chapter->link().isEmpty())
        return false;
    m_newTemplate.reset();
    // What came to nothing is no step to undo.
    if (m_isAdditionLastStep)
        m_undoManager.undo();
    else
        removeRow(row);
    return true;
}

void ZLTemplatesViewController::removeRow(qsizetype row)
{
    tellDelegateBefore();
    removeTemplates({ m_chapterManager.chapterAtIndex(row) }, row, removeTemplateActionName);
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
