#include "settings/ui/MASPreferencesWindowController.h"

#include "settings/ZLSettingsManager.h"
#include "settings/ui/MASWindowGlide.h"
#include "support/ZLTemporarySettings.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QScreen>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLTestPane : public MASPreferencesViewController {
public:
    explicit ZLTestPane(const QString& name, QSize size = { 300, 200 })
        : m_name(name)
        , m_size(size)
        , m_firstField(new QLineEdit(this))
        , m_secondField(new QLineEdit(this))
    {
        auto* column = new QVBoxLayout(this);
        column->addWidget(m_firstField);
        column->addWidget(m_secondField);
    }

    [[nodiscard]] QString identifier() const override { return m_name; }
    [[nodiscard]] QString toolbarItemLabel() const override { return m_name + u" pane"_s; }
    [[nodiscard]] QIcon toolbarItemImage() const override { return {}; }
    [[nodiscard]] QWidget* initialKeyView() const override { return m_initialKeyView; }
    void viewWillAppear() override { ++m_appearances; }
    void viewDidDisappear() override { ++m_disappearances; }
    [[nodiscard]] bool commitEditing() override { return m_commits; }
    [[nodiscard]] QSize sizeHint() const override { return m_size; }

    QString m_name;
    QSize m_size;
    QLineEdit* m_firstField;
    QLineEdit* m_secondField;
    QWidget* m_initialKeyView = nullptr;
    int m_appearances = 0;
    int m_disappearances = 0;
    bool m_commits = true;
};

/// The panes one, two, a gap and three, as in the program.
class MASPreferencesWindowControllerTest : public testing::Test {
protected:
    using Controller = MASPreferencesWindowController;

    void SetUp() override { launch(); }

    /// As a new run of the program does.
    void launch(const QString& title = {})
    {
        m_controller.reset();
        Controller::Panes panes;
        panes.push_back(makePane(m_one, u"One"_s, QSizePolicy::Fixed, { 300, 200 }));
        panes.push_back(makePane(m_two, u"Two"_s, QSizePolicy::Fixed, { 420, 160 }));
        panes.push_back(nullptr);
        panes.push_back(makePane(m_three, u"Three"_s, QSizePolicy::Expanding, { 350, 250 }));
        m_controller = std::make_unique<Controller>(std::move(panes), title);
        m_controller->setAnimationDuration([this] { return m_animationDuration; });
    }
    static std::unique_ptr<ZLTestPane> makePane(
        ZLTestPane*& place, const QString& name, QSizePolicy::Policy policy, QSize size)
    {
        auto pane = std::make_unique<ZLTestPane>(name, size);
        pane->setSizePolicy(policy, policy);
        place = pane.get();
        return pane;
    }

    void show()
    {
        m_controller->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }
    [[nodiscard]] QMainWindow& window() { return m_controller->window(); }
    [[nodiscard]] QToolBar& toolbar() { return *window().findChild<QToolBar*>(u"toolbar"_s); }
    [[nodiscard]] QAction* item(const QString& name) { return window().findChild<QAction*>(name); }
    [[nodiscard]] QSize contentSize() { return m_controller->selectedViewController()->size(); }
    static QString stored(const QString& key) { return ZLSettingsManager::textForKey(key); }
    static QString paneFrame(const QString& name) { return stored(Controller::paneFrameKey.arg(name)); }

    /// The window on its way, held still so many milliseconds after it left.
    MASWindowGlide& glideAt(int milliseconds)
    {
        auto* glide = window().findChild<MASWindowGlide*>();
        glide->pause();
        glide->setCurrentTime(milliseconds);
        return *glide;
    }
    void toggleAsAScreenReaderDoes(const QString& name)
    {
        auto* button = qobject_cast<QToolButton*>(toolbar().widgetForAction(item(name)));
        QAccessible::queryAccessibleInterface(button)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
    }
    [[nodiscard]] bool looksChosen(const QString& name)
    {
        return qobject_cast<QToolButton*>(toolbar().widgetForAction(item(name)))->isChecked();
    }
    /// As large as the pane and the toolbar are.
    [[nodiscard]] QSize windowSizeFor(QSize pane) { return pane + QSize(0, toolbar().sizeHint().height()); }

    ZLTemporarySettings m_settings;
    std::chrono::milliseconds m_animationDuration { 0 };
    ZLTestPane* m_one = nullptr;
    ZLTestPane* m_two = nullptr;
    ZLTestPane* m_three = nullptr;
    std::unique_ptr<Controller> m_controller;
};

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

TEST_F(MASPreferencesWindowControllerTest, TheNextRunOpensTheWindowWhereItWas)
{
    show();
    window().move(120, 90);
    QTest::qWait(0);
    const int height = QGuiApplication::primaryScreen()->geometry().height();
    EXPECT_EQ(stored(u"MASPreferences Frame Top Left"_s), u"{120, %1}"_s.arg(height - 90));
    m_settings.relaunch();
    launch();
    EXPECT_EQ(window().pos(), QPoint(120, 90));
}

TEST_F(MASPreferencesWindowControllerTest, APlaceOutsideOfAllScreensIsForgotten)
{
    ZLSettingsManager::setText(u"{20000, 300}"_s, Controller::topLeftKey);
    EXPECT_LT(window().pos().x(), 10000);
}

TEST_F(MASPreferencesWindowControllerTest, TheWindowIsAsLargeAsItsPaneAndKeepsItsTopLeftCorner)
{
    show();
    window().move(100, 100);
    EXPECT_EQ(contentSize(), QSize(300, 200));
    m_controller->selectControllerAtIndex(1);
    EXPECT_EQ(contentSize(), QSize(420, 160));
    EXPECT_EQ(window().pos(), QPoint(100, 100));
    EXPECT_EQ(window().minimumSize(), window().maximumSize());
}

TEST_F(MASPreferencesWindowControllerTest, TheWindowGlidesToTheSizeOfThePaneWhichHasItAtOnce)
{
    show();
    window().move(100, 100);
    m_animationDuration = std::chrono::milliseconds(200);
    m_controller->selectControllerAtIndex(1);
    EXPECT_EQ(contentSize(), QSize(420, 160));
    EXPECT_TRUE(m_two->isVisible());
    EXPECT_EQ(window().size(), windowSizeFor({ 300, 200 }));
    MASWindowGlide& glide = glideAt(100);
    EXPECT_EQ(window().size(), windowSizeFor({ 360, 180 }));
    EXPECT_EQ(contentSize(), QSize(420, 160));
    glide.resume();
    glide.setCurrentTime(200);
    EXPECT_EQ(window().size(), windowSizeFor({ 420, 160 }));
    EXPECT_EQ(window().minimumSize(), window().size());
    EXPECT_EQ(window().maximumSize(), window().size());
    EXPECT_EQ(contentSize(), QSize(420, 160));
    EXPECT_EQ(window().pos(), QPoint(100, 100));
}

TEST_F(MASPreferencesWindowControllerTest, APaneThatIsChosenOnTheWayIsGlidedToFromThere)
{
    show();
    m_animationDuration = std::chrono::milliseconds(200);
    m_controller->selectControllerAtIndex(1);
    glideAt(100);
    m_controller->selectControllerAtIndex(3);
    EXPECT_EQ(window().size(), windowSizeFor({ 360, 180 }));
    EXPECT_EQ(contentSize(), QSize(350, 250));
    MASWindowGlide& glide = glideAt(0);
    glide.resume();
    glide.setCurrentTime(200);
    EXPECT_EQ(window().size(), windowSizeFor({ 350, 250 }));
    window().resize(window().size() + QSize(40, 30));
    QTest::qWait(0);
    EXPECT_EQ(contentSize(), QSize(390, 280));
    EXPECT_EQ(paneFrame(u"Three"_s), u"{{0, 0}, {390, 280}}"_s);
}

TEST_F(MASPreferencesWindowControllerTest, AHiddenWindowHasItsSizeAtOnce)
{
    m_animationDuration = std::chrono::milliseconds(200);
    m_controller->selectControllerAtIndex(1);
    EXPECT_EQ(window().size(), windowSizeFor({ 420, 160 }));
}

TEST_F(MASPreferencesWindowControllerTest, TheStyleSaysHowLongAWindowGlides)
{
    EXPECT_EQ(Controller::styleAnimationDuration().count(),
        QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration));
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

TEST_F(MASPreferencesWindowControllerTest, AResizablePaneIsAsLargeAsTheUserMadeIt)
{
    show();
    m_controller->selectControllerAtIndex(3);
    EXPECT_EQ(contentSize(), QSize(350, 250));
    EXPECT_EQ(window().maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    window().resize(window().size() + QSize(60, 40));
    QTest::qWait(0);
    EXPECT_EQ(paneFrame(u"Three"_s), u"{{0, 0}, {410, 290}}"_s);
    m_controller->selectControllerAtIndex(0);
    EXPECT_EQ(contentSize(), QSize(300, 200));
    m_controller->selectControllerAtIndex(3);
    EXPECT_EQ(contentSize(), QSize(410, 290));

    m_settings.relaunch();
    launch();
    show();
    EXPECT_EQ(contentSize(), QSize(410, 290));
}

TEST_F(MASPreferencesWindowControllerTest, APaneIsNeverSmallerThanAtFirst)
{
    ZLSettingsManager::setText(u"{{0, 0}, {20, 900}}"_s, Controller::paneFrameKey.arg(u"Three"_s));
    show();
    m_controller->selectControllerAtIndex(3);
    EXPECT_EQ(contentSize().width(), 350);
    window().resize(10, 10);
    QTest::qWait(0);
    EXPECT_EQ(contentSize(), QSize(350, 250));
}

TEST_F(MASPreferencesWindowControllerTest, AStoredSizeDoesNotStretchAFixedPane)
{
    ZLSettingsManager::setText(u"{{0, 0}, {700, 600}}"_s, Controller::paneFrameKey.arg(u"One"_s));
    show();
    EXPECT_EQ(contentSize(), QSize(300, 200));
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
