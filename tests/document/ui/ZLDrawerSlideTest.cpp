#include "document/ui/ZLDrawerSlide.h"

#include "document/ui/ZLWindowFixture.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QSignalSpy>

class ZLDrawerSlideTest : public ZLWindowFixture {
protected:
    static constexpr int Milliseconds = 100'000;

    void SetUp() override
    {
        ZLWindowFixture::SetUp();
        m_slide = m_window->findChild<ZLDrawerSlide*>();
        m_drawer = m_window->findChild<QDockWidget*>();
        m_slide->setDuration(Milliseconds);
        m_slide->finish();
        ASSERT_TRUE(m_slide->isOpen());
        m_width = m_drawer->width();
    }

    /// Goes to a place between the beginning, 0, and the end, 1, of the slide under way.
    void goTo(double part)
    {
        auto* animation = m_slide->findChild<QVariantAnimation*>(QString(), Qt::FindDirectChildrenOnly);
        ASSERT_NE(animation, nullptr);
        ASSERT_EQ(animation->state(), QAbstractAnimation::Running);
        animation->setCurrentTime(int(Milliseconds * part));
        QCoreApplication::processEvents();
    }

    ZLDrawerSlide* m_slide = nullptr;
    QDockWidget* m_drawer = nullptr;
    int m_width = 0;
};

TEST_F(ZLDrawerSlideTest, ItsCloseButtonSaysWhatItCloses)
{
    const auto* button = m_drawer->findChild<QAbstractButton*>(QStringLiteral("qt_dockwidget_closebutton"));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->accessibleDescription(), QStringLiteral("Closes the templates"));
}

TEST_F(ZLDrawerSlideTest, ClosingIsKnownAtOnceAndSeenSlowly)
{
    const QSignalSpy toggles(m_slide, &ZLDrawerSlide::didToggle);
    m_window->toggleDrawer();
    EXPECT_FALSE(m_window->isDrawerOpen());
    EXPECT_FALSE(bar().drawerButton()->isChecked());
    EXPECT_TRUE(m_drawer->isVisible());
    EXPECT_TRUE(table().hasFocus());
    goTo(0.2);
    EXPECT_GT(m_drawer->width(), 1);
    EXPECT_LT(m_drawer->width(), m_width);
    EXPECT_GE(m_drawer->widget()->width(), m_width - 2) << "the contents are not squeezed";
    goTo(1.0);
    EXPECT_FALSE(m_drawer->isVisible());
    EXPECT_EQ(toggles.count(), 1);
}

TEST_F(ZLDrawerSlideTest, OpeningComesToTheSameWidthAgain)
{
    m_window->toggleDrawer();
    goTo(1.0);
    m_window->toggleDrawer();
    EXPECT_TRUE(m_window->isDrawerOpen());
    EXPECT_TRUE(bar().drawerButton()->isChecked());
    goTo(0.0);
    EXPECT_EQ(m_drawer->width(), 1);
    goTo(0.2);
    EXPECT_GT(m_drawer->width(), 1);
    EXPECT_LT(m_drawer->width(), m_width);
    goTo(1.0);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_drawer->width(), m_width);
    EXPECT_LT(m_drawer->minimumWidth(), m_width) << "its edge can be dragged again";
    EXPECT_GT(m_drawer->maximumWidth(), m_window->width()) << "its edge can be dragged again";
}

TEST_F(ZLDrawerSlideTest, ItTurnsRoundOnTheWay)
{
    m_window->toggleDrawer();
    goTo(0.2);
    const int onTheWay = m_drawer->width();
    m_window->toggleDrawer();
    EXPECT_TRUE(m_window->isDrawerOpen());
    goTo(0.0);
    EXPECT_EQ(m_drawer->width(), onTheWay);
    goTo(1.0);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_drawer->width(), m_width);
    EXPECT_TRUE(m_drawer->isVisible());
}

TEST_F(ZLDrawerSlideTest, WhatIsRememberedOnTheWayIsTheEnd)
{
    m_window->toggleDrawer();
    goTo(0.2);
    m_window->saveWindowState();
    EXPECT_FALSE(m_drawer->isVisible());
    const auto next = makeWindow();
    next->show();
    EXPECT_FALSE(next->isDrawerOpen());
    next->toggleDrawer();
    QCoreApplication::processEvents();
    EXPECT_EQ(next->findChild<QDockWidget*>()->width(), m_width);
}

TEST_F(ZLDrawerSlideTest, ItsOwnCloseButtonSlidesItOut)
{
    m_drawer->close();
    EXPECT_FALSE(m_window->isDrawerOpen());
    EXPECT_TRUE(m_drawer->isVisible());
    goTo(1.0);
    EXPECT_FALSE(m_drawer->isVisible());
}

TEST_F(ZLDrawerSlideTest, WithoutADurationItIsThereAtOnce)
{
    m_slide->setDuration(0);
    m_window->toggleDrawer();
    EXPECT_FALSE(m_drawer->isVisible());
    m_window->toggleDrawer();
    EXPECT_TRUE(m_drawer->isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(m_drawer->width(), m_width);
}
