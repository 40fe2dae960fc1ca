#pragma once

#include "document/ZLDocumentFile.h"
#include "document/ZLDocumentParts.h"
#include "document/ZLDocumentSnapshot.h"
#include "document/editing/ZLChapterEditing.h"
#include "document/recording/ZLRecording.h"
#include "document/shared/ZLDocumentBasis.h"
#include "templates/ZLTemplatesViewController.h"

#include <QObject>

#include <optional>

/// Domain and code of an error that a file operation leaves behind.
struct ZLFileOperationError {
    QString domain;
    int code = 0;
    QString message;
};

/// One chapter document: it owns its parts, which are the recording, the chapters with their commands and the prepared
/// templates, and has their file form. It needs no window; a window shows its models, calls its operations and follows
/// its signals.
class ZLChapterDocument final : public QObject, public ZLTemplatesViewControllerDelegate {
    Q_OBJECT

public:
    explicit ZLChapterDocument(ZLDocumentEnvironment environment, QObject* parent = nullptr);

    /// @name The parts
    /// @{
    [[nodiscard]] ZLRecording& recording() { return m_recording; }
    [[nodiscard]] const ZLRecording& recording() const { return m_recording; }
    [[nodiscard]] ZLChapterEditing& editing() { return m_editing; }
    [[nodiscard]] const ZLChapterEditing& editing() const { return m_editing; }
    [[nodiscard]] ZLTemplatesViewController& templateViewController() { return m_templateViewController; }
    [[nodiscard]] ZLUndoManager& undoManager() { return m_basis.undoManager; }
    [[nodiscard]] ZLDocumentExtras& extras() { return m_basis.extras; }
    [[nodiscard]] const ZLDocumentExtras& extras() const { return m_basis.extras; }
    /// What the document asks of its window while a text is being typed there.
    [[nodiscard]] ZLTypingRequests& typing() { return m_basis.typing; }
    /// @}

    /// @name What the program around it tells
    /// @{
    [[nodiscard]] QDateTime wallClockTime() const { return m_basis.environment.wallClock(); }
    /// Whether the command that is being carried out came from outside: it must not disturb typing in the window.
    [[nodiscard]] bool isCommandFromOutside() const { return m_basis.environment.isCommandFromOutside(); }
    /// @}

    /// @name What changed
    /// @{
    /// Takes a note of what a command changes; changed() tells it when the command ends.
    void noteChange(const ZLDocumentChange& change) { m_basis.changes.note(change); }
    /// Asks for the remote controllers to be told the state, though nothing changed: at once, or in the middle of a
    /// command at its end.
    void informControllers() { m_basis.changes.note(ZLDocumentChange::Reminder); }
    void updateDisplay() { Q_EMIT displayDidUpdate(); }
    void updateAddButton() { m_basis.changes.note(ZLDocumentChange::AddButton); }
    /// Every cell and the add button may show something else.
    void updateEverything() { m_basis.changes.note(ZLDocumentChange::EveryCell | ZLDocumentChange::AddButton); }
    void showAbsoluteTimePressed();
    /// What keeps the changes of this document, see ZLChangeRecorder. It is not owned and has to be removed before it
    /// goes.
    void addChangeRecorder(ZLChangeRecorder& recorder) { m_basis.changes.addRecorder(recorder); }
    void removeChangeRecorder(ZLChangeRecorder& recorder) { m_basis.changes.removeRecorder(recorder); }
    /// @}

    /// @name The file
    /// @{
    [[nodiscard]] static constexpr bool autosavesInPlace() { return true; }
    /// The bytes of the document as it is now; a running clock is stored with its reading and goes on. Never fails.
    [[nodiscard]] QByteArray dataOfType(const QString& typeName = {});
    /// What the bytes are made of, which may be done on another thread.
    [[nodiscard]] ZLDocumentSnapshot snapshot();
    /// Replaces everything by what `bytes` hold and empties the undo history. Returns false, and leaves the document
    /// as it was, for bytes that are no document. On success `error`, when given, is filled all the same and means
    /// nothing: the returned value alone tells.
    bool readFromData(QByteArrayView bytes, const QString& typeName = {}, ZLFileOperationError* error = nullptr);
    /// Replaces everything by `parts` and empties the undo history.
    void load(const ZLDocumentParts& parts);
    /// Takes over what another program made of the document, as one undoable step. A running clock goes on.
    void adoptContents(const ZLDocumentContents& contents) { adopt(ZLDocumentParts::of(contents)); }
    void adopt(const ZLDocumentParts& parts);

    /// Name for titles and proposed file names, for example "Episode 12.zelta" or "Untitled".
    [[nodiscard]] const QString& displayName() const { return m_displayName; }
    void setDisplayName(const QString& name);
    /// Whether there are changes since setDocumentEdited(false).
    [[nodiscard]] bool isDocumentEdited() const { return m_isEdited; }
    void setDocumentEdited(bool edited);
    /// @}

    void templatesViewControllerWillUpdateChapters(ZLTemplatesViewController& controller) override;
    void templatesViewControllerDidUpdateChapters(ZLTemplatesViewController& controller) override;

    // Operations of the parts under the names by which a document is asked for them.
    // forwards
    [[nodiscard]] ZLChapterManager& chapterManager() { return m_basis.chapters; }
    [[nodiscard]] ZLChapterTableModel& tableModel() { return m_editing.tableModel(); }
    [[nodiscard]] QItemSelectionModel& selectionModel() { return m_editing.selection().model(); }
    [[nodiscard]] int selectedRow() const { return m_editing.selection().row(); }

    [[nodiscard]] double currentDuration() const { return m_recording.clock().currentDuration(); }
    [[nodiscard]] double duration() const { return m_recording.clock().duration(); }
    [[nodiscard]] double startTime() const { return m_recording.clock().startTime(); }
    [[nodiscard]] bool isRecording() const { return m_recording.clock().isRunning(); }
    [[nodiscard]] bool isWaitingForBeep() const { return m_recording.isWaitingForBeep(); }
    [[nodiscard]] QString clockText() const { return m_recording.clockText(); }
    void recordButtonPressed() { m_recording.recordButtonPressed(); }
    void soundDidFinishPlaying() { m_recording.soundDidFinishPlaying(); }
    void startRecordingWithTime(double hostTime) { m_recording.startWithTime(hostTime); }
    void undoStartRecordingWithTime(double hostTime) { m_recording.undoStartWithTime(hostTime); }
    void stopRecording(double original, double duration, double start) { m_recording.stop(original, duration, start); }
    void undoStopRecording(double original, double now, double start) { m_recording.undoStop(original, now, start); }

    using Interruption = std::optional<ZLInterruptedRecording>;
    [[nodiscard]] const Interruption& interruptedRecording() const { return m_recording.interruption().pending(); }
    void setInterruptedRecording(const Interruption& cutOff) { m_recording.interruption().setPending(cutOff); }
    void continueInterruptedRecording() { m_recording.interruption().continueRecording(); }
    void keepInterruptedRecordingPaused() { m_recording.interruption().keepPaused(); }
    void noticeSleep() { m_recording.sleptTime().noticeSleep(); }
    [[nodiscard]] QList<ZLSleepWhileRecording> undecidedSleeps() const { return m_recording.sleptTime().undecided(); }
    void addSleptTime() { m_recording.sleptTime().add(); }
    void leaveSleptTime() { m_recording.sleptTime().leave(); }

    [[nodiscard]] QString lastChapterAgeText() { return m_editing.lastChapterAgeText(); }
    [[nodiscard]] ZLAddButtonFace addButtonFace() { return m_editing.addButtonFace(); }
    [[nodiscard]] bool canAddChapter() const { return m_editing.canAddChapter(); }
    [[nodiscard]] bool canDeleteChapter() const { return m_editing.canDeleteChapter(); }
    void addChapterButtonPressed() { m_editing.addChapterButtonPressed(); }
    void addFirstChapterFromTemplates() { m_editing.addFirstChapterFromTemplates(); }
    void readdFirstChapterToTemplates(ZLChapterPointer chapter) { m_editing.readdFirstChapterToTemplates(chapter); }
    void addNewBlankChapter() { m_editing.addNewBlankChapter(); }
    void addChapter(ZLChapterPointer chapter) { m_editing.addChapter(chapter); }
    void deleteButtonPressed() { m_editing.deleteButtonPressed(); }
    void deleteLastChapter() { m_editing.deleteLastChapter(); }
    void removeChapter(ZLChapterPointer chapter) { m_editing.removeChapter(chapter); }
    void selectLastChapter() { m_editing.selection().selectLastChapter(); }
    void selectNextChapter() { m_editing.selection().selectNextChapter(); }
    void editCurrentTitle() { m_editing.editCurrentTitle(); }
    void editCurrentLink() { m_editing.editCurrentLink(); }
    void moveChaptersByMilliseconds(float milliseconds) { m_editing.moveChaptersByMilliseconds(milliseconds); }
    void updateChapterToEnabledState(ZLChapterPointer chapter, bool enabled)
    {
        m_editing.updateChapterToEnabledState(chapter, enabled);
    }
    void updateChapterToTitle(ZLChapterPointer chapter, const QString& title)
    {
        m_editing.updateChapterToTitle(chapter, title);
    }
    void updateChapterToLink(ZLChapterPointer chapter, const QString& link)
    {
        m_editing.updateChapterToLink(chapter, link);
    }
    void updateChapterToTime(ZLChapterPointer chapter, double seconds)
    {
        m_editing.updateChapterToTime(chapter, seconds);
    }
    // end of forwards

Q_SIGNALS:
    /// What one command changed: sent once, when its undo group has ended, and after it was recorded. What changes
    /// outside of any command is told at once.
    void changed(const ZLDocumentChange& change);
    /// The clock goes on: its text and the age of the last chapter may read otherwise. Ten times a second.
    void displayDidUpdate();
    void editedStateDidChange();
    void displayNameDidChange();

private:
    void connectParts();
    void replaceContents(const ZLChapterSequence& chapters, double duration, const ZLChapterSequence& templates);
    void noteHistory();

    ZLDocumentBasis m_basis;
    ZLTemplatesViewController m_templateViewController;
    ZLRecording m_recording;
    ZLChapterEditing m_editing;
    QString m_displayName;
    bool m_isEdited = false;
    /// While the drawer changes the templates.
    std::optional<ZLUndoGroup> m_drawerCommand;
};
