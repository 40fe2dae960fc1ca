#include "app/ui/menus/ZLRevertMenu.h"

#include "app/ui/ZLDesktopFixture.h"

#include <QDeadlineTimer>
#include <QLocale>
#include <QMenu>

using namespace Qt::StringLiterals;

class ZLRevertMenuTest : public ZLDesktopFixture {
protected:
    void SetUp() override
    {
        ZLDesktopFixture::SetUp();
        m_document = openFile(storedFile(u"show.zelta"_s));
    }

    /// The items as the user sees them.
    [[nodiscard]] QList<QAction*> items()
    {
        open();
        const QDeadlineTimer patience(std::chrono::minutes(1));
        while (isLooking() && !patience.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return menu()->actions();
    }
    [[nodiscard]] QMenu* menu() { return windowOf(m_document).findChild<QMenu*>(u"revertMenu"_s); }
    [[nodiscard]] bool isLooking() { return menu()->findChild<QAction*>(u"lookingForFormerStates"_s) != nullptr; }
    void open()
    {
        ASSERT_NE(menu(), nullptr);
        Q_EMIT menu()->aboutToShow();
    }
    void changeAndWrite(const QString& title)
    {
        m_clock->advance(60.0);
        addChapter(m_document, title);
        writeNow(m_document);
    }

    ZLChapterDocument* m_document = nullptr;
};

TEST_F(ZLRevertMenuTest, WithoutStatesItSaysSo)
{
    ASSERT_EQ(items().size(), 1);
    EXPECT_FALSE(items().first()->text().isEmpty());
    EXPECT_FALSE(items().first()->isEnabled());
}

TEST_F(ZLRevertMenuTest, ItSaysThatItLooks)
{
    changeAndWrite(u"Two"_s);
    open();
    EXPECT_TRUE(isLooking());
}

TEST_F(ZLRevertMenuTest, ItListsTheStatesNewestFirst)
{
    changeAndWrite(u"Two"_s);
    changeAndWrite(u"Three"_s);
    const auto states = items();
    ASSERT_EQ(states.size(), 2);
    EXPECT_TRUE(states.at(0)->text().endsWith(u" — 2 chapters"_s)) << qPrintable(states.at(0)->text());
    EXPECT_TRUE(states.at(1)->text().endsWith(u" — 1 chapter"_s)) << qPrintable(states.at(1)->text());
    for (const QAction* state : states)
        EXPECT_FALSE(state->toolTip().isEmpty());
}

TEST_F(ZLRevertMenuTest, ChoosingOneIsAStepToUndo)
{
    changeAndWrite(u"Two"_s);
    changeAndWrite(u"Three"_s);
    m_document->undoManager().removeAllActions();
    items().last()->trigger();
    settle();
    EXPECT_EQ(titles(m_document), QStringList { u"Stored"_s });
    EXPECT_EQ(m_document->undoManager().undoActionName(), u"Revert"_s);
    writeNow(m_document);
    EXPECT_EQ(titlesInFile(filePath(u"show.zelta"_s)), QStringList { u"Stored"_s });
    m_document->undoManager().undo();
    EXPECT_EQ(titles(m_document), (QStringList { u"Stored"_s, u"Two"_s, u"Three"_s }));
    EXPECT_FALSE(m_document->undoManager().canUndo());
}

TEST_F(ZLRevertMenuTest, ItIsClosedWhileTheClockRuns)
{
    const QAction* submenu = windowOf(m_document).findChild<QMenu*>(u"revertMenu"_s)->menuAction();
    EXPECT_TRUE(submenu->isEnabled());
    m_document->startRecordingWithTime(m_clock->now());
    EXPECT_FALSE(submenu->isEnabled());
    m_document->recordButtonPressed();
    EXPECT_TRUE(submenu->isEnabled());
}

TEST_F(ZLRevertMenuTest, AStateThatWentMeanwhileIsSaidInTheBar)
{
    changeAndWrite(u"Two"_s);
    const auto states = items();
    ASSERT_TRUE(QFile::remove(m_controller.saverOf(m_document)->history()->states().value(0).path));
    states.first()->trigger();
    settle();
    EXPECT_FALSE(barText(m_document).isEmpty());
    EXPECT_EQ(titles(m_document), (QStringList { u"Stored"_s, u"Two"_s }));
}

TEST_F(ZLRevertMenuTest, AMomentReadsAsPeopleSayIt)
{
    const QDateTime now(QDate(2026, 11, 21), QTime(18, 30));
    const auto textOf = [&](const QDateTime& time, qsizetype chapterCount) {
        return ZLRevertMenu::textFor({ .time = time.toUTC(), .chapterCount = chapterCount }, now);
    };
    const QString clock = QLocale().toString(QTime(14, 3), QLocale::ShortFormat);
    EXPECT_EQ(textOf(QDateTime(QDate(2026, 11, 21), QTime(14, 3)), 12), u"Today %1 — 12 chapters"_s.arg(clock));
    EXPECT_EQ(textOf(QDateTime(QDate(2026, 11, 20), QTime(14, 3)), 1), u"Yesterday %1 — 1 chapter"_s.arg(clock));
    EXPECT_EQ(textOf(QDateTime(QDate(2026, 11, 19), QTime(14, 3)), 0),
        u"%1 %2 — 0 chapters"_s.arg(QLocale().toString(QDate(2026, 11, 19), QLocale::ShortFormat), clock));
}
