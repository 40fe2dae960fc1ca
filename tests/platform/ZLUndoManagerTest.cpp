#include "platform/ZLUndoManager.h"

#include <QSignalSpy>
#include <QStringList>
#include <QThreadPool>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// A number whose changes are undoable, with the history it writes into.
class ZLUndoManagerTest : public testing::Test {
protected:
    void set(int value, const QString& name = {})
    {
        const ZLUndoGroup group(m_manager);
        m_manager.registerStep([this, old = m_value, name] { set(old, name); });
        if (!name.isNull())
            m_manager.setActionName(name);
        m_value = value;
    }

    /// A step that only leaves a trace.
    void registerTrace(const QString& mark)
    {
        m_manager.registerStep([this, mark] { m_trace.append(mark); });
    }

    ZLUndoManager m_manager;
    int m_value = 0;
    QStringList m_trace;
};

TEST_F(ZLUndoManagerTest, AGroupThatJoinsTheLastOneIsUndoneAndRedoneWithIt)
{
    set(1, u"first"_s);
    set(2, u"second"_s);
    const QSignalSpy changes(&m_manager, &ZLUndoManager::historyDidChange);
    {
        const ZLUndoGroup group(m_manager);
        set(3, u"third"_s);
        m_manager.joinLastGroup();
    }
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(m_manager.undoActionName(), u"second"_s);
    m_manager.undo();
    EXPECT_EQ(m_value, 1);
    m_manager.redo();
    EXPECT_EQ(m_value, 3);
    m_manager.undo();
    m_manager.undo();
    {
        const ZLUndoGroup group(m_manager);
        set(4, u"fourth"_s);
        m_manager.joinLastGroup();
    }
    EXPECT_EQ(m_manager.undoActionName(), u"fourth"_s) << "there is none to join";
    EXPECT_FALSE(m_manager.canRedo());
}

TEST_F(ZLUndoManagerTest, AnEmptyHistoryOffersNothing)
{
    EXPECT_FALSE(m_manager.canUndo());
    EXPECT_FALSE(m_manager.canRedo());
    EXPECT_TRUE(m_manager.undoActionName().isEmpty());
    EXPECT_TRUE(m_manager.redoActionName().isEmpty());
    m_manager.undo();
    m_manager.redo();
    m_manager.setActionName(u"nothing to name"_s);
    EXPECT_FALSE(m_manager.canUndo());
}

TEST_F(ZLUndoManagerTest, UndoAndRedoGoBackAndForth)
{
    set(1);
    set(2);
    m_manager.undo();
    EXPECT_EQ(m_value, 1);
    m_manager.undo();
    EXPECT_EQ(m_value, 0);
    EXPECT_FALSE(m_manager.canUndo());
    m_manager.redo();
    m_manager.redo();
    EXPECT_EQ(m_value, 2);
    EXPECT_FALSE(m_manager.canRedo());
    m_manager.undo();
    EXPECT_EQ(m_value, 1);
}

TEST_F(ZLUndoManagerTest, ANewCommandMakesWhatWasUndoneUnreachable)
{
    set(1);
    m_manager.undo();
    EXPECT_TRUE(m_manager.canRedo());
    set(5);
    EXPECT_FALSE(m_manager.canRedo());
    m_manager.undo();
    EXPECT_EQ(m_value, 0);
}

TEST_F(ZLUndoManagerTest, ACommandThatRegistersNothingLeavesRedoAlone)
{
    set(1);
    m_manager.undo();
    {
        const ZLUndoGroup group(m_manager);
        m_manager.setActionName(u"Nothing"_s);
    }
    EXPECT_TRUE(m_manager.canRedo());
    EXPECT_FALSE(m_manager.canUndo());
}

TEST_F(ZLUndoManagerTest, TheStepsOfAGroupAreUndoneLastFirstAndTogether)
{
    {
        const ZLUndoGroup group(m_manager);
        registerTrace(u"first"_s);
        registerTrace(u"second"_s);
        registerTrace(u"third"_s);
    }
    m_manager.undo();
    EXPECT_EQ(m_trace, QStringList({ u"third"_s, u"second"_s, u"first"_s }));
    EXPECT_FALSE(m_manager.canUndo());
}

TEST_F(ZLUndoManagerTest, InnerGroupsBelongToTheOutermostOne)
{
    {
        const ZLUndoGroup outer(m_manager);
        set(1, u"Inner"_s);
        {
            const ZLUndoGroup inner(m_manager);
            set(2);
            set(3);
        }
        m_manager.setActionName(u"Outer"_s);
        EXPECT_FALSE(m_manager.canUndo());
    }
    EXPECT_EQ(m_manager.undoActionName(), u"Outer"_s);
    m_manager.undo();
    EXPECT_EQ(m_value, 0);
    EXPECT_FALSE(m_manager.canUndo());
    m_manager.redo();
    EXPECT_EQ(m_value, 3);
}

TEST_F(ZLUndoManagerTest, AStepOutsideOfAGroupIsOneOfItsOwn)
{
    registerTrace(u"one"_s);
    registerTrace(u"two"_s);
    m_manager.undo();
    EXPECT_EQ(m_trace, QStringList({ u"two"_s }));
}

TEST_F(ZLUndoManagerTest, TheLastNameSetWins)
{
    {
        const ZLUndoGroup group(m_manager);
        m_manager.setActionName(u"Early"_s);
        set(1, u"Change"_s);
        m_manager.setActionName(u"Late"_s);
    }
    EXPECT_EQ(m_manager.undoActionName(), u"Late"_s);
    m_manager.setActionName(u"Afterwards"_s);
    EXPECT_EQ(m_manager.undoActionName(), u"Afterwards"_s);
}

TEST_F(ZLUndoManagerTest, TheRedoNameIsTheLastOneSetWhileUndoing)
{
    m_manager.registerStep([this] {
        m_manager.registerStep([this] { set(1, u"Create"_s); });
        m_manager.setActionName(u"Delete"_s);
    });
    m_manager.setActionName(u"Create"_s);
    m_manager.undo();
    EXPECT_EQ(m_manager.redoActionName(), u"Delete"_s);
    EXPECT_TRUE(m_manager.undoActionName().isEmpty());
    m_manager.redo();
    EXPECT_EQ(m_manager.undoActionName(), u"Create"_s);
}

TEST_F(ZLUndoManagerTest, StepsThatSetNoNameKeepTheOneOfTheirGroup)
{
    set(1);
    m_manager.setActionName(u"Change"_s);
    m_manager.undo();
    EXPECT_EQ(m_manager.redoActionName(), u"Change"_s);
    m_manager.redo();
    EXPECT_EQ(m_manager.undoActionName(), u"Change"_s);
}

TEST_F(ZLUndoManagerTest, ItTellsWhetherItIsUndoingOrRedoing)
{
    QStringList seen;
    const auto look = [this, &seen] {
        seen.append(m_manager.isUndoing() ? u"undoing"_s : m_manager.isRedoing() ? u"redoing"_s : u"neither"_s);
    };
    m_manager.registerStep([this, look] {
        look();
        m_manager.registerStep(look);
    });
    m_manager.undo();
    m_manager.redo();
    look();
    EXPECT_EQ(seen, QStringList({ u"undoing"_s, u"redoing"_s, u"neither"_s }));
}

TEST_F(ZLUndoManagerTest, UndoInsideAnOpenGroupIsIgnored)
{
    set(1);
    {
        const ZLUndoGroup group(m_manager);
        set(2);
        m_manager.undo();
        EXPECT_EQ(m_value, 2);
    }
    m_manager.undo();
    EXPECT_EQ(m_value, 1);
}

TEST_F(ZLUndoManagerTest, UndoAndRedoWhileUndoingAreIgnored)
{
    set(1);
    m_manager.registerStep([this] {
        m_manager.undo();
        m_manager.redo();
        m_trace.append(u"step"_s);
    });
    m_manager.undo();
    EXPECT_EQ(m_trace, QStringList({ u"step"_s }));
    EXPECT_EQ(m_value, 1);
}

TEST_F(ZLUndoManagerTest, EveryChangeOfTheHistoriesIsAnnouncedOnce)
{
    const QSignalSpy changes(&m_manager, &ZLUndoManager::historyDidChange);
    {
        const ZLUndoGroup group(m_manager);
        set(1, u"a"_s);
        set(2, u"b"_s);
        EXPECT_EQ(changes.size(), 0);
    }
    EXPECT_EQ(changes.size(), 1);
    m_manager.undo();
    EXPECT_EQ(changes.size(), 2);
    m_manager.redo();
    EXPECT_EQ(changes.size(), 3);
    m_manager.setActionName(u"c"_s);
    EXPECT_EQ(changes.size(), 4);
    m_manager.removeAllActions();
    EXPECT_EQ(changes.size(), 5);
    m_manager.removeAllActions();
    EXPECT_EQ(changes.size(), 5);
}

TEST_F(ZLUndoManagerTest, TheEndOfACommandIsAnnouncedOnceWhenAllOfItIsDone)
{
    QList<int> valuesAtEnd;
    QObject::connect(&m_manager, &ZLUndoManager::commandDidEnd, &m_manager, [this, &valuesAtEnd] {
        EXPECT_FALSE(m_manager.isCommandUnderWay());
        valuesAtEnd.append(m_value);
    });
    {
        const ZLUndoGroup outer(m_manager);
        EXPECT_TRUE(m_manager.isCommandUnderWay());
        set(1);
        set(2);
        EXPECT_EQ(valuesAtEnd, QList<int>());
    }
    EXPECT_EQ(valuesAtEnd, QList<int>({ 2 }));
    m_manager.undo();
    EXPECT_EQ(valuesAtEnd, QList<int>({ 2, 0 }));
    m_manager.redo();
    EXPECT_EQ(valuesAtEnd, QList<int>({ 2, 0, 2 }));
    {
        const ZLUndoGroup withoutSteps(m_manager);
    }
    EXPECT_EQ(valuesAtEnd, QList<int>({ 2, 0, 2, 2 }));
}

TEST_F(ZLUndoManagerTest, TheEndOfACommandComesAfterTheChangeOfTheHistories)
{
    QStringList order;
    QObject::connect(
        &m_manager, &ZLUndoManager::historyDidChange, &m_manager, [&order] { order.append(u"history"_s); });
    QObject::connect(&m_manager, &ZLUndoManager::commandDidEnd, &m_manager, [&order] { order.append(u"end"_s); });
    set(1);
    m_manager.undo();
    EXPECT_EQ(order, (QStringList { u"history"_s, u"end"_s, u"history"_s, u"end"_s }));
}

TEST_F(ZLUndoManagerTest, RemovingAllActionsEmptiesBothHistories)
{
    set(1);
    set(2);
    m_manager.undo();
    m_manager.removeAllActions();
    EXPECT_FALSE(m_manager.canUndo());
    EXPECT_FALSE(m_manager.canRedo());
}

TEST_F(ZLUndoManagerTest, ARemovedStepLetsGoOfWhatItHeld)
{
    const auto held = std::make_shared<int>(5);
    m_manager.registerStep([held] { });
    EXPECT_EQ(held.use_count(), 2);
    m_manager.removeAllActions();
    // On another thread.
    QThreadPool::globalInstance()->waitForDone();
    EXPECT_EQ(held.use_count(), 1);
}
