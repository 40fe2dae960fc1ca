#include "document/editing/ZLChapterEditing.h"

#include "document/recording/ZLRecording.h"
#include "document/shared/ZLChapterMoves.h"
#include "settings/ZLSettingsManager.h"
#include "templates/ZLTemplatesViewController.h"

#include <QCoreApplication>

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

ZLChapterEditing::ZLChapterEditing(ZLDocumentBasis& basis, ZLRecording& recording, ZLTemplatesViewController& templates)
    : m_basis(basis)
    , m_recording(recording)
    , m_templates(templates)
    , m_tableModel(*this)
    , m_selection(m_tableModel)
{
    connect(&basis.changes, &ZLDocumentChanges::changed, &m_tableModel, &ZLChapterTableModel::showChange);
    connect(&m_selection.model(), &QItemSelectionModel::selectionChanged, this,
        [this] { m_basis.changes.note(ZLDocumentChange::Selection); });
}

QString ZLChapterEditing::lastChapterAgeText()
{
    const ZLChapterPointer last = m_basis.chapters.lastChapter();
    return last ? last->durationToTimestamp(m_recording.clock().currentDuration()) : QString();
}

ZLAddButtonFace ZLChapterEditing::addButtonFace()
{
    const bool hasTemplates = m_templates.chapterManager().count() > 0;
    return hasTemplates && !m_basis.environment.isOptionKeyHeld() ? ZLAddButtonFace::Next : ZLAddButtonFace::Add;
}

bool ZLChapterEditing::canAddChapter() const
{
    return m_recording.clock().isRunning();
}

void ZLChapterEditing::addChapterButtonPressed()
{
    if (!canAddChapter() || m_basis.undoManager.isUndoing() || m_basis.undoManager.isRedoing())
        return;
    // Before the stamp, so that a mark right after waking up lies after the sleep.
    m_recording.sleptTime().noticeSleep();
    if (addButtonFace() == ZLAddButtonFace::Next) {
        addFirstChapterFromTemplates();
        return;
    }
    addNewBlankChapter();
    if (!m_basis.environment.isApplicationActive() && ZLSettingsManager::showQuickEdit())
        notifyOfNewChapter();
}

void ZLChapterEditing::addFirstChapterFromTemplates()
{
    Q_EMIT m_basis.typing.typedTextShouldBeCommitted();
    const ZLUndoGroup group(m_basis.undoManager);
    ZLChapterManager& templates = m_templates.chapterManager();
    const ZLChapterPointer chapter = templates.chapterAtIndex(0);
    if (!chapter)
        return;
    if (chapter->timeStamp() == 0.0)
        stampWithClock(*chapter);
    _realAddChapter(chapter);
    templates.removeChapter(chapter);
    m_basis.undoManager.registerStep([this, chapter] { readdFirstChapterToTemplates(chapter); });
    m_basis.undoManager.setActionName(createChapterActionName);
}

void ZLChapterEditing::readdFirstChapterToTemplates(ZLChapterPointer chapter)
{
    announceGoing(chapter);
    const ZLUndoGroup group(m_basis.undoManager);
    m_templates.chapterManager().insertChapterAtIndex(chapter, 0);
    _realRemoveChapter(chapter);
    m_basis.undoManager.registerStep([this] { addFirstChapterFromTemplates(); });
    m_basis.undoManager.setActionName(removeChapterActionName);
}

void ZLChapterEditing::addNewBlankChapter()
{
    const auto chapter = std::make_shared<ZLChapter>();
    stampWithClock(*chapter);
    addChapter(chapter);
}

void ZLChapterEditing::addChapter(ZLChapterPointer chapter)
{
    Q_EMIT m_basis.typing.typedTextShouldBeCommitted();
    const ZLUndoGroup group(m_basis.undoManager);
    _realAddChapter(chapter);
    m_basis.undoManager.registerStep([this, chapter] { removeChapter(chapter); });
    m_basis.undoManager.setActionName(createChapterActionName);
}

void ZLChapterEditing::deleteButtonPressed()
{
    if (const ZLChapterPointer chapter = m_basis.chapters.chapterAtIndex(m_selection.row()))
        removeChapter(chapter);
}

void ZLChapterEditing::deleteLastChapter()
{
    if (const ZLChapterPointer chapter = m_basis.chapters.lastChapter())
        removeChapter(chapter);
}

void ZLChapterEditing::removeChapter(ZLChapterPointer chapter)
{
    announceGoing(chapter);
    Q_EMIT m_basis.typing.typedTextShouldBeCommitted();
    const ZLUndoGroup group(m_basis.undoManager);
    _realRemoveChapter(chapter);
    m_basis.undoManager.registerStep([this, chapter] { addChapter(chapter); });
    m_basis.undoManager.setActionName(deleteChapterActionName);
}

void ZLChapterEditing::editCurrentTitle()
{
    editSelectedRow(u"title"_s);
}

void ZLChapterEditing::editCurrentLink()
{
    editSelectedRow(u"link"_s);
}

void ZLChapterEditing::moveChaptersByMilliseconds(float milliseconds)
{
    if (!std::isfinite(milliseconds))
        return;
    const ZLUndoGroup group(m_basis.undoManager);
    const double delta = double(milliseconds / 1000.0F);
    m_basis.chapters.moveTimes(delta);
    const ZLChapterSequence chapters = m_basis.chapters.allChapters();
    rememberMove(chapters, delta);
    const auto start =
        std::ranges::find_if(chapters, [](const ZLChapterPointer& chapter) { return !(chapter->timeStamp() < 0.0); });
    // All of them in one step: refreshing once a chapter would make a long list crawl.
    setEnabledStates(chapters.first(start - chapters.begin()), false);
    m_basis.noteEdit(ZLDocumentChange::Times, {});
    m_basis.undoManager.registerStep([this, milliseconds] { moveChaptersByMilliseconds(-milliseconds); });
    m_basis.undoManager.setActionName(moveChaptersActionName);
}

void ZLChapterEditing::updateChapterToEnabledState(ZLChapterPointer chapter, bool enabled)
{
    setEnabledStates({ chapter }, enabled);
}

void ZLChapterEditing::updateChapterToTitle(ZLChapterPointer chapter, const QString& title)
{
    const QString oldTitle = chapter->title();
    if (isSameTextObject(title, oldTitle))
        return;
    const ZLUndoGroup group(m_basis.undoManager);
    m_basis.undoManager.registerStep([this, chapter, oldTitle] { updateChapterToTitle(chapter, oldTitle); });
    m_basis.undoManager.setActionName(changeTitleActionName);
    chapter->setTitle(title);
    m_basis.noteEdit(ZLDocumentChange::Texts, { chapter });
}

void ZLChapterEditing::updateChapterToLink(ZLChapterPointer chapter, const QString& link)
{
    const QString oldLink = chapter->link();
    if (isSameTextObject(link, oldLink))
        return;
    const ZLUndoGroup group(m_basis.undoManager);
    m_basis.undoManager.registerStep([this, chapter, oldLink] { updateChapterToLink(chapter, oldLink); });
    m_basis.undoManager.setActionName(changeLinkActionName);
    chapter->setLink(link);
    m_basis.noteEdit(ZLDocumentChange::Texts, { chapter });
}

void ZLChapterEditing::updateChapterToTime(ZLChapterPointer chapter, double seconds)
{
    const double oldTime = chapter->timeStamp();
    if (seconds == oldTime)
        return;
    const ZLUndoGroup group(m_basis.undoManager);
    m_basis.undoManager.registerStep([this, chapter, oldTime] { updateChapterToTime(chapter, oldTime); });
    m_basis.undoManager.setActionName(changeTimeActionName);
    chapter->setTimeStamp(seconds);
    if (seconds < 0.0)
        updateChapterToEnabledState(chapter, false);
    chapter->moveDate(seconds - oldTime);
    m_basis.noteEdit(ZLDocumentChange::Times, { chapter });
}

bool ZLChapterEditing::takeTypedEntry(const std::function<bool()>& entry)
{
    const ZLUndoGroup group(m_basis.undoManager);
    m_basis.changes.note(ZLDocumentChange::Reminder);
    return entry();
}

void ZLChapterEditing::refuseTime(const ZLChapterPointer& chapter, const QString& text)
{
    Q_EMIT m_basis.typing.invalidTimestampEntered(chapter, text);
}

void ZLChapterEditing::_realReplaceChapters(const ZLChapterSequence& chapters)
{
    m_basis.chapters.setChapters(chapters);
    m_basis.chapters.sortChapters();
    m_selection.selectSomeRow();
    m_basis.changes.note(ZLDocumentChange::Rows);
}

void ZLChapterEditing::_realAddChapter(const ZLChapterPointer& chapter)
{
    m_basis.chapters.addChapter(chapter);
    updateInterfaceForNewChapter(chapter);
}

void ZLChapterEditing::_realRemoveChapter(const ZLChapterPointer& chapter)
{
    const auto index = m_basis.chapters.indexOfChapter(chapter);
    const int selected = m_selection.row();
    m_basis.chapters.removeChapter(chapter);
    if (!index || m_basis.chapters.count() == 0)
        return;
    const int wanted = std::max(int(*index) - (selected >= *index ? 1 : 0), 0);
    if (wanted < m_basis.chapters.count())
        m_selection.selectRow(wanted);
    else if (m_selection.row() < 0) // Otherwise one past the end: the selection stays where it was.
        m_selection.selectRow(int(m_basis.chapters.count()) - 1);
}

void ZLChapterEditing::announceGoing(const ZLChapterPointer& chapter)
{
    if (const auto index = m_basis.chapters.indexOfChapter(chapter))
        Q_EMIT m_basis.typing.chapterIsAboutToGo(int(*index));
}

void ZLChapterEditing::stampWithClock(ZLChapter& chapter) const
{
    chapter.setTimeStamp(m_recording.commandTime().reading());
    chapter.setRealDate(m_recording.commandTime().wallClock());
}

void ZLChapterEditing::notifyOfNewChapter()
{
    const ZLChapterPointer last = m_basis.chapters.lastChapter();
    m_basis.environment.notificationCenter->deliverNotification({
        .title = QCoreApplication::translate("ZLChapterDocument", "New Chapter Added"),
        .subtitle = last->timeString(),
        .informativeText = QCoreApplication::translate("ZLChapterDocument", "Press Reply to quickly set a title"),
        .hasActionButton = true,
        .hasReplyButton = true,
        .responsePlaceholder = QCoreApplication::translate("ZLChapterDocument", "Chapter title"),
        .userInfo = { { ZLUserInfoKey::ChapterUUID, last->uuid() } },
    });
}

void ZLChapterEditing::updateInterfaceForNewChapter(const ZLChapterPointer& chapter)
{
    m_selection.selectRow(int(m_basis.chapters.indexOfChapter(chapter).value_or(0)));
    if (m_basis.environment.isApplicationActive())
        editCurrentTitle();
}

void ZLChapterEditing::rememberMove(const ZLChapterSequence& chapters, double seconds)
{
    // Undo and redo bring what was remembered back by themselves.
    const bool isRemembered = ZLChapterMoves::areRemembered(m_basis.extras);
    if (!isRemembered || m_basis.undoManager.isUndoing() || m_basis.undoManager.isRedoing())
        return;
    for (const auto& chapter : chapters)
        ZLChapterMoves::add(m_basis.extras, chapter->uuid(), seconds);
}

void ZLChapterEditing::setEnabledStates(const ZLChapterSequence& chapters, bool enabled)
{
    ZLChapterSequence changing;
    std::copy_if(chapters.cbegin(), chapters.cend(), std::back_inserter(changing),
        [enabled](const ZLChapterPointer& chapter) { return chapter->isEnabled() != enabled; });
    if (changing.isEmpty())
        return;
    const ZLUndoGroup group(m_basis.undoManager);
    m_basis.undoManager.registerStep([this, changing, enabled] { setEnabledStates(changing, !enabled); });
    m_basis.undoManager.setActionName(changeEnabledActionName);
    for (const auto& chapter : std::as_const(changing))
        chapter->setEnabled(enabled);
    m_basis.noteEdit(ZLDocumentChange::EnabledStates, changing);
}

void ZLChapterEditing::editSelectedRow(const QString& columnIdentifier)
{
    const int row = m_selection.row();
    if (row < 0)
        return;
    int found = 0;
    for (int column = 0; column < m_tableModel.columnCount(); ++column) {
        if (ZLChapterTableModel::columnIdentifier(column) == columnIdentifier)
            found = column;
    }
    Q_EMIT m_basis.typing.wantsEditing(m_tableModel.index(row, found));
}
