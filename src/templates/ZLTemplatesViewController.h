#pragma once

#include "model/ZLChapterManager.h"
#include "platform/ZLUndoManager.h"
#include "templates/ZLTemplatesTableModel.h"

#include <QItemSelectionModel>
#include <QObject>

#include <functional>

class ZLTemplatesViewController;

/// The owner of the templates is told of changes that came through the drawer's buttons, an import or a drag, and of
/// their undo and redo: before the first template moves, and when the last one did.
class ZLTemplatesViewControllerDelegate {
public:
    virtual ~ZLTemplatesViewControllerDelegate() = default;
    virtual void templatesViewControllerWillUpdateChapters(ZLTemplatesViewController& controller) = 0;
    virtual void templatesViewControllerDidUpdateChapters(ZLTemplatesViewController& controller) = 0;
};

/// The list of chapters that are prepared in advance, with what the drawer's buttons do, each as an undoable step. It
/// can be driven without a window: the drawer only shows `tableModel` and `selectionModel` and forwards clicks.
class ZLTemplatesViewController : public QObject {
    Q_OBJECT

public:
    /// `delegate` may be null; it is not owned. Both have to outlive the controller.
    ZLTemplatesViewController(
        ZLTemplatesViewControllerDelegate* delegate, ZLUndoManager& undoManager, QObject* parent = nullptr);

    /// The templates in the user's own order.
    [[nodiscard]] ZLChapterManager& chapterManager() { return m_chapterManager; }
    [[nodiscard]] ZLTemplatesTableModel& tableModel() { return m_tableModel; }
    /// One row is selected whenever there are rows.
    [[nodiscard]] QItemSelectionModel& selectionModel() { return m_selectionModel; }
    /// -1 when there are no rows.
    [[nodiscard]] qsizetype selectedRow() const;

    /// Replaces the templates by saved ones; the delegate is not told.
    void loadChapters(const QVariantList& savedChapters);
    [[nodiscard]] QVariantList chaptersForSaving();
    /// Replaces the templates by these very objects; the delegate is not told.
    void setTemplates(const ZLChapterSequence& templates);

    /// Puts a new template behind the selected one, or at the end, selects it and asks for its title to be edited.
    void addChapterButtonPressed();
    /// What follows on Return and on Escape in the cell of a row, when its text is kept or left as it was. Both take
    /// away a template that was added last and is still empty. Otherwise Return in the last row adds another one.
    void returnPressedInRow(qsizetype row);
    void escapePressedInRow(qsizetype row);
    /// Removes the selected template; the delegate is not told when there is none.
    void removeChapterButtonPressed();
    /// Appends the chapters of the outlines in `plainTexts`, the texts that the clipboard holds. The delegate
    /// is told even when there are none, which is no step.
    void importFromPasteboard(const QStringList& plainTexts);
    /// The same with the lines of texts that are no outline but look like topics.
    void importTopicLines(const QStringList& plainTexts);
    [[nodiscard]] static qsizetype countOfTopicLines(const QStringList& plainTexts);
    /// Several lines stand where the title of the template at `row` is typed: the first one becomes the title, and each
    /// topic in the others a template of its own behind it, in one step.
    void takePastedLines(qsizetype row, const QString& lines);
    /// Moves the template at `row` to the gap before `gap` (0 … count) and selects it; any other row or gap
    /// changes nothing.
    void moveTemplate(qsizetype row, qsizetype gap);

Q_SIGNALS:
    /// So many templates came.
    void didImport(qsizetype count);
    void didImportNothing(const QStringList& plainTexts);
    /// The cell should be opened for typing, with its text selected.
    void wantsEditing(const QModelIndex& index);
    /// A title or a link was edited in the table. The delegate is not told: such an edit alone does not mark the
    /// document as edited, but it is worth saving.
    void templateDidChangeInPlace();

private:
    void appendImported(const ZLChapterSequence& imported);
    void insertTemplates(const ZLChapterSequence& templates, qsizetype row, const QString& actionName);
    void removeTemplates(const ZLChapterSequence& templates, qsizetype row, const QString& actionName);
    void exchangeTexts(const ZLChapterPointer& chapter, const QString& title, const QString& link);
    void relocateTemplate(const ZLChapterPointer& chapter, qsizetype row);
    void registerStep(const QString& actionName, const std::function<void()>& inverse);
    /// False when the template in this row is another one.
    bool takeAwayEmptyNewTemplate(qsizetype row);
    void removeRow(qsizetype row);
    void selectRow(qsizetype row);
    void selectRowIfNoneIs(qsizetype row);
    void tellDelegateBefore();
    void tellDelegate();

    ZLTemplatesViewControllerDelegate* m_delegate;
    ZLUndoManager& m_undoManager;
    ZLChapterManager m_chapterManager;
    ZLTemplatesTableModel m_tableModel;
    QItemSelectionModel m_selectionModel;
    /// The one that was added last.
    std::weak_ptr<ZLChapter> m_newTemplate;
    /// Whether nothing came into the history after that.
    bool m_isAdditionLastStep = false;
};
