#include "document/ui/ZLWindowFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

class ZLStatusLineTest : public ZLWindowFixture {
protected:
    [[nodiscard]] ZLStatusLine& line() { return m_window->statusLine(); }
    [[nodiscard]] QToolButton* part(const QString& name) { return line().findChild<QToolButton*>(name); }
};

TEST_F(ZLStatusLineTest, NamesTheNextTemplate)
{
    EXPECT_EQ(part(u"nextTemplate"_s)->text(), u"No templates"_s);
    const auto first = addTemplate(u"News"_s);
    addTemplate(u"Mail & more"_s);
    EXPECT_EQ(part(u"nextTemplate"_s)->text(), u"Next: News"_s);
    templates().removeChapter(first);
    EXPECT_EQ(part(u"nextTemplate"_s)->text(), u"Next: Mail && more"_s);
    m_document.templateViewController().tableModel().setData(
        m_document.templateViewController().tableModel().index(0, 0), u"Post"_s, Qt::EditRole);
    EXPECT_EQ(part(u"nextTemplate"_s)->text(), u"Next: Post"_s);
}

TEST_F(ZLStatusLineTest, ALongTitleIsCutForTheEyeAndNotForTheEar)
{
    const QString title = QString(300, u'x');
    addTemplate(title);
    EXPECT_LT(part(u"nextTemplate"_s)->text().size(), 60);
    EXPECT_EQ(part(u"nextTemplate"_s)->accessibleName(), u"Next: "_s + title);
}

TEST_F(ZLStatusLineTest, TheNextTemplateLeadsToTheDrawer)
{
    m_window->toggleDrawer();
    QTest::mouseClick(part(u"nextTemplate"_s), Qt::LeftButton);
    EXPECT_TRUE(m_window->isDrawerOpen());
}

TEST_F(ZLStatusLineTest, PartsSayWhichOneWasClicked)
{
    line().setSaveStatus(u"Saved"_s, u"Written to /shows/one.zelta"_s);
    line().setPart(u"osc"_s, u"OSC 9358"_s, u"Listening"_s);
    const QSignalSpy save(&line(), &ZLStatusLine::saveStatusClicked);
    const QSignalSpy parts(&line(), &ZLStatusLine::partClicked);
    EXPECT_EQ(part(u"saveStatus"_s)->toolTip(), u"Written to /shows/one.zelta"_s);
    QTest::mouseClick(part(u"saveStatus"_s), Qt::LeftButton);
    QTest::mouseClick(part(u"osc"_s), Qt::LeftButton);
    EXPECT_EQ(save.count(), 1);
    ASSERT_EQ(parts.count(), 2);
    EXPECT_EQ(parts.last().first().toString(), u"osc"_s);
    line().setPart(u"osc"_s, {}, {});
    EXPECT_FALSE(part(u"osc"_s)->isVisible());
}

TEST_F(ZLStatusLineTest, APassingMessagePasses)
{
    line().setPassingMessageDuration(1);
    line().showPassingMessage(u"Exported."_s);
    EXPECT_EQ(line().passingMessage(), u"Exported."_s);
    EXPECT_FALSE(part(u"nextTemplate"_s)->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([this] { return line().passingMessage().isEmpty(); }));
    EXPECT_TRUE(part(u"nextTemplate"_s)->isVisible());
}

TEST_F(ZLStatusLineTest, TheActionOfAPassingMessageRunsOnce)
{
    int calls = 0;
    line().showPassingMessage(u"Exported."_s, u"Show"_s, [&calls] { ++calls; });
    QToolButton* button = part(u"passingMessageButton"_s);
    EXPECT_EQ(button->text(), u"Show"_s);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(button->isVisible());
    EXPECT_TRUE(line().passingMessage().isEmpty());
}
