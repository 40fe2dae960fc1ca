#include "document/ZLChapterDocument.h"

#include "model/ZLTimeText.h"
#include "settings/ZLSettingsManager.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString revertActionName = QStringLiteral(QT_TRANSLATE_NOOP("ZLChapterDocument", "Revert"));

/// What a successful read leaves in the caller's error. Its domain and its code are fixed, and tell nothing.
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
    // Told as one change.
    const ZLUndoGroup group(m_undoManager);
    m_clock.stop();
    setInterruptedRecording(std::nullopt);
    m_sleeps.clear();
    m_chapterManager.loadChapters(contents.value().chapters);
    m_clock.setDuration(contents.value().duration);
    m_templateViewController.loadChapters(contents.value().templates);
    m_undoManager.removeAllActions();
    selectSomeRow();
    setDocumentEdited(false);
    using Change = ZLDocumentChange;
    m_changes.note(Change::Rows | Change::Recording | Change::Reading | Change::Sleeps | Change::Templates);
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

void ZLChapterDocument::templatesViewControllerWillUpdateChapters(ZLTemplatesViewController& controller)
{
    Q_UNUSED(controller);
    m_drawerCommand.emplace(m_undoManager);
}

void ZLChapterDocument::templatesViewControllerDidUpdateChapters(ZLTemplatesViewController& controller)
{
    Q_UNUSED(controller);
    m_changes.note(ZLDocumentChange::Templates);
    noteHistory();
    m_drawerCommand.reset();
}

void ZLChapterDocument::connectParts()
{
    connect(&m_changes, &ZLDocumentChanges::changed, this, &ZLChapterDocument::changed);
    connect(&m_changes, &ZLDocumentChanges::changed, &m_tableModel, &ZLChapterTableModel::showChange);
    const auto noteWhen = [this](const auto* sender, auto signal, ZLDocumentChange::Parts parts) {
        connect(sender, signal, this, [this, parts] { m_changes.note(parts); });
    };
    noteWhen(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLShowAbsoluteTimeSettingDidChange,
        ZLDocumentChange::EveryCell | ZLDocumentChange::AddButton);
    noteWhen(&m_chapterManager, &ZLChapterManager::chaptersDidChange, ZLDocumentChange::Rows);
    noteWhen(
        &m_templateViewController.chapterManager(), &ZLChapterManager::chaptersDidChange, ZLDocumentChange::Templates);
    noteWhen(&m_templateViewController, &ZLTemplatesViewController::templateDidChangeInPlace,
        ZLDocumentChange::TemplateTexts | ZLDocumentChange::Contents);
    noteWhen(&m_selectionModel, &QItemSelectionModel::selectionChanged, ZLDocumentChange::Selection);
    connect(&m_clock, &ZLRecordingClock::displayIsDue, this, &ZLChapterDocument::clockDidTick);
    connect(&m_undoManager, &ZLUndoManager::historyDidChange, this, &ZLChapterDocument::noteHistory);
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
    m_chapterManager.sortChapters();
    selectSomeRow();
    m_changes.note(ZLDocumentChange::Rows | ZLDocumentChange::Reading | ZLDocumentChange::Templates);
}

void ZLChapterDocument::noteEdit(ZLDocumentChange::Parts parts, const ZLChapterSequence& chapters)
{
    m_chapterManager.sortChapters();
    m_changes.note({ parts, chapters });
}

void ZLChapterDocument::clockDidTick()
{
    noticeSleep();
    updateDisplay();
}

void ZLChapterDocument::noteHistory()
{
    setDocumentEdited(true);
    m_changes.note(ZLDocumentChange::Contents);
}
