#include "app/ZLOutsideCommands.h"

#include "commands/ZLRemoteActions.h"
#include "remote/ZLRemoteOutcome.h"

#include <QScopedValueRollback>

#include <utility>

ZLOutsideCommands::ZLOutsideCommands(ZLDocumentController& controller, ZLCommandKeys& keys, QObject* parent)
    : QObject(parent)
    , m_controller(controller)
    , m_keys(keys)
{
    connect(&controller, &ZLDocumentController::willCloseDocument, this, &ZLOutsideCommands::forget);
    connect(&controller, &ZLDocumentController::didOpenDocument, this, &ZLOutsideCommands::targetDidChange);
    connect(&controller, &ZLDocumentController::didCloseDocument, this, &ZLOutsideCommands::targetDidChange);
    connect(&controller, &ZLDocumentController::currentDocumentDidChange, this, &ZLOutsideCommands::targetDidChange);
    connect(this, &ZLOutsideCommands::pinDidChange, this, &ZLOutsideCommands::targetDidChange);
}

ZLChapterDocument* ZLOutsideCommands::target() const
{
    return m_pinned ? m_pinned : m_controller.currentOrLastDocument();
}

void ZLOutsideCommands::pinTo(ZLChapterDocument* document)
{
    if (std::exchange(m_pinned, document) != document)
        Q_EMIT pinDidChange();
}

QList<ZLChapterDocument*> ZLOutsideCommands::recordingBesideTarget() const
{
    QList<ZLChapterDocument*> documents = m_controller.documents();
    documents.removeIf(
        [this](const ZLChapterDocument* document) { return document == target() || !document->isRecording(); });
    return documents;
}

void ZLOutsideCommands::perform(const QString& action, const ZLRemoteSource& source)
{
    ZLChapterDocument* document = target();
    const ZLRemoteAction::Operation operation = ZLRemoteActions::operationForAction(action);
    if (!document || !operation)
        return;
    const ZLRemoteOutcome outcome(document);
    {
        const QScopedValueRollback isUnderWay(m_isCommandUnderWay, true);
        const QScopedValueRollback press(m_pressUnderWay, source.press);
        const QScopedValueRollback keys(m_keys.hasOptionKey, source.hasOptionKey);
        (document->*operation)();
    }
    // The keys of the command count no longer.
    if (source.hasOptionKey)
        document->updateAddButton();
    if (outcome.hasAddedChapter())
        Q_EMIT didAddChapter(document, source);
    else if (!outcome.hadEffect())
        Q_EMIT didNothing(document, *ZLRemoteActions::withIdentifier(action), source);
}

void ZLOutsideCommands::forget(ZLChapterDocument* document)
{
    if (m_pinned == document)
        pinTo(nullptr);
}
