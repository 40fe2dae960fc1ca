#include "MASPreferencesWindowFixture.h"

#include <QSignalSpy>

class MASPreferencesWindowControllerTest : public MASPreferencesWindowFixture { };

TEST_F(MASPreferencesWindowControllerTest, NothingIsLoadedBeforeTheWindowIsAskedFor)
{
    EXPECT_EQ(m_controller->indexOfSelectedController(), -1);
    EXPECT_EQ(m_one->m_appearances, 0);
    EXPECT_TRUE(m_controller->commitEditing());
}

TEST_F(MASPreferencesWindowControllerTest, TheToolbarHasAnItemForEachPaneAndSpaceForTheGap)
{
    QStringList entries;
    for (const QAction* action : toolbar().actions()) {
        const bool isSpace = toolbar().widgetForAction(const_cast<QAction*>(action))->sizePolicy().horizontalPolicy()
            == QSizePolicy::Expanding;
        entries.append(action->text().isEmpty() && isSpace ? u"(space)"_s : action->text());
    }
    EXPECT_EQ(entries, (QStringList { u"One pane"_s, u"Two pane"_s, u"(space)"_s, u"Three pane"_s }));
    m_controller->selectControllerAtIndex(3);
    EXPECT_EQ(m_controller->selectedViewController(), m_three);
    EXPECT_EQ(m_controller->indexOfSelectedController(), 3);
}

TEST_F(MASPreferencesWindowControllerTest, AGapOrAnIndexBeyondTheEndSelectsNothing)
{
    m_controller->selectControllerAtIndex(1);
    for (const qsizetype index : { 2, 4, 100, -1 })
        m_controller->selectControllerAtIndex(index);
    EXPECT_EQ(m_controller->indexOfSelectedController(), 1);
}

TEST_F(MASPreferencesWindowControllerTest, NextAndPreviousSkipTheGapAndGoRound)
{
    m_controller->selectControllerAtIndex(1);
    m_controller->goNextTab();
    EXPECT_EQ(m_controller->indexOfSelectedController(), 3);
    m_controller->goNextTab();
    EXPECT_EQ(m_controller->indexOfSelectedController(), 0);
    m_controller->goPreviousTab();
    EXPECT_EQ(m_controller->indexOfSelectedController(), 3);
    m_controller->goPreviousTab();
    EXPECT_EQ(m_controller->indexOfSelectedController(), 1);
}

TEST_F(MASPreferencesWindowControllerTest, KeysGoToTheNextAndThePreviousPaneAndCloseTheWindow)
{
    show();
    QTest::keyClick(&window(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(m_controller->selectedViewController(), m_two);
    QTest::keyClick(&window(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(m_controller->selectedViewController(), m_one);
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(MASPreferencesWindowControllerTest, AClickOnAnItemShowsItsPane)
{
    show();
    const QSignalSpy changes(
        m_controller.get(), &MASPreferencesWindowController::MASPreferencesWindowControllerDidChangeViewNotification);
    item(u"Two"_s)->trigger();
    EXPECT_EQ(m_controller->selectedViewController(), m_two);
    EXPECT_TRUE(m_two->isVisible());
    EXPECT_FALSE(m_one->isVisible());
    EXPECT_EQ(m_one->m_disappearances, 1);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(MASPreferencesWindowControllerTest, ThePaneOnShowIsNotFilledAgainWhenItIsSelected)
{
    show();
    m_controller->selectControllerAtIndex(0);
    item(u"One"_s)->trigger();
    EXPECT_EQ(m_one->m_appearances, 1);
    EXPECT_TRUE(item(u"One"_s)->isChecked());
}

TEST_F(MASPreferencesWindowControllerTest, APaneIsFilledEachTimeItComesBack)
{
    show();
    m_controller->selectControllerAtIndex(1);
    m_controller->selectControllerAtIndex(0);
    EXPECT_EQ(m_one->m_appearances, 2);
    window().close();
    m_controller->showWindow();
    EXPECT_EQ(m_one->m_appearances, 3);
    m_controller->showWindow();
    EXPECT_EQ(m_one->m_appearances, 3);
}

TEST_F(MASPreferencesWindowControllerTest, TheWindowIsCalledLikeThePaneUnlessItHasATitle)
{
    EXPECT_EQ(window().windowTitle(), u"One pane"_s);
    m_controller->selectControllerAtIndex(3);
    EXPECT_EQ(window().windowTitle(), u"Three pane"_s);
    launch(u"Settings of it all"_s);
    m_controller->selectControllerAtIndex(1);
    EXPECT_EQ(window().windowTitle(), u"Settings of it all"_s);
}

TEST_F(MASPreferencesWindowControllerTest, APaneThatCannotCommitStaysAndKeepsTheWindowOpen)
{
    show();
    m_one->m_commits = false;
    item(u"Two"_s)->trigger();
    EXPECT_EQ(m_controller->selectedViewController(), m_one);
    EXPECT_TRUE(item(u"One"_s)->isChecked());
    EXPECT_FALSE(item(u"Two"_s)->isChecked());
    EXPECT_EQ(m_one->m_disappearances, 0);
    EXPECT_FALSE(window().close());
    EXPECT_TRUE(window().isVisible());
    m_one->m_commits = true;
    EXPECT_TRUE(window().close());
    EXPECT_FALSE(window().isVisible());
}

TEST_F(MASPreferencesWindowControllerTest, TheNextRunShowsThePaneOfThisOne)
{
    m_controller->selectControllerAtIndex(3);
    EXPECT_EQ(stored(u"MASPreferences Selected Identifier View"_s), u"Three"_s);
    m_settings.relaunch();
    launch();
    EXPECT_EQ(window().windowTitle(), u"Three pane"_s);
    EXPECT_EQ(m_three->m_appearances, 1);
    EXPECT_EQ(m_one->m_appearances, 0);
}

TEST_F(MASPreferencesWindowControllerTest, AnUnknownStoredPaneGivesTheFirst)
{
    ZLSettingsManager::setText(u"Gone"_s, Controller::selectedPaneKey);
    m_controller->showWindow();
    EXPECT_EQ(m_controller->selectedViewController(), m_one);
}

TEST_F(MASPreferencesWindowControllerTest, AScreenReaderChangesPanesByTheirButtons)
{
    show();
    toggleAsAScreenReaderDoes(u"Two"_s);
    EXPECT_EQ(m_controller->selectedViewController(), m_two);
    EXPECT_TRUE(looksChosen(u"Two"_s));
    EXPECT_FALSE(looksChosen(u"One"_s));
    toggleAsAScreenReaderDoes(u"Two"_s);
    EXPECT_EQ(m_controller->selectedViewController(), m_two);
    EXPECT_TRUE(looksChosen(u"Two"_s));
    m_two->m_commits = false;
    toggleAsAScreenReaderDoes(u"One"_s);
    EXPECT_EQ(m_controller->selectedViewController(), m_two);
    EXPECT_TRUE(looksChosen(u"Two"_s));
    EXPECT_FALSE(looksChosen(u"One"_s));
}

TEST_F(MASPreferencesWindowControllerTest, ThePaneGetsTheKeyboardAndTheToolbarIsInReachOfIt)
{
    m_two->m_initialKeyView = m_two->m_secondField;
    show();
    EXPECT_EQ(window().focusWidget(), m_one->m_firstField);
    m_controller->selectControllerAtIndex(1);
    EXPECT_EQ(window().focusWidget(), m_two->m_secondField);
    QTest::keyClick(window().focusWidget(), Qt::Key_Tab);
    auto* button = qobject_cast<QToolButton*>(window().focusWidget());
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(), u"One pane"_s);
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(m_controller->selectedViewController(), m_one);
    EXPECT_EQ(window().focusWidget(), button);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(window().focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window().focusWidget(), m_one->m_firstField);
}

TEST_F(MASPreferencesWindowControllerTest, APaneCanBeAddedLater)
{
    show();
    m_controller->addViewController(std::make_unique<ZLTestPane>(u"Four"_s));
    EXPECT_EQ(toolbar().actions().last()->text(), u"Four pane"_s);
    m_controller->selectControllerAtIndex(4);
    EXPECT_EQ(window().windowTitle(), u"Four pane"_s);
    m_controller->goNextTab();
    EXPECT_EQ(m_controller->selectedViewController(), m_one);
}

TEST_F(MASPreferencesWindowControllerTest, AWindowOfGapsShowsNothing)
{
    Controller::Panes gaps;
    gaps.push_back(nullptr);
    Controller controller(std::move(gaps));
    controller.showWindow();
    controller.goNextTab();
    EXPECT_EQ(controller.indexOfSelectedController(), -1);
    EXPECT_TRUE(controller.window().close());
}
