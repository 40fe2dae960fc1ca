#pragma once

#include "document/ZLChapterTableModel.h"
#include "document/ZLDocumentEnvironment.h"
#include "document/ZLDocumentFile.h"
#include "document/ZLInterruptedRecording.h"
#include "document/ZLRecordingClock.h"
#include "document/ZLSleepWhileRecording.h"
#include "document/shared/ZLDocumentChanges.h"
#include "model/ZLChapterManager.h"
#include "platform/ZLUndoManager.h"
#include "platform/activity/ZLSleepWatcher.h"
#include "templates/ZLTemplatesViewController.h"

#include <QItemSelectionModel>
#include <QObject>

#include <optional>
#include <utility>

/// What the next press of the add button does.
enum class ZLAddButtonFace {
    Add, ///< A blank chapter: image "AddButton", label "Add".
    Next, ///< The next prepared title: image "NextChapter", label "Next".
};

/// Keys of what a document gives along with its notifications.
namespace ZLUserInfoKey {
inline const QString ChapterUUID = QStringLiteral("ChapterUUID");
}

/// Domain and code of an error that a file operation leaves behind.
struct ZLFileOperationError {
    QString domain;
    int code = 0;
    QString message;
};

/// One chapter document: its recording clock, its chapters with their undoable commands, its prepared templates and its
/// file form. It needs no window; a window shows its models, calls its operations and follows its signals.
class ZLChapterDocument final : public QObject, public ZLTemplatesViewControllerDelegate {
    Q_OBJECT

public:
    explicit ZLChapterDocument(ZLDocumentEnvironment environment, QObject* parent = nullptr);

    [[nodiscard]] ZLChapterManager& chapterManager() { return m_chapterManager; }
    [[nodiscard]] ZLUndoManager& undoManager() { return m_undoManager; }
    [[nodiscard]] ZLTemplatesViewController& templateViewController() { return m_templateViewController; }
    [[nodiscard]] ZLChapterTableModel& tableModel() { return m_tableModel; }
    /// At most one row; one is selected whenever there are rows.
    [[nodiscard]] QItemSelectionModel& selectionModel() { return m_selectionModel; }
    /// Row of the selected chapter, -1 when there is none.
    [[nodiscard]] int selectedRow() const;

    /// @name The recording clock. Times are seconds, `hostTime` those of the host clock.
    /// @{
    [[nodiscard]] double currentDuration() const { return m_clock.currentDuration(); }
    /// Seconds of all finished spans.
    [[nodiscard]] double duration() const { return m_clock.duration(); }
    [[nodiscard]] double startTime() const { return m_clock.startTime(); }
    [[nodiscard]] bool isRecording() const { return m_clock.isRunning(); }
    /// Whether the start beep is playing, after which the clock starts.
    [[nodiscard]] bool isWaitingForBeep() const { return m_beep != nullptr; }
    void recordButtonPressed();
    void soundDidFinishPlaying();
    void startRecordingWithTime(double hostTime);
    void undoStartRecordingWithTime(double hostTime);
    void stopRecording(double originalDuration, double newDuration, double startTime);
    void undoStopRecording(double originalDuration, double newDuration, double startTime);
    [[nodiscard]] QDateTime wallClockTime() const { return m_environment.wallClock(); }
    /// @}

    /// @name A recording that was cut off
    /// Until one of both commands decides it, the clock stands at the last reading. Starting the clock decides it too.
    /// @{
    [[nodiscard]] const std::optional<ZLInterruptedRecording>& interruptedRecording() const { return m_interruption; }
    void setInterruptedRecording(const std::optional<ZLInterruptedRecording>& interruption);
    /// Lets the clock run as if it had never stopped.
    void continueInterruptedRecording();
    void keepInterruptedRecordingPaused();
    /// @}

    /// @name A computer that slept during the recording
    /// The clock stood meanwhile. Until one of both commands decides it, the time can be added.
    /// @{
    /// Looks whether the computer has slept. A running clock does so ten times a second, and before every mark.
    void noticeSleep();
    /// In order. Those that lie beyond the clock, because its start was undone, are left out.
    [[nodiscard]] QList<ZLSleepWhileRecording> undecidedSleeps() const;
    /// Adds the time of all of them to the clock, and to each chapter the time of those that lie before it: that is to
    /// all that was marked after waking up.
    void addSleptTime();
    void leaveSleptTime();
    /// @}

    /// @name Chapter commands
    /// Chapters are taken by value: a pointer that lies in the list would be changed by the command itself.
    /// @{
    void addChapterButtonPressed();
    void addFirstChapterFromTemplates();
    void readdFirstChapterToTemplates(ZLChapterPointer chapter);
    void addNewBlankChapter();
    void addChapter(ZLChapterPointer chapter);
    void deleteButtonPressed();
    void deleteLastChapter();
    void removeChapter(ZLChapterPointer chapter);
    /// One row up; "last" means the one before.
    void selectLastChapter();
    void selectNextChapter();
    void editCurrentTitle();
    void editCurrentLink();
    /// Negative moves earlier; chapters that come to lie before the start are disabled.
    void moveChaptersByMilliseconds(float milliseconds);
    void updateChapterToEnabledState(ZLChapterPointer chapter, bool enabled);
    void updateChapterToTitle(ZLChapterPointer chapter, const QString& title);
    void updateChapterToLink(ZLChapterPointer chapter, const QString& link);
    void updateChapterToTime(ZLChapterPointer chapter, double seconds);
    void showAbsoluteTimePressed();
    /// @}

    /// @name What a window shows
    /// @{
    /// Whether the command that is being carried out came from outside: it must not disturb who types in the window.
    [[nodiscard]] bool isCommandFromOutside() const { return m_environment.isCommandFromOutside(); }
    /// "00:01:05.3": the clock, truncated to tenths.
    [[nodiscard]] QString clockText() const;
    /// "00:01:05": time since the latest chapter; empty when there is none.
    [[nodiscard]] QString lastChapterAgeText();
    [[nodiscard]] ZLAddButtonFace addButtonFace();
    [[nodiscard]] bool canAddChapter() const { return isRecording(); }
    [[nodiscard]] bool canDeleteChapter() const { return selectedRow() >= 0; }
    void updateDisplay() { Q_EMIT displayDidUpdate(); }
    void updateAddButton() { m_changes.note(ZLDocumentChange::AddButton); }
    /// Every cell and the add button may show something else.
    void updateEverything() { m_changes.note(ZLDocumentChange::EveryCell | ZLDocumentChange::AddButton); }
    /// @}

    /// @name The file
    /// @{
    [[nodiscard]] static constexpr bool autosavesInPlace() { return true; }
    /// The bytes of the document as it is now; a running clock is stored with its reading and goes on. Never fails.
    [[nodiscard]] QByteArray dataOfType(const QString& typeName = {});
    /// Replaces everything by what `bytes` hold and empties the undo history. Returns false, and leaves the document
    /// as it was, for bytes that are no document. On success `error`, when given, is filled all the same and means
    /// nothing: the returned value alone tells.
    bool readFromData(QByteArrayView bytes, const QString& typeName = {}, ZLFileOperationError* error = nullptr);
    /// Goes back to `contents` as one undoable step. Only while the clock stands.
    void revertToContents(const ZLDocumentContents& contents);
    /// Takes over what somebody else made of the document, as one undoable step. A running clock goes on.
    void adoptContents(const ZLDocumentContents& contents);

    /// Name for titles and proposed file names, for example "Episode 12.zelta" or "Untitled".
    [[nodiscard]] const QString& displayName() const { return m_displayName; }
    void setDisplayName(const QString& name);
    /// Whether there are changes since setDocumentEdited(false).
    [[nodiscard]] bool isDocumentEdited() const { return m_isEdited; }
    void setDocumentEdited(bool edited);
    /// @}

    /// Takes a note of what a command changes; changed() tells it when the command ends.
    void noteChange(const ZLDocumentChange& change) { m_changes.note(change); }
    /// Asks for the remote controllers to be told the state, though nothing changed: at once, or in the middle of a
    /// command at its end.
    void informControllers() { m_changes.note(ZLDocumentChange::Reminder); }
    /// What keeps the changes of this document, see ZLChangeRecorder. It is not owned and has to be removed before it
    /// goes.
    void addChangeRecorder(ZLChangeRecorder& recorder) { m_changes.addRecorder(recorder); }
    void removeChangeRecorder(ZLChangeRecorder& recorder) { m_changes.removeRecorder(recorder); }

    void templatesViewControllerWillUpdateChapters(ZLTemplatesViewController& controller) override;
    void templatesViewControllerDidUpdateChapters(ZLTemplatesViewController& controller) override;

Q_SIGNALS:
    /// What one command changed: sent once, when its undo group has ended, and after it was recorded. What changes
    /// outside of any command is told at once.
    void changed(const ZLDocumentChange& change);
    /// The clock goes on: its text and the age of the last chapter may read otherwise. Ten times a second.
    void displayDidUpdate();
    /// The cell should be scrolled into view and opened for typing, with its text selected.
    void wantsEditing(const QModelIndex& index);
    /// What was typed as the time of this chapter is none.
    void invalidTimestampEntered(const ZLChapterPointer& chapter, const QString& text);
    /// A chapter is about to come or go: what is being typed somewhere should be written now, as a step of its own.
    void typedTextShouldBeCommitted();
    /// A time that is being typed in this row has nothing to be written to any more.
    void chapterIsAboutToGo(int row);
    void editedStateDidChange();
    void displayNameDidChange();

private:
    /// What adding slept time changes.
    struct ZLRecordedTimes {
        QList<std::pair<ZLChapterPointer, double>> timeStamps {};
        double duration = 0.0;
        QList<ZLSleepWhileRecording> sleeps {};
    };

    void connectParts();
    void _realStartRecordingWithTime(double hostTime);
    void _realStopRecording();
    void playStartBeep();
    void createAutomaticChapter();
    void resumeInterruptedRecording(const ZLInterruptedRecording& interruption, double hostTime);
    void offerInterruptedRecordingAgain(const ZLInterruptedRecording& interruption, double hostTime);
    void exchangeRecordedTimes(const ZLRecordedTimes& times, const QString& actionName);

    void _realAddChapter(const ZLChapterPointer& chapter);
    void _realRemoveChapter(const ZLChapterPointer& chapter);
    void announceGoing(const ZLChapterPointer& chapter);
    void stampWithClock(ZLChapter& chapter) const;
    void notifyOfNewChapter();
    void updateInterfaceForNewChapter(const ZLChapterPointer& chapter);
    /// Those that are in this state already are left out; without any other there is no step.
    void setEnabledStates(const ZLChapterSequence& chapters, bool enabled);
    /// Restores the order of the chapters, too.
    void noteEdit(ZLDocumentChange::Parts parts, const ZLChapterSequence& chapters);
    void clockDidTick();
    void editSelectedRow(const QString& columnIdentifier);
    void selectRow(int row);
    void selectSomeRow();
    void replaceContents(const ZLChapterSequence& chapters, double duration, const ZLChapterSequence& templates);
    void noteHistory();

    ZLDocumentEnvironment m_environment;
    ZLUndoManager m_undoManager;
    ZLDocumentChanges m_changes { m_undoManager };
    ZLChapterManager m_chapterManager;
    ZLRecordingClock m_clock;
    ZLSleepWatcher m_sleepWatcher;
    ZLTemplatesViewController m_templateViewController;
    ZLChapterTableModel m_tableModel;
    QItemSelectionModel m_selectionModel;
    std::unique_ptr<ZLSound> m_beep;
    std::optional<ZLInterruptedRecording> m_interruption;
    QList<ZLSleepWhileRecording> m_sleeps;
    QString m_displayName;
    bool m_isEdited = false;
    /// While the drawer changes the templates.
    std::optional<ZLUndoGroup> m_drawerCommand;
};
