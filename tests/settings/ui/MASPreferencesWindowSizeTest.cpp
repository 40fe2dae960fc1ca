#include "MASPreferencesWindowFixture.h"

#include <QApplication>
#include <QGuiApplication>
#include <QStyle>

class MASPreferencesWindowSizeTest : public MASPreferencesWindowFixture { };

TEST_F(MASPreferencesWindowSizeTest, TheNextRunOpensTheWindowWhereItWas)
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

TEST_F(MASPreferencesWindowSizeTest, APlaceOutsideOfAllScreensIsForgotten)
{
    ZLSettingsManager::setText(u"{20000, 300}"_s, Controller::topLeftKey);
    EXPECT_LT(window().pos().x(), 10000);
}

TEST_F(MASPreferencesWindowSizeTest, TheWindowIsAsLargeAsItsPaneAndKeepsItsTopLeftCorner)
{
    show();
    window().move(100, 100);
    EXPECT_EQ(contentSize(), QSize(300, 200));
    m_controller->selectControllerAtIndex(1);
    EXPECT_EQ(contentSize(), QSize(420, 160));
    EXPECT_EQ(window().pos(), QPoint(100, 100));
    EXPECT_EQ(window().minimumSize(), window().maximumSize());
}

TEST_F(MASPreferencesWindowSizeTest, TheWindowGlidesToTheSizeOfThePaneWhichHasItAtOnce)
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

TEST_F(MASPreferencesWindowSizeTest, APaneThatIsChosenOnTheWayIsGlidedToFromThere)
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

TEST_F(MASPreferencesWindowSizeTest, AHiddenWindowHasItsSizeAtOnce)
{
    m_animationDuration = std::chrono::milliseconds(200);
    m_controller->selectControllerAtIndex(1);
    EXPECT_EQ(window().size(), windowSizeFor({ 420, 160 }));
}

TEST_F(MASPreferencesWindowSizeTest, TheStyleSaysHowLongAWindowGlides)
{
    EXPECT_EQ(Controller::styleAnimationDuration().count(),
        QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration));
}

TEST_F(MASPreferencesWindowSizeTest, AResizablePaneIsAsLargeAsTheUserMadeIt)
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

TEST_F(MASPreferencesWindowSizeTest, APaneIsNeverSmallerThanAtFirst)
{
    ZLSettingsManager::setText(u"{{0, 0}, {20, 900}}"_s, Controller::paneFrameKey.arg(u"Three"_s));
    show();
    m_controller->selectControllerAtIndex(3);
    EXPECT_EQ(contentSize().width(), 350);
    window().resize(10, 10);
    QTest::qWait(0);
    EXPECT_EQ(contentSize(), QSize(350, 250));
}

TEST_F(MASPreferencesWindowSizeTest, AStoredSizeDoesNotStretchAFixedPane)
{
    ZLSettingsManager::setText(u"{{0, 0}, {700, 600}}"_s, Controller::paneFrameKey.arg(u"One"_s));
    show();
    EXPECT_EQ(contentSize(), QSize(300, 200));
}
