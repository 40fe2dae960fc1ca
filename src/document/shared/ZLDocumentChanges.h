#pragma once

#include "document/shared/ZLChangeRecorder.h"
#include "platform/ZLUndoManager.h"

#include <QObject>

/// Gathers what a command changes and tells it once, when the command's undo group has ended: the recorders first, then
/// the listeners. A change outside of any command is told at once.
class ZLDocumentChanges : public QObject {
    Q_OBJECT

public:
    /// `undoManager` knows which command is under way, and has to outlive this.
    explicit ZLDocumentChanges(ZLUndoManager& undoManager);

    /// `recorder` is not owned: it has to be removed before it goes.
    void addRecorder(ZLChangeRecorder& recorder) { m_recorders.append(&recorder); }
    void removeRecorder(ZLChangeRecorder& recorder) { m_recorders.removeOne(&recorder); }

    void note(const ZLDocumentChange& change);
    void note(ZLDocumentChange::Parts parts) { note(ZLDocumentChange { parts }); }

Q_SIGNALS:
    void changed(const ZLDocumentChange& change);

private:
    void tell();

    ZLUndoManager& m_undoManager;
    QList<ZLChangeRecorder*> m_recorders;
    /// What is not told yet.
    ZLDocumentChange m_due;
};
