#include "platform/ZLUndoManager.h"

#include "platform/ZLLateRelease.h"

#include <algorithm>
#include <iterator>
#include <ranges>
#include <utility>

ZLUndoManager::ZLUndoManager(QObject* parent)
    : QObject(parent)
{
}

ZLUndoManager::~ZLUndoManager()
{
    forget(m_undoHistory);
    forget(m_redoHistory);
}

void ZLUndoManager::registerStep(Step step)
{
    const ZLUndoGroup group(*this);
    m_openGroup.steps.push_back(std::move(step));
}

void ZLUndoManager::setActionName(const QString& name)
{
    if (m_groupDepth > 0) {
        m_openGroup.actionName = name;
        return;
    }
    if (receivingHistory().empty())
        return;
    receivingHistory().back().actionName = name;
    Q_EMIT historyDidChange();
}

void ZLUndoManager::undo()
{
    performLastGroupOf(m_undoHistory, Activity::Undoing);
}

void ZLUndoManager::redo()
{
    performLastGroupOf(m_redoHistory, Activity::Redoing);
}

QString ZLUndoManager::undoActionName() const
{
    return canUndo() ? m_undoHistory.back().actionName : QString();
}

QString ZLUndoManager::redoActionName() const
{
    return canRedo() ? m_redoHistory.back().actionName : QString();
}

void ZLUndoManager::removeAllActions()
{
    if (!canUndo() && !canRedo() && m_openGroup.steps.empty())
        return;
    forget(m_undoHistory);
    forget(m_redoHistory);
    m_openGroup = {};
    Q_EMIT historyDidChange();
}

void ZLUndoManager::beginGroup()
{
    ++m_groupDepth;
}

void ZLUndoManager::endGroup()
{
    if (--m_groupDepth > 0)
        return;
    registerOpenGroup();
    if (!isCommandUnderWay())
        Q_EMIT commandDidEnd();
}

void ZLUndoManager::registerOpenGroup()
{
    Group group = std::exchange(m_openGroup, {});
    const bool joins = std::exchange(m_joinsLastGroup, false) && m_activity == Activity::None && canUndo();
    if (group.steps.empty())
        return;
    if (joins)
        std::move(group.steps.begin(), group.steps.end(), std::back_inserter(m_undoHistory.back().steps));
    else
        receivingHistory().push_back(std::move(group));
    // While undoing or redoing the change is announced once, when the whole group is done.
    if (m_activity != Activity::None)
        return;
    // A new command makes what was undone before unreachable.
    forget(m_redoHistory);
    Q_EMIT historyDidChange();
}

void ZLUndoManager::forget(History& history)
{
    if (!history.empty())
        ZLLateRelease::of(std::exchange(history, {}));
}

void ZLUndoManager::performLastGroupOf(History& history, Activity activity)
{
    if (history.empty() || m_groupDepth > 0 || m_activity != Activity::None)
        return;
    const Group group = std::move(history.back());
    history.pop_back();
    m_activity = activity;
    {
        const ZLUndoGroup opposite(*this);
        // Steps that set no name leave the opposite group with the name of the one they came from.
        setActionName(group.actionName);
        for (const Step& step : group.steps | std::views::reverse)
            step();
    }
    m_activity = Activity::None;
    Q_EMIT historyDidChange();
    Q_EMIT commandDidEnd();
}
