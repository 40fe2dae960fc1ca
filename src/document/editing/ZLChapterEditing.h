#pragma once

#include "document/editing/ZLChapterSelection.h"
#include "document/editing/ZLChapterTableModel.h"
#include "document/shared/ZLDocumentBasis.h"

class ZLRecording;
class ZLTemplatesViewController;

/// What the next press of the add button does.
enum class ZLAddButtonFace {
    Add, ///< A blank chapter: image "AddButton", label "Add".
    Next, ///< The next prepared title: image "NextChapter", label "Next".
};

/// Keys of what a document gives along with its notifications.
namespace ZLUserInfoKey {
inline const QString ChapterUUID = QStringLiteral("ChapterUUID");
}

/// The commands that make, delete and change the chapters of a document, each an undoable step, with the chapters as a
/// table and the selected row. Chapters are taken by value: a pointer that lies in the list would be changed by the
/// command itself.
class ZLChapterEditing : public QObject {
    Q_OBJECT

public:
    /// All three have to outlive it.
    ZLChapterEditing(ZLDocumentBasis& basis, ZLRecording& recording, ZLTemplatesViewController& templates);

    [[nodiscard]] ZLChapterManager& chapterManager() { return m_basis.chapters; }
    [[nodiscard]] ZLChapterTableModel& tableModel() { return m_tableModel; }
    [[nodiscard]] ZLChapterSelection& selection() { return m_selection; }
    [[nodiscard]] const ZLChapterSelection& selection() const { return m_selection; }

    /// "00:01:05": time since the latest chapter; empty when there is none.
    [[nodiscard]] QString lastChapterAgeText();
    [[nodiscard]] ZLAddButtonFace addButtonFace();
    [[nodiscard]] bool canAddChapter() const;
    [[nodiscard]] bool canDeleteChapter() const { return m_selection.row() >= 0; }

    /// Takes the first template, or makes a blank chapter. Nothing happens while the clock stands.
    void addChapterButtonPressed();
    void addFirstChapterFromTemplates();
    void readdFirstChapterToTemplates(ZLChapterPointer chapter);
    void addNewBlankChapter();
    void addChapter(ZLChapterPointer chapter);
    void deleteButtonPressed();
    void deleteLastChapter();
    void removeChapter(ZLChapterPointer chapter);
    void editCurrentTitle();
    void editCurrentLink();
    /// Negative moves earlier; chapters that come to lie before the start are disabled.
    void moveChaptersByMilliseconds(float milliseconds);
    void updateChapterToEnabledState(ZLChapterPointer chapter, bool enabled);
    void updateChapterToTitle(ZLChapterPointer chapter, const QString& title);
    void updateChapterToLink(ZLChapterPointer chapter, const QString& link);
    void updateChapterToTime(ZLChapterPointer chapter, double seconds);
    /// What was typed into a cell: `entry` makes one of the commands above of it, or refuses it and returns false. The
    /// controllers are told the state in any case.
    bool takeTypedEntry(const std::function<bool()>& entry);
    /// Tells that `text`, typed as the time of `chapter`, is none.
    void refuseTime(const ZLChapterPointer& chapter, const QString& text);
    /// Takes `chapters` in place of those that are there. This is no step.
    void _realReplaceChapters(const ZLChapterSequence& chapters);

private:
    void _realAddChapter(const ZLChapterPointer& chapter);
    void _realRemoveChapter(const ZLChapterPointer& chapter);
    void announceGoing(const ZLChapterPointer& chapter);
    void stampWithClock(ZLChapter& chapter) const;
    void notifyOfNewChapter();
    void updateInterfaceForNewChapter(const ZLChapterPointer& chapter);
    /// Those that are in this state already are left out; without any other there is no step.
    void rememberMove(const ZLChapterSequence& chapters, double seconds);
    void setEnabledStates(const ZLChapterSequence& chapters, bool enabled);
    void editSelectedRow(const QString& columnIdentifier);

    ZLDocumentBasis& m_basis;
    ZLRecording& m_recording;
    ZLTemplatesViewController& m_templates;
    ZLChapterTableModel m_tableModel;
    ZLChapterSelection m_selection;
};
