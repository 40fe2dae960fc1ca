#include "remote/ui/ZLOSCOutputsPanel.h"

#include "remote/ui/ZLConnectionsFixture.h"

#include <QCheckBox>
#include <QTableView>

using namespace Qt::StringLiterals;

class ZLOSCOutputsPanelTest : public ZLConnectionsFixture {
protected:
    void SetUp() override { m_panel.show(); }

    [[nodiscard]] QTableView& table() const { return child<QTableView>(m_panel, "outputs"); }
    [[nodiscard]] QAbstractItemModel& model() const { return *table().model(); }
    [[nodiscard]] QStringList shown() const { return column(model(), ZLOSCOutputsModel::DestinationColumn); }
    [[nodiscard]] static QStringList stored()
    {
        QStringList texts;
        const QList<ZLOSCDestination> outputs = ZLSettingsManager::oscOutputs();
        for (const ZLOSCDestination& output : outputs)
            texts.append(output.text());
        return texts;
    }

    ZLOSCOutputsPanel m_panel { m_controller };
};

TEST_F(ZLOSCOutputsPanelTest, AnOutputIsAddedByTyping)
{
    type(m_panel, "outputField", u"127.0.0.1:9000"_s);
    type(m_panel, "outputField", u"[::1]:9001"_s);
    EXPECT_EQ(stored(), (QStringList { u"127.0.0.1:9000"_s, u"[::1]:9001"_s }));
    EXPECT_EQ(shown(), stored());
    EXPECT_EQ(child<QLineEdit>(m_panel, "outputField").text(), QString());
}

TEST_F(ZLOSCOutputsPanelTest, BadInputIsSaidBesideTheFieldAndNothingIsStored)
{
    for (const QString& bad : { u"127.0.0.1"_s, u"127.0.0.1:0"_s, u":9000"_s, u"127.0.0.1:70000"_s }) {
        type(m_panel, "outputField", bad);
        EXPECT_TRUE(text(m_panel, "outputProblem").contains(bad)) << qPrintable(bad);
    }
    EXPECT_TRUE(stored().isEmpty());
}

TEST_F(ZLOSCOutputsPanelTest, TheSameOutputIsNotStoredTwice)
{
    type(m_panel, "outputField", u"127.0.0.1:9000"_s);
    type(m_panel, "outputField", u"127.0.0.1:9000"_s);
    EXPECT_EQ(stored().size(), 1);
    EXPECT_TRUE(text(m_panel, "outputProblem").contains(u"already"_s));
}

TEST_F(ZLOSCOutputsPanelTest, AnOutputIsEditedInItsPlace)
{
    ZLSettingsManager::setOSCOutputs({ { u"127.0.0.1"_s, 9000 }, { u"127.0.0.1"_s, 9001 } });
    m_panel.addOutput(u"127.0.0.1:9002"_s);
    EXPECT_TRUE(model().setData(model().index(0, 0), u"127.0.0.1:9100"_s));
    EXPECT_EQ(shown(), (QStringList { u"127.0.0.1:9100"_s, u"127.0.0.1:9001"_s, u"127.0.0.1:9002"_s }));
    EXPECT_EQ(stored(), shown());
}

TEST_F(ZLOSCOutputsPanelTest, ABadEditIsSaidAndChangesNothing)
{
    type(m_panel, "outputField", u"127.0.0.1:9000"_s);
    EXPECT_FALSE(model().setData(model().index(0, 0), u"nonsense"_s));
    EXPECT_TRUE(text(m_panel, "outputProblem").contains(u"nonsense"_s));
    EXPECT_EQ(stored(), QStringList(u"127.0.0.1:9000"_s));
    EXPECT_TRUE(model().setData(model().index(0, 0), u"127.0.0.1:9001"_s));
    EXPECT_FALSE(isShown(m_panel, "outputProblem"));
}

TEST_F(ZLOSCOutputsPanelTest, TheSelectedOutputIsRemoved)
{
    type(m_panel, "outputField", u"127.0.0.1:9000"_s);
    type(m_panel, "outputField", u"127.0.0.1:9001"_s);
    EXPECT_FALSE(child<QPushButton>(m_panel, "outputRemove").isEnabled());
    table().selectRow(0);
    click(m_panel, "outputRemove");
    EXPECT_EQ(stored(), QStringList(u"127.0.0.1:9001"_s));
    EXPECT_EQ(shown(), stored());
}

TEST_F(ZLOSCOutputsPanelTest, ItSaysWhetherAnOutputCanBeReached)
{
    type(m_panel, "outputField", u"127.0.0.1:9000"_s);
    EXPECT_EQ(column(model(), ZLOSCOutputsModel::StateColumn), QStringList(u"ready"_s));
    type(m_panel, "outputField", u"no host has this name.invalid:9000"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] {
        return column(model(), ZLOSCOutputsModel::StateColumn).constLast().startsWith(u"not reachable: "_s);
    }));
}

TEST_F(ZLOSCOutputsPanelTest, ChangesFromOutsideAreFollowed)
{
    ZLSettingsManager::setOSCOutputs({ { u"127.0.0.1"_s, 9000 } });
    EXPECT_TRUE(QTest::qWaitFor([this] { return shown() == QStringList(u"127.0.0.1:9000"_s); }));
}

TEST_F(ZLOSCOutputsPanelTest, SendersAreAnsweredOnlyWhenWanted)
{
    auto& box = child<QCheckBox>(m_panel, "answerSenders");
    EXPECT_FALSE(box.isChecked());
    EXPECT_TRUE(box.text().contains(u"60 seconds"_s));
    box.click();
    EXPECT_TRUE(ZLSettingsManager::oscAnswersSenders());
    ZLSettingsManager::setOSCAnswersSenders(false);
    EXPECT_FALSE(box.isChecked());
}

TEST_F(ZLOSCOutputsPanelTest, AnAnsweredSenderIsShownAndCannotBeEdited)
{
    type(m_panel, "outputField", u"127.0.0.1:9000"_s);
    table().selectRow(0);
    ZLSettingsManager::setOSCAnswersSenders(true);
    m_controller.receivedOSCMessage(
        { ZLOSCMessage(u"/zl/newChapter"_s, { 1.0F }), { QHostAddress(QHostAddress::LocalHost), 9010 }, 0 });
    ASSERT_TRUE(QTest::qWaitFor([this] { return shown().size() == 2; }));
    ASSERT_EQ(shown(), (QStringList { u"127.0.0.1:9000"_s, u"127.0.0.1:9010"_s }));
    EXPECT_TRUE(table().selectionModel()->isRowSelected(0));
    EXPECT_EQ(model().index(1, 1).data().toString(), u"getting replies"_s);
    EXPECT_FALSE(model().flags(model().index(1, 0)).testFlag(Qt::ItemIsEditable));
    EXPECT_TRUE(model().flags(model().index(0, 0)).testFlag(Qt::ItemIsEditable));
    table().selectRow(1);
    EXPECT_FALSE(child<QPushButton>(m_panel, "outputRemove").isEnabled());
    EXPECT_EQ(stored(), QStringList(u"127.0.0.1:9000"_s));
}
