#include "remote/ui/ZLOSCLogPanel.h"

#include "remote/ui/ZLConnectionsFixture.h"
#include "remote/ui/ZLOSCLogView.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class ZLOSCLogPanelTest : public ZLConnectionsFixture {
protected:
    void SetUp() override
    {
        m_panel.resize(800, 300);
        m_panel.show();
    }

    static ZLOSCLogEntry entry(int number, bool isProblem = false)
    {
        return { .time = QDateTime(QDate(2024, 5, 1), QTime(14, 3, 7, 250)),
            .peer = u"192.0.2.7:8000"_s,
            .address = u"/zl/newChapter"_s,
            .value = QString::number(number),
            .outcome = isProblem ? u"ignored: value 0"_s : u"added a chapter"_s,
            .isProblem = isProblem };
    }
    void append(int from, int count)
    {
        for (int number = from; number < from + count; ++number)
            m_log.append(entry(number, number % 2 == 0));
        m_log.flush();
        // The view lays itself out before it is next painted.
        QCoreApplication::processEvents();
    }
    [[nodiscard]] ZLOSCLogView& view() const { return child<ZLOSCLogView>(m_panel, "log"); }
    [[nodiscard]] QScrollBar& bar() const { return *view().verticalScrollBar(); }
    [[nodiscard]] QStringList shown(int which = ZLOSCLog::ValueColumn) const { return column(*view().model(), which); }
    [[nodiscard]] QString firstVisible() const
    {
        return view().model()->index(view().rowAt(0), ZLOSCLog::ValueColumn).data().toString();
    }

    ZLOSCLog m_log;
    ZLOSCLogPanel m_panel { m_log };
};

TEST_F(ZLOSCLogPanelTest, AMessageHasTimePeerAddressValueAndOutcome)
{
    append(1, 1);
    QStringList cells;
    for (int which = 0; which < view().model()->columnCount(); ++which)
        cells += shown(which);
    EXPECT_EQ(cells,
        (QStringList {
            u"14:03:07.250"_s, u"in"_s, u"192.0.2.7:8000"_s, u"/zl/newChapter"_s, u"1"_s, u"added a chapter"_s }));
}

TEST_F(ZLOSCLogPanelTest, ItStaysAtTheEndUnlessSomebodyScrolledUp)
{
    append(0, 100);
    ASSERT_GT(bar().maximum(), 10);
    EXPECT_EQ(bar().value(), bar().maximum());
    append(100, 5);
    EXPECT_EQ(bar().value(), bar().maximum());
    bar().setValue(10);
    append(105, 5);
    EXPECT_EQ(bar().value(), 10);
    bar().setValue(bar().maximum());
    append(110, 5);
    EXPECT_EQ(bar().value(), bar().maximum());
}

TEST_F(ZLOSCLogPanelTest, WhatIsBeingReadStaysWhileOlderRowsGo)
{
    append(0, int(ZLOSCLog::Capacity));
    bar().setValue(200);
    ASSERT_EQ(firstVisible(), u"200"_s);
    append(1000, 7);
    EXPECT_EQ(firstVisible(), u"200"_s);
    EXPECT_EQ(shown().size(), ZLOSCLog::Capacity);
}

TEST_F(ZLOSCLogPanelTest, AFullLogStaysAtItsEnd)
{
    append(0, int(ZLOSCLog::Capacity));
    append(1000, 7);
    EXPECT_EQ(bar().value(), bar().maximum());
    EXPECT_EQ(shown().constLast(), u"1006"_s);
}

TEST_F(ZLOSCLogPanelTest, AFloodIsFewChangesOfTheViewAndNoReset)
{
    const QSignalSpy insertions(view().model(), &QAbstractItemModel::rowsInserted);
    const QSignalSpy resets(view().model(), &QAbstractItemModel::modelReset);
    append(0, 5000);
    EXPECT_EQ(insertions.size(), 1);
    EXPECT_EQ(resets.size(), 0);
    EXPECT_EQ(shown().size(), ZLOSCLog::Capacity);
    EXPECT_EQ(shown().constLast(), u"4999"_s);
}

TEST_F(ZLOSCLogPanelTest, OnlyProblemsAreShownWhenWanted)
{
    append(0, 4);
    child<QCheckBox>(m_panel, "onlyProblems").click();
    EXPECT_EQ(shown(), (QStringList { u"0"_s, u"2"_s }));
    append(4, 2);
    EXPECT_EQ(shown(), (QStringList { u"0"_s, u"2"_s, u"4"_s }));
    child<QCheckBox>(m_panel, "onlyProblems").click();
    EXPECT_EQ(shown().size(), 6);
}

TEST_F(ZLOSCLogPanelTest, PausedItKeepsStillAndLosesNothing)
{
    append(0, 2);
    auto& pause = child<QPushButton>(m_panel, "pauseLog");
    pause.click();
    m_log.append(entry(2));
    QTest::qWait(250);
    EXPECT_EQ(shown().size(), 2);
    EXPECT_EQ(pause.text().remove(u'&'), u"Continue"_s);
    pause.click();
    EXPECT_EQ(shown(), (QStringList { u"0"_s, u"1"_s, u"2"_s }));
}

TEST_F(ZLOSCLogPanelTest, ThePauseEndsWithTheWindow)
{
    auto panel = std::make_unique<ZLOSCLogPanel>(m_log);
    child<QPushButton>(*panel, "pauseLog").click();
    EXPECT_TRUE(m_log.isHeld());
    panel.reset();
    EXPECT_FALSE(m_log.isHeld());
}

TEST_F(ZLOSCLogPanelTest, SelectedMessagesAreCopiedElseAll)
{
    append(1, 3);
    click(m_panel, "copyLog");
    EXPECT_EQ(QGuiApplication::clipboard()->text().count(u'\n'), 3);
    view().selectRow(1);
    QTest::keySequence(&view(), QKeySequence::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
        u"14:03:07.250\tin\t192.0.2.7:8000\t/zl/newChapter\t2\tignored: value 0\n"_s);
}

TEST_F(ZLOSCLogPanelTest, ItIsCleared)
{
    append(1, 3);
    click(m_panel, "clearLog");
    EXPECT_TRUE(shown().isEmpty());
}
