#include "document/ZLChapterDocument.h"

#include "listening/ZLListeningData.h"
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
    , m_basis(std::move(environment))
    , m_templateViewController(this, m_basis.undoManager)
    , m_recording(m_basis, [this] { m_editing.addChapterButtonPressed(); })
    , m_editing(m_basis, m_recording, m_templateViewController)
    , m_displayName(tr("Untitled"))
{
    connectParts();
}

void ZLChapterDocument::showAbsoluteTimePressed()
{
    ZLSettingsManager::setShowAbsoluteTime(!ZLSettingsManager::showAbsoluteTime());
}

QByteArray ZLChapterDocument::dataOfType(const QString& typeName)
{
    Q_UNUSED(typeName);
    return snapshot().encoded();
}

ZLDocumentSnapshot ZLChapterDocument::snapshot()
{
    return {
        .chapters = m_basis.chapters.snapshot(),
        .duration = currentDuration(),
        .templates = m_templateViewController.chapterManager().snapshot(),
        .extras = m_basis.extras.snapshot(),
    };
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
    load(ZLDocumentParts::of(contents.value()));
    if (error)
        *error = leftoverOfSuccessfulRead();
    return true;
}

void ZLChapterDocument::load(const ZLDocumentParts& parts)
{
    // Told as one change.
    const ZLUndoGroup group(m_basis.undoManager);
    m_recording.beginAnewAt(parts.duration);
    m_basis.chapters.setChapters(parts.chapters);
    m_templateViewController.setTemplates(parts.templates);
    m_basis.extras.load(parts.extras);
    m_basis.undoManager.removeAllActions();
    m_editing.selection().selectSomeRow();
    setDocumentEdited(false);
    m_basis.changes.note(ZLDocumentChange::Rows | ZLDocumentChange::Templates);
}

void ZLChapterDocument::adopt(const ZLDocumentParts& parts)
{
    const ZLUndoGroup group(m_basis.undoManager);
    m_basis.extras.replace(ZLListeningData::adopted(parts.extras, m_basis.extras.values()));
    replaceContents(parts.chapters, isRecording() ? duration() : parts.duration, parts.templates);
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
    m_drawerCommand.emplace(m_basis.undoManager);
}

void ZLChapterDocument::templatesViewControllerDidUpdateChapters(ZLTemplatesViewController& controller)
{
    Q_UNUSED(controller);
    m_basis.changes.note(ZLDocumentChange::Templates);
    noteHistory();
    m_drawerCommand.reset();
}

void ZLChapterDocument::connectParts()
{
    connect(&m_basis.changes, &ZLDocumentChanges::changed, this, &ZLChapterDocument::changed);
    connect(&m_recording, &ZLRecording::clockDidTick, this, &ZLChapterDocument::updateDisplay);
    connect(&m_basis.undoManager, &ZLUndoManager::historyDidChange, this, &ZLChapterDocument::noteHistory);
    const auto noteWhen = [this](const auto* sender, auto signal, ZLDocumentChange::Parts parts) {
        connect(sender, signal, this, [this, parts] { m_basis.changes.note(parts); });
    };
    noteWhen(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLShowAbsoluteTimeSettingDidChange,
        ZLDocumentChange::EveryCell | ZLDocumentChange::AddButton);
    noteWhen(&m_basis.chapters, &ZLChapterManager::chaptersDidChange, ZLDocumentChange::Rows);
    noteWhen(
        &m_templateViewController.chapterManager(), &ZLChapterManager::chaptersDidChange, ZLDocumentChange::Templates);
    noteWhen(&m_templateViewController, &ZLTemplatesViewController::templateDidChangeInPlace,
        ZLDocumentChange::TemplateTexts | ZLDocumentChange::Contents);
}

void ZLChapterDocument::replaceContents(
    const ZLChapterSequence& chapters, double duration, const ZLChapterSequence& templates)
{
    const ZLUndoGroup group(m_basis.undoManager);
    const ZLChapterSequence oldChapters = m_basis.chapters.allChapters();
    // The very objects: the steps before this one work on them.
    const ZLChapterSequence oldTemplates = m_templateViewController.chapterManager().allChapters();
    m_basis.undoManager.registerStep([this, oldChapters, oldDuration = this->duration(), oldTemplates] {
        replaceContents(oldChapters, oldDuration, oldTemplates);
    });
    m_basis.undoManager.setActionName(revertActionName);
    m_editing._realReplaceChapters(chapters);
    m_recording.clock().setDuration(duration);
    m_templateViewController.setTemplates(templates);
    m_basis.changes.note(ZLDocumentChange::Reading | ZLDocumentChange::Templates);
}

void ZLChapterDocument::noteHistory()
{
    setDocumentEdited(true);
    m_basis.changes.note(ZLDocumentChange::Contents);
}
