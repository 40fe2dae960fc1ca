#include "document/ZLChapterDocument.h"

#include "model/ZLTimeText.h"
#include "settings/ZLSettingsManager.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString revertActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Revert"));

/// What a successful read leaves in the caller's error.
ZLFileOperationError leftoverOfSuccessfulRead()
{
    return { .domain = u"NSOSStatusErrorDomain"_s, .code = -4, .message = {} };
}

}

ZLChapterDocument::ZLChapterDocument(ZLDocumentEnvironment environment, QObject* parent)
    : QObject(parent)
    , m_environment(std::move(environment))
    , m_clock(m_environment.hostClock)
    , m_sleepWatcher(m_environment.hostClock, m_environment.bootClock)
    , m_templateViewController(this, m_undoManager)
    , m_tableModel(*this)
    , m_selectionModel(&m_tableModel)
    , m_displayName(tr("Untitled"))
{
    connectParts();
}

int ZLChapterDocument::selectedRow() const
{
    const QModelIndexList rows = m_selectionModel.selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

QString ZLChapterDocument::clockText() const
{
    const auto parts = ZLTimeParts::ofMilliseconds(ZLTimeText::truncated(currentDuration() * 1000.0));
    return u"%1:%2:%3.%4"_s.arg(ZLTimeText::padded(parts.hours, 2), ZLTimeText::padded(parts.minutes, 2),
        ZLTimeText::padded(parts.seconds, 2), QString::number(parts.milliseconds / 100));
}

QString ZLChapterDocument::lastChapterAgeText()
{
    const ZLChapterPointer last = m_chapterManager.lastChapter();
    return last ? last->durationToTimestamp(currentDuration()) : QString();
}

ZLAddButtonFace ZLChapterDocument::addButtonFace()
{
    const bool hasTemplates = m_templateViewController.chapterManager().count() > 0;
    return hasTemplates && !m_environment.isOptionKeyHeld() ? ZLAddButtonFace::Next : ZLAddButtonFace::Add;
}

void ZLChapterDocument::updateEverything()
{
    m_tableModel.reload();
    updateAddButton();
}

QByteArray ZLChapterDocument::dataOfType(const QString& typeName)
{
    Q_UNUSED(typeName);
    return ZLDocumentFile::encode({
        .chapters = m_chapterManager.chaptersForSaving(ZLDictionaryForm::Archived),
        .duration = currentDuration(),
        .templates = m_templateViewController.chaptersForSaving(),
    });
}

bool ZLChapterDocument::readFromData(QByteArrayView bytes, const QString& typeName, ZLFileOperationError* error)
{
    Q_UNUSED(typeName);
    const auto contents = ZLDocumentFile::decode(bytes, ZLDictionaryForm::Archived);
    if (!contents) {
        if (error)
            *error = { .domain = u"zelta"_s, .code = 1, .message = contents.error().message };
        return false;
    }
    m_clock.stop();
    setInterruptedRecording(std::nullopt);
    m_sleeps.clear();
    m_chapterManager.loadChapters(contents.value().chapters);
    m_clock.setDuration(contents.value().duration);
    m_templateViewController.loadChapters(contents.value().templates);
    m_undoManager.removeAllActions();
    selectSomeRow();
    setDocumentEdited(false);
    updateEverything();
    updateDisplay();
    Q_EMIT recordingStateDidChange();
    Q_EMIT undecidedSleepsDidChange();
    if (error)
        *error = leftoverOfSuccessfulRead();
    return true;
}

void ZLChapterDocument::revertToContents(const ZLDocumentContents& contents)
{
    if (!isRecording())
        adoptContents(contents);
}

void ZLChapterDocument::adoptContents(const ZLDocumentContents& contents)
{
    ZLChapterManager adopted(contents.chapters);
    ZLChapterManager templates;
    templates.setWantsSortedChapters(false);
    templates.loadChapters(contents.templates);
    replaceContents(adopted.allChapters(), isRecording() ? duration() : contents.duration, templates.allChapters());
}

void ZLChapterDocument::setDisplayName(const QString& name)
{
    m_displayName = name;
    Q_EMIT displayNameDidChange();
}

void ZLChapterDocument::setDocumentEdited(bool edited)
{
    if (std::exchange(m_isEdited, edited) != edited)
        Q_EMIT editedStateDidChange();
}

void ZLChapterDocument::informControllers()
{
    if (m_undoManager.isCommandUnderWay())
        m_isInformDue = true;
    else
        Q_EMIT controllersShouldBeInformed();
}

void ZLChapterDocument::templatesViewControllerWillUpdateChapters(ZLTemplatesViewController& controller)
{
    Q_UNUSED(controller);
    m_drawerCommand.emplace(m_undoManager);
}

void ZLChapterDocument::templatesViewControllerDidUpdateChapters(ZLTemplatesViewController& controller)
{
    Q_UNUSED(controller);
    updateAddButton();
    noteChange();
    m_drawerCommand.reset();
}

void ZLChapterDocument::connectParts()
{
    const auto& settings = ZLSettingsManager::notifications();
    connect(&settings, &ZLSettingsNotifications::ZLShowAbsoluteTimeSettingDidChange, this,
        &ZLChapterDocument::updateEverything);
    connect(&m_chapterManager, &ZLChapterManager::chaptersDidChange, this, &ZLChapterDocument::informControllers);
    connect(&m_templateViewController.chapterManager(), &ZLChapterManager::chaptersDidChange, this,
        &ZLChapterDocument::informControllers);
    connect(&m_templateViewController, &ZLTemplatesViewController::templateDidChangeInPlace, this,
        &ZLChapterDocument::announceContents);
    connect(&m_selectionModel, &QItemSelectionModel::selectionChanged, this, &ZLChapterDocument::informControllers);
    connect(&m_clock, &ZLRecordingClock::displayIsDue, this, &ZLChapterDocument::noticeSleep);
    connect(&m_clock, &ZLRecordingClock::displayIsDue, this, &ZLChapterDocument::updateDisplay);
    connect(&m_undoManager, &ZLUndoManager::historyDidChange, this, &ZLChapterDocument::noteChange);
    connect(&m_undoManager, &ZLUndoManager::commandDidEnd, this, &ZLChapterDocument::announceWhatIsDue);
}

void ZLChapterDocument::selectRow(int row)
{
    m_selectionModel.setCurrentIndex(
        m_tableModel.index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ZLChapterDocument::selectSomeRow()
{
    if (selectedRow() < 0 && m_tableModel.rowCount() > 0)
        selectRow(0);
}

void ZLChapterDocument::replaceContents(
    const ZLChapterSequence& chapters, double duration, const ZLChapterSequence& templates)
{
    const ZLUndoGroup group(m_undoManager);
    const ZLChapterSequence oldChapters = m_chapterManager.allChapters();
    // The very objects: the steps before this one work on them.
    const ZLChapterSequence oldTemplates = m_templateViewController.chapterManager().allChapters();
    m_undoManager.registerStep([this, oldChapters, oldDuration = m_clock.duration(), oldTemplates] {
        replaceContents(oldChapters, oldDuration, oldTemplates);
    });
    m_undoManager.setActionName(revertActionName);
    m_chapterManager.setChapters(chapters);
    m_clock.setDuration(duration);
    m_templateViewController.setTemplates(templates);
    selectSomeRow();
    updateEverything();
    updateDisplay();
    informControllers();
}

void ZLChapterDocument::announceEditedChapters()
{
    updateEverything();
    informControllers();
}

void ZLChapterDocument::noteChange()
{
    setDocumentEdited(true);
    announceContents();
}

void ZLChapterDocument::announceContents()
{
    m_areContentsDue = m_undoManager.isCommandUnderWay();
    if (!m_areContentsDue)
        Q_EMIT contentsDidChange();
}

void ZLChapterDocument::announceWhatIsDue()
{
    if (m_areContentsDue)
        announceContents();
    // After the contents, which go to the disk first.
    if (std::exchange(m_isInformDue, false))
        informControllers();
}
