#include "document/ZLChapterDocument.h"

#include "settings/ZLSettingsManager.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString createChapterActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Create Chapter"));
const QString deleteChapterActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Delete Chapter"));
const QString removeChapterActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Remove Chapter"));
const QString moveChaptersActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Move Chapters"));
const QString changeEnabledActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Change Enabled"));
const QString changeTitleActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Change Title"));
const QString changeLinkActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Change Link"));
const QString changeTimeActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Change Time"));

/// Whether both are the very same text object. Equal text that was typed anew is another one.
bool isSameTextObject(const QString& left, const QString& right)
{
    return left.constData() == right.constData() && left.size() == right.size() && left.isNull() == right.isNull();
}

}

void ZLChapterDocument::addChapterButtonPressed()
{
    if (!isRecording() || m_undoManager.isUndoing() || m_undoManager.isRedoing())
        return;
    // Before the stamp, so that a mark right after waking up lies after the sleep.
    noticeSleep();
    if (addButtonFace() == ZLAddButtonFace::Next) {
        addFirstChapterFromTemplates();
        return;
    }
    addNewBlankChapter();
    if (!m_environment.isApplicationActive() && ZLSettingsManager::showQuickEdit())
        notifyOfNewChapter();
}

void ZLChapterDocument::addFirstChapterFromTemplates()
{
    Q_EMIT typedTextShouldBeCommitted();
    const ZLUndoGroup group(m_undoManager);
    ZLChapterManager& templates = m_templateViewController.chapterManager();
    const ZLChapterPointer chapter = templates.chapterAtIndex(0);
    if (!chapter)
        return;
    if (chapter->timeStamp() == 0.0)
        stampWithClock(*chapter);
    _realAddChapter(chapter);
    templates.removeChapter(chapter);
    m_undoManager.registerStep([this, chapter] { readdFirstChapterToTemplates(chapter); });
    m_undoManager.setActionName(createChapterActionName);
}

void ZLChapterDocument::readdFirstChapterToTemplates(ZLChapterPointer chapter)
{
    announceGoing(chapter);
    const ZLUndoGroup group(m_undoManager);
    m_templateViewController.chapterManager().insertChapterAtIndex(chapter, 0);
    _realRemoveChapter(chapter);
    m_undoManager.registerStep([this] { addFirstChapterFromTemplates(); });
    m_undoManager.setActionName(removeChapterActionName);
}

void ZLChapterDocument::addNewBlankChapter()
{
    const auto chapter = std::make_shared<ZLChapter>();
    stampWithClock(*chapter);
    addChapter(chapter);
}

void ZLChapterDocument::addChapter(ZLChapterPointer chapter)
{
    Q_EMIT typedTextShouldBeCommitted();
    const ZLUndoGroup group(m_undoManager);
    _realAddChapter(chapter);
    m_undoManager.registerStep([this, chapter] { removeChapter(chapter); });
    m_undoManager.setActionName(createChapterActionName);
}

void ZLChapterDocument::deleteButtonPressed()
{
    if (const ZLChapterPointer chapter = m_chapterManager.chapterAtIndex(selectedRow()))
        removeChapter(chapter);
}

void ZLChapterDocument::deleteLastChapter()
{
    if (const ZLChapterPointer chapter = m_chapterManager.lastChapter())
        removeChapter(chapter);
}

void ZLChapterDocument::removeChapter(ZLChapterPointer chapter)
{
    announceGoing(chapter);
    Q_EMIT typedTextShouldBeCommitted();
    const ZLUndoGroup group(m_undoManager);
    _realRemoveChapter(chapter);
    m_undoManager.registerStep([this, chapter] { addChapter(chapter); });
    m_undoManager.setActionName(deleteChapterActionName);
}

void ZLChapterDocument::selectLastChapter()
{
    if (selectedRow() >= 1)
        selectRow(selectedRow() - 1);
}

void ZLChapterDocument::selectNextChapter()
{
    if (selectedRow() + 1 < m_chapterManager.count())
        selectRow(selectedRow() + 1);
}

void ZLChapterDocument::editCurrentTitle()
{
    editSelectedRow(u"title"_s);
}

void ZLChapterDocument::editCurrentLink()
{
    editSelectedRow(u"link"_s);
}

void ZLChapterDocument::moveChaptersByMilliseconds(float milliseconds)
{
    if (!std::isfinite(milliseconds))
        return;
    const ZLUndoGroup group(m_undoManager);
    const double delta = double(milliseconds / 1000.0F);
    ZLChapterSequence beforeStart;
    const ZLChapterSequence chapters = m_chapterManager.allChapters();
    for (const auto& chapter : chapters) {
        chapter->setTimeStamp(chapter->timeStamp() + delta);
        if (chapter->timeStamp() < 0.0)
            beforeStart.append(chapter);
    }
    // All of them in one step: refreshing once a chapter would make a long list crawl.
    setEnabledStates(beforeStart, false);
    noteEdit(ZLDocumentChange::Times, {});
    m_undoManager.registerStep([this, milliseconds] { moveChaptersByMilliseconds(-milliseconds); });
    m_undoManager.setActionName(moveChaptersActionName);
}

void ZLChapterDocument::updateChapterToEnabledState(ZLChapterPointer chapter, bool enabled)
{
    setEnabledStates({ chapter }, enabled);
}

void ZLChapterDocument::updateChapterToTitle(ZLChapterPointer chapter, const QString& title)
{
    const QString oldTitle = chapter->title();
    if (isSameTextObject(title, oldTitle))
        return;
    const ZLUndoGroup group(m_undoManager);
    m_undoManager.registerStep([this, chapter, oldTitle] { updateChapterToTitle(chapter, oldTitle); });
    m_undoManager.setActionName(changeTitleActionName);
    chapter->setTitle(title);
    noteEdit(ZLDocumentChange::Texts, { chapter });
}

void ZLChapterDocument::updateChapterToLink(ZLChapterPointer chapter, const QString& link)
{
    const QString oldLink = chapter->link();
    if (isSameTextObject(link, oldLink))
        return;
    const ZLUndoGroup group(m_undoManager);
    m_undoManager.registerStep([this, chapter, oldLink] { updateChapterToLink(chapter, oldLink); });
    m_undoManager.setActionName(changeLinkActionName);
    chapter->setLink(link);
    noteEdit(ZLDocumentChange::Texts, { chapter });
}

void ZLChapterDocument::updateChapterToTime(ZLChapterPointer chapter, double seconds)
{
    const double oldTime = chapter->timeStamp();
    if (seconds == oldTime)
        return;
    const ZLUndoGroup group(m_undoManager);
    m_undoManager.registerStep([this, chapter, oldTime] { updateChapterToTime(chapter, oldTime); });
    m_undoManager.setActionName(changeTimeActionName);
    chapter->setTimeStamp(seconds);
    if (seconds < 0.0)
        updateChapterToEnabledState(chapter, false);
    chapter->moveDate(seconds - oldTime);
    noteEdit(ZLDocumentChange::Times, { chapter });
}

void ZLChapterDocument::showAbsoluteTimePressed()
{
    ZLSettingsManager::setShowAbsoluteTime(!ZLSettingsManager::showAbsoluteTime());
}

void ZLChapterDocument::_realAddChapter(const ZLChapterPointer& chapter)
{
    m_chapterManager.addChapter(chapter);
    updateInterfaceForNewChapter(chapter);
}

void ZLChapterDocument::_realRemoveChapter(const ZLChapterPointer& chapter)
{
    const auto index = m_chapterManager.indexOfChapter(chapter);
    const int selected = selectedRow();
    m_chapterManager.removeChapter(chapter);
    if (!index || m_chapterManager.count() == 0)
        return;
    const int wanted = std::max(int(*index) - (selected >= *index ? 1 : 0), 0);
    if (wanted < m_chapterManager.count())
        selectRow(wanted);
    else if (selectedRow() < 0) // Otherwise one past the end: the selection stays where it was.
        selectRow(int(m_chapterManager.count()) - 1);
}

void ZLChapterDocument::announceGoing(const ZLChapterPointer& chapter)
{
    if (const auto index = m_chapterManager.indexOfChapter(chapter))
        Q_EMIT chapterIsAboutToGo(int(*index));
}

void ZLChapterDocument::stampWithClock(ZLChapter& chapter) const
{
    chapter.setTimeStamp(currentDuration());
    chapter.setRealDate(m_environment.wallClock());
}

void ZLChapterDocument::notifyOfNewChapter()
{
    const ZLChapterPointer last = m_chapterManager.lastChapter();
    m_environment.notificationCenter->deliverNotification({
        .title = tr("New Chapter Added"),
        .subtitle = last->timeString(),
        .informativeText = tr("Press Reply to quickly set a title"),
        .hasActionButton = true,
        .hasReplyButton = true,
        .responsePlaceholder = tr("Chapter title"),
        .userInfo = { { ZLUserInfoKey::ChapterUUID, last->uuid() } },
    });
}

void ZLChapterDocument::updateInterfaceForNewChapter(const ZLChapterPointer& chapter)
{
    selectRow(int(m_chapterManager.indexOfChapter(chapter).value_or(0)));
    if (m_environment.isApplicationActive())
        editCurrentTitle();
}

void ZLChapterDocument::setEnabledStates(const ZLChapterSequence& chapters, bool enabled)
{
    ZLChapterSequence changing;
    std::copy_if(chapters.cbegin(), chapters.cend(), std::back_inserter(changing),
        [enabled](const ZLChapterPointer& chapter) { return chapter->isEnabled() != enabled; });
    if (changing.isEmpty())
        return;
    const ZLUndoGroup group(m_undoManager);
    m_undoManager.registerStep([this, changing, enabled] { setEnabledStates(changing, !enabled); });
    m_undoManager.setActionName(changeEnabledActionName);
    for (const auto& chapter : std::as_const(changing))
        chapter->setEnabled(enabled);
    noteEdit(ZLDocumentChange::EnabledStates, changing);
}

void ZLChapterDocument::editSelectedRow(const QString& columnIdentifier)
{
    const int row = selectedRow();
    if (row < 0)
        return;
    int found = 0;
    for (int column = 0; column < m_tableModel.columnCount(); ++column) {
        if (ZLChapterTableModel::columnIdentifier(column) == columnIdentifier)
            found = column;
    }
    Q_EMIT wantsEditing(m_tableModel.index(row, found));
}
