#include "app/ui/quickedit/ZLQuickEditWindowController.h"

#include "support/ZLChangeSpy.h"
#include "support/ZLDocumentFixture.h"
#include "support/ZLFakeTimers.h"

#include <QLabel>
#include <QLineEdit>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A document with one chapter at 00:01:05, and its panel.
class ZLQuickEditWindowControllerTest : public ZLDocumentFixture {
protected:
    ZLQuickEditWindowControllerTest()
    {
        m_controller.setChapter(m_chapter);
        m_controller.setChapDoc(&m_document);
    }

    template <typename Widget>
    [[nodiscard]] Widget* part(const QString& name)
    {
        return m_controller.window().findChild<Widget*>(name);
    }
    [[nodiscard]] QLineEdit* titleField() { return part<QLineEdit>(u"titleField"_s); }
    [[nodiscard]] QPushButton* saveButton() { return part<QPushButton>(u"saveButton"_s); }
    [[nodiscard]] QPropertyAnimation* fade() { return m_controller.findChild<QPropertyAnimation*>(); }
    [[nodiscard]] bool isFadingTo(double opacity)
    {
        return fade()->state() == QAbstractAnimation::Running && fade()->endValue().toDouble() == opacity;
    }
    [[nodiscard]] bool isVisible() { return m_controller.window().isVisible(); }
    void finishFading() { fade()->setCurrentTime(fade()->duration()); }
    void show()
    {
        m_controller.show();
        finishFading();
    }
    /// What a click does to a panel that has no keyboard.
    void makeKey()
    {
        QEvent event(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&m_controller.window(), &event);
    }
    [[nodiscard]] bool isFadedOut()
    {
        if (!isFadingTo(0.0))
            return false;
        finishFading();
        return !isVisible();
    }

    ZLFakeTimers m_timers;
    ZLChapterPointer m_chapter = addChapterAt(65.0);
    ZLQuickEditWindowController m_controller { m_timers.starter() };
};

TEST_F(ZLQuickEditWindowControllerTest, ItShowsTheTimeAndAnEmptyTitle)
{
    m_chapter->setTitle(u"Old"_s);
    m_controller.show();
    EXPECT_EQ(part<QLabel>(u"timestampField"_s)->text(), u"00:01:05.000"_s);
    EXPECT_EQ(titleField()->text(), QString());
    EXPECT_FALSE(saveButton()->isEnabled());
    EXPECT_EQ(m_controller.window().focusWidget(), titleField());
}

TEST_F(ZLQuickEditWindowControllerTest, ItFloatsAboveAllWithoutTakingTheKeyboard)
{
    m_controller.show();
    const QWidget& window = m_controller.window();
    EXPECT_TRUE(window.windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(window.testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_FALSE(window.windowFlags() & Qt::WindowDoesNotAcceptFocus) << "a click must be able to give it the keyboard";
    EXPECT_FALSE(window.testAttribute(Qt::WA_QuitOnClose));
    EXPECT_FALSE(window.isModal());
}

TEST_F(ZLQuickEditWindowControllerTest, ItHasABorder)
{
    show();
    const QImage picture = m_controller.window().grab().toImage();
    const QPoint middle = picture.rect().center();
    const QColor inside = picture.pixelColor(4, 4);
    for (const QPoint edge : { QPoint(0, middle.y()), QPoint(picture.width() - 1, middle.y()), QPoint(middle.x(), 0),
             QPoint(middle.x(), picture.height() - 1) })
        EXPECT_GT(std::abs(inside.lightness() - picture.pixelColor(edge).lightness()), 60)
            << edge.x() << ' ' << edge.y();
}

TEST_F(ZLQuickEditWindowControllerTest, ItFadesInWithinATenthOfASecond)
{
    m_controller.show();
    EXPECT_TRUE(isVisible());
    EXPECT_EQ(m_controller.opacity(), 0.0);
    EXPECT_TRUE(isFadingTo(1.0));
    EXPECT_EQ(fade()->duration(), 100);
    finishFading();
    EXPECT_EQ(m_controller.opacity(), 1.0);
    EXPECT_TRUE(isVisible());
}

TEST_F(ZLQuickEditWindowControllerTest, LeftAloneItFadesOutAfterFiveSeconds)
{
    const QSignalSpy closed(&m_controller, &ZLQuickEditWindowController::didClose);
    show();
    m_timers.advance(4999ms);
    EXPECT_FALSE(isFadingTo(0.0));
    m_timers.advance(1ms);
    EXPECT_TRUE(isFadingTo(0.0));
    EXPECT_TRUE(isVisible()) << "it closes when it is faded out";
    EXPECT_EQ(fade()->duration(), 100);
    finishFading();
    EXPECT_FALSE(isVisible());
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(closed.size(), 1);
    EXPECT_EQ(titles(), QStringList { u""_s });
}

TEST_F(ZLQuickEditWindowControllerTest, WantedOnceMoreItStaysFiveSecondsLonger)
{
    show();
    m_timers.advance(4s);
    m_controller.renew();
    m_timers.advance(4999ms);
    EXPECT_FALSE(m_controller.isGoing());
    m_timers.advance(1ms);
    EXPECT_TRUE(m_controller.isGoing());
    m_controller.renew();
    finishFading();
    EXPECT_TRUE(isVisible()) << "it was about to go";
    m_timers.advance(5s);
    EXPECT_TRUE(isFadedOut());
}

TEST_F(ZLQuickEditWindowControllerTest, WantedOnceMoreWhileItIsWorkedInItStaysForGood)
{
    show();
    makeKey();
    m_controller.renew();
    m_timers.advance(1h);
    EXPECT_TRUE(isVisible());
}

TEST_F(ZLQuickEditWindowControllerTest, OnceItHasTheKeyboardItStays)
{
    show();
    m_timers.advance(4999ms);
    makeKey();
    EXPECT_FALSE(m_controller.hasHideTimer());
    m_timers.advance(1h);
    EXPECT_TRUE(isVisible());
    EXPECT_FALSE(isFadingTo(0.0));
}

TEST_F(ZLQuickEditWindowControllerTest, SaveIsPossibleAsSoonAsThereIsACharacter)
{
    show();
    QTest::keyClicks(titleField(), u"I"_s);
    EXPECT_TRUE(saveButton()->isEnabled());
    QTest::keyClick(titleField(), Qt::Key_Backspace);
    EXPECT_FALSE(saveButton()->isEnabled());
}

TEST_F(ZLQuickEditWindowControllerTest, SaveSetsTheTitleAsOneUndoableStepAndCloses)
{
    show();
    const ZLChangeSpy told(m_document, ZLDocumentChange::concerningControllers);
    QTest::keyClicks(titleField(), u"Interview"_s);
    QTest::mouseClick(saveButton(), Qt::LeftButton);
    EXPECT_EQ(titles(), QStringList { u"Interview"_s });
    EXPECT_EQ(told.size(), 1) << "surfaces hear of it";
    EXPECT_EQ(history().undoActionName(), u"Change Title"_s);
    EXPECT_TRUE(isFadedOut());
    history().undo();
    EXPECT_EQ(titles(), QStringList { u""_s });
}

TEST_F(ZLQuickEditWindowControllerTest, ReturnSavesAndClosesAndTabDoesNeither)
{
    show();
    QTest::keyClicks(titleField(), u"Interview"_s);
    QTest::keyClick(titleField(), Qt::Key_Tab);
    QTest::keyClick(titleField(), Qt::Key_Backtab);
    titleField()->clearFocus();
    EXPECT_EQ(titles(), QStringList { u""_s });
    EXPECT_FALSE(isFadingTo(0.0));
    QTest::keyClick(titleField(), Qt::Key_Return);
    EXPECT_EQ(titles(), QStringList { u"Interview"_s });
    EXPECT_TRUE(isFadedOut());
}

TEST_F(ZLQuickEditWindowControllerTest, ReturnInAFieldThatWasEmptiedAgainSavesAnEmptyTitle)
{
    m_chapter->setTitle(u"Old"_s);
    show();
    QTest::keyClicks(titleField(), u"I"_s);
    QTest::keyClick(titleField(), Qt::Key_Backspace);
    QTest::keyClick(titleField(), Qt::Key_Return);
    EXPECT_EQ(titles(), QStringList { u""_s });
    EXPECT_TRUE(isFadedOut());
}

TEST_F(ZLQuickEditWindowControllerTest, CloseAndEscapeSaveNothing)
{
    for (const bool usesKeyboard : { false, true }) {
        show();
        m_controller.window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_controller.window()));
        QTest::keyClicks(titleField(), u"Interview"_s);
        if (usesKeyboard)
            QTest::keyClick(&m_controller.window(), Qt::Key_Escape);
        else
            QTest::mouseClick(part<QPushButton>(u"closeButton"_s), Qt::LeftButton);
        EXPECT_TRUE(isFadedOut()) << usesKeyboard;
        EXPECT_EQ(titles(), QStringList { u""_s });
    }
}

TEST_F(ZLQuickEditWindowControllerTest, TheTimerOfAPanelThatWasSavedFindsItClosed)
{
    const QSignalSpy closed(&m_controller, &ZLQuickEditWindowController::didClose);
    show();
    m_controller.saveButtonPressed();
    finishFading();
    QCoreApplication::sendPostedEvents();
    m_timers.advance(5s);
    QCoreApplication::sendPostedEvents();
    EXPECT_FALSE(isVisible());
    EXPECT_EQ(fade()->state(), QAbstractAnimation::Stopped);
    EXPECT_EQ(closed.size(), 1);
}

TEST_F(ZLQuickEditWindowControllerTest, ItCanBeShownAgain)
{
    show();
    m_controller.closeButtonPressed();
    EXPECT_TRUE(isFadedOut());
    show();
    EXPECT_TRUE(isVisible());
    EXPECT_EQ(m_timers.running(), 1U);
    m_timers.advance(5s);
    EXPECT_TRUE(isFadedOut());
}

TEST_F(ZLQuickEditWindowControllerTest, WithoutItsDocumentItOnlyCloses)
{
    auto document = std::make_unique<ZLChapterDocument>(environment());
    m_controller.setChapDoc(document.get());
    show();
    QTest::keyClicks(titleField(), u"Interview"_s);
    document.reset();
    EXPECT_EQ(m_controller.chapDoc(), nullptr);
    m_controller.saveButtonPressed();
    EXPECT_EQ(m_chapter->title(), u""_s);
    EXPECT_TRUE(isFadedOut());
}

TEST_F(ZLQuickEditWindowControllerTest, ForAChapterThatWasDeletedItOnlyCloses)
{
    show();
    QTest::keyClicks(titleField(), u"Interview"_s);
    m_document.removeChapter(m_chapter);
    const QString step = history().undoActionName();
    m_controller.saveButtonPressed();
    EXPECT_EQ(m_chapter->title(), u""_s);
    EXPECT_EQ(history().undoActionName(), step);
    EXPECT_TRUE(isFadedOut());
}

TEST_F(ZLQuickEditWindowControllerTest, ItDoesNotHoldTheProgramBackFromEnding)
{
    const QSignalSpy closed(&m_controller, &ZLQuickEditWindowController::didClose);
    show();
    EXPECT_TRUE(m_controller.window().close());
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(closed.size(), 1);
}
