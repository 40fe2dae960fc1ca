#include "document/shared/ZLDocumentChanges.h"

#include <utility>

ZLDocumentChanges::ZLDocumentChanges(ZLUndoManager& undoManager)
    : m_undoManager(undoManager)
{
    connect(&undoManager, &ZLUndoManager::commandDidEnd, this, &ZLDocumentChanges::tell);
}

void ZLDocumentChanges::note(const ZLDocumentChange& change)
{
    m_due.add(change);
    if (!m_undoManager.isCommandUnderWay())
        tell();
}

void ZLDocumentChanges::tell()
{
    const ZLDocumentChange change = std::exchange(m_due, {});
    if (!change.parts)
        return;
    for (ZLChangeRecorder* recorder : std::as_const(m_recorders))
        recorder->recordChange(change);
    Q_EMIT changed(change);
}
