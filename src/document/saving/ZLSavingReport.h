#pragma once

#include "document/ZLChapterDocument.h"
#include "document/saving/ZLDocumentPlace.h"
#include "document/saving/ZLWriteSchedule.h"

#include <QObject>

enum class ZLSavingState {
    Saved, ///< Everything is on the disk, or there is nothing to keep.
    Waiting, ///< There are changes; they are written within a second.
    Saving, ///< A write is under way.
    Failed, ///< The last write failed and is tried again and again, or it hangs. See failureText().
    Conflict, ///< Another program changed the user's file: nothing is written until the user decides.
};

/// How far a document is saved: what became of its writes, told to the schedule, to the document's mark of being edited
/// and to those who show it.
class ZLSavingReport : public QObject {
    Q_OBJECT

public:
    /// All of them have to outlive the object.
    ZLSavingReport(ZLChapterDocument& document, const ZLDocumentPlace& place, ZLWriteSchedule& schedule);

    [[nodiscard]] ZLSavingState state() const { return m_state; }
    /// Which file could not be written and why, while the state is Failed or Conflict; else empty.
    [[nodiscard]] const QString& failureText() const { return m_failureText; }
    [[nodiscard]] bool isConflict() const { return m_state == ZLSavingState::Conflict; }

    /// A failure and a conflict stay what is told.
    void noteChange();
    /// A failure stays what is told until a write succeeds.
    void noteBeginning();
    /// The document is on the disk as it was at `revision`.
    void noteWritten(quint64 revision);
    /// Whatever the document is, nothing of it has to be written.
    void noteEverythingIsSaved();
    /// Plans another attempt, and returns the error.
    ZLError noteFailure(const ZLError& error);
    void noteConflict(const ZLError& error);
    /// The user has decided about a conflict.
    void noteDecision();
    /// The disk of the document's file does not answer. Returns the error.
    ZLError noteHangingFile();

Q_SIGNALS:
    /// The state or the failure text is another.
    void didChange();

private:
    void setState(ZLSavingState state, const QString& failureText = {});

    ZLChapterDocument& m_document;
    const ZLDocumentPlace& m_place;
    ZLWriteSchedule& m_schedule;
    ZLSavingState m_state = ZLSavingState::Saved;
    QString m_failureText;
};
