#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

/// Undo and redo histories made of groups of steps. One user command is one group; its steps are undone last first.
/// A step that is registered while undoing becomes a redo step, and the reverse. Nothing depends on the event loop.
class ZLUndoManager : public QObject {
    Q_OBJECT

public:
    using Step = std::function<void()>;

    explicit ZLUndoManager(QObject* parent = nullptr);
    ~ZLUndoManager() override;

    /// Adds a step to the open group; what it holds may be freed on any thread. Outside a group the step is a group of
    /// its own. A step registered while neither undoing nor redoing empties the redo history.
    void registerStep(Step step);

    /// Names the open group, or outside one the group that was registered last. The last name set wins.
    void setActionName(const QString& name);

    /// Makes the open group a part of the group that undo() would take next, instead of one of its own.
    void joinLastGroup() { m_joinsLastGroup = true; }

    /// Undoes or redoes one whole group. Ignored when there is none, inside an open group, and while undoing or
    /// redoing.
    void undo();
    void redo();

    [[nodiscard]] bool canUndo() const { return !m_undoHistory.empty(); }
    [[nodiscard]] bool canRedo() const { return !m_redoHistory.empty(); }
    [[nodiscard]] bool isUndoing() const { return m_activity == Activity::Undoing; }
    [[nodiscard]] bool isRedoing() const { return m_activity == Activity::Redoing; }
    /// Whether a group is open, undone or redone, so that what the steps work on may be half done.
    [[nodiscard]] bool isCommandUnderWay() const { return m_groupDepth > 0 || m_activity != Activity::None; }
    /// Name of the group that undo() or redo() would take next; empty when there is none.
    [[nodiscard]] QString undoActionName() const;
    [[nodiscard]] QString redoActionName() const;

    void removeAllActions();

Q_SIGNALS:
    /// The histories changed: a group was closed, undone, redone or renamed, or everything was removed.
    void historyDidChange();
    /// isCommandUnderWay() became false, with or without a step: the outermost group was closed, or a whole group
    /// undone or redone. Comes after historyDidChange().
    void commandDidEnd();

private:
    friend class ZLUndoGroup;
    enum class Activity { None, Undoing, Redoing };
    struct Group {
        QString actionName;
        std::vector<Step> steps;
    };
    using History = std::vector<Group>;

    void beginGroup();
    void endGroup();
    void registerOpenGroup();
    /// Steps may hold many chapters.
    static void forget(History& history);
    void performLastGroupOf(History& history, Activity activity);
    /// Where a newly registered group goes.
    History& receivingHistory() { return isUndoing() ? m_redoHistory : m_undoHistory; }

    History m_undoHistory;
    History m_redoHistory;
    Group m_openGroup;
    bool m_joinsLastGroup = false;
    int m_groupDepth = 0;
    Activity m_activity = Activity::None;
};

/// Keeps a group open as long as it lives. Groups nest: everything ends up in the outermost one.
class ZLUndoGroup {
public:
    explicit ZLUndoGroup(ZLUndoManager& manager)
        : m_manager(manager)
    {
        m_manager.beginGroup();
    }
    ~ZLUndoGroup() { m_manager.endGroup(); }
    Q_DISABLE_COPY_MOVE(ZLUndoGroup)

private:
    ZLUndoManager& m_manager;
};
