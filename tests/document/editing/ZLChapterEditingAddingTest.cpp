#include "document/ZLChapterDocument.h"

#include "document/ZLChapterDocumentCommandsFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using Settings = ZLSettingsManager;

class ZLChapterEditingAddingTest : public ZLChapterDocumentCommandsTest { };

TEST_F(ZLChapterEditingAddingTest, ANewChapterCarriesTheClocksReadingAndTheDate)
{
    startAndAdvance(12.5);
    m_document.addChapterButtonPressed();
    ASSERT_EQ(chapters().count(), 1);
    EXPECT_EQ(chapters().lastChapter()->timeStamp(), 12.5);
    EXPECT_EQ(chapters().lastChapter()->realDate(), m_wallClock);
    EXPECT_TRUE(chapters().lastChapter()->isEnabled());
    expectUndoName(u"Create Chapter"_s);
}

TEST_F(ZLChapterEditingAddingTest, WithoutARunningClockNoChapterIsAdded)
{
    addTemplate(u"News"_s);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_EQ(templates().count(), 1);
    EXPECT_FALSE(history().canUndo());
    record(5.0);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(chapters().count(), 0);
}

TEST_F(ZLChapterEditingAddingTest, CreatingAChapterIsUndoneAndRedone)
{
    startAndAdvance(1.0);
    m_document.addChapterButtonPressed();
    const auto chapter = chapters().lastChapter();
    history().undo();
    EXPECT_EQ(chapters().count(), 0);
    expectRedoName(u"Delete Chapter"_s);
    advance(10.0);
    history().redo();
    EXPECT_EQ(chapters().allChapters(), ZLChapterSequence({ chapter }));
    EXPECT_EQ(chapter->timeStamp(), 1.0);
    expectUndoName(u"Create Chapter"_s);
}

TEST_F(ZLChapterEditingAddingTest, TheFirstTemplateIsTakenFirst)
{
    addTemplate(u"Intro"_s);
    addTemplate(u"News"_s);
    startAndAdvance(7.0);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(titles(), QStringList({ u"Intro"_s }));
    EXPECT_EQ(times(), QList<double>({ 7.0 }));
    EXPECT_EQ(chapters().lastChapter()->realDate(), m_wallClock);
    EXPECT_EQ(ZLTestChapters::titles(templates().allChapters()), QStringList({ u"News"_s }));
    expectUndoName(u"Create Chapter"_s);
}

TEST_F(ZLChapterEditingAddingTest, WithOptionHeldTheTemplatesAreLeftAlone)
{
    addTemplate(u"Intro"_s);
    startAndAdvance(7.0);
    m_isOptionKeyHeld = true;
    m_document.addChapterButtonPressed();
    EXPECT_EQ(titles(), QStringList({ u""_s }));
    EXPECT_EQ(templates().count(), 1);
}

TEST_F(ZLChapterEditingAddingTest, ATemplateWithATimeOfItsOwnKeepsTimeAndDate)
{
    const auto prepared = addTemplate(u"Planned"_s, 30.0);
    startAndAdvance(600.0);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(prepared->timeStamp(), 30.0);
    EXPECT_EQ(prepared->realDate(), ZLChapter::distantPast());
    EXPECT_EQ(chapters().lastChapter(), prepared);
}

TEST_F(ZLChapterEditingAddingTest, UndoPutsTheTemplateBackInFront)
{
    const auto intro = addTemplate(u"Intro"_s);
    addTemplate(u"News"_s);
    startAndAdvance(7.0);
    m_document.addChapterButtonPressed();
    history().undo();
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_EQ(templates().chapterAtIndex(0), intro);
    EXPECT_EQ(templates().count(), 2);
    expectRedoName(u"Remove Chapter"_s);
    history().redo();
    EXPECT_EQ(titles(), QStringList({ u"Intro"_s }));
    EXPECT_EQ(templates().count(), 1);
    expectUndoName(u"Create Chapter"_s);
}

TEST_F(ZLChapterEditingAddingTest, ATemplateThatIsAddedAgainKeepsTheTimeOfItsFirstAdding)
{
    const auto intro = addTemplate(u"Intro"_s);
    startAndAdvance(7.0);
    m_document.addChapterButtonPressed();
    const QDateTime firstDate = intro->realDate();
    history().undo();
    advance(100.0);
    history().redo();
    EXPECT_EQ(intro->timeStamp(), 7.0);
    history().undo();
    advance(100.0);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(chapters().lastChapter(), intro);
    EXPECT_EQ(intro->timeStamp(), 7.0);
    EXPECT_EQ(intro->realDate(), firstDate);
}

TEST_F(ZLChapterEditingAddingTest, ANewChapterIsSelectedAndOpenedOnlyInTheActiveProgram)
{
    const QSignalSpy edits(&m_document.typing(), &ZLTypingRequests::wantsEditing);
    addChapterAt(50.0);
    addChapterAt(10.0);
    EXPECT_EQ(m_document.selectedRow(), 0);
    EXPECT_EQ(edits.size(), 0);
    m_isApplicationActive = true;
    addChapterAt(30.0);
    EXPECT_EQ(m_document.selectedRow(), 1);
    ASSERT_EQ(edits.size(), 1);
    const auto index = edits.first().first().toModelIndex();
    EXPECT_EQ(index.row(), 1);
    EXPECT_EQ(ZLChapterTableModel::columnIdentifier(index.column()), u"title"_s);
}

TEST_F(ZLChapterEditingAddingTest, ANewChapterIsNotifiedToAUserWhoIsElsewhere)
{
    Settings::setShowQuickEdit(true);
    addChapterAt(500.0);
    startAndAdvance(65.5);
    m_document.addChapterButtonPressed();
    const auto last = chapters().lastChapter();
    EXPECT_EQ(m_notificationCenter->delivered(),
        QList<ZLUserNotification>({ { .title = u"New Chapter Added"_s,
            .subtitle = u"00:08:20.000"_s,
            .informativeText = u"Press Reply to quickly set a title"_s,
            .hasActionButton = true,
            .hasReplyButton = true,
            .responsePlaceholder = u"Chapter title"_s,
            .userInfo = { { u"ChapterUUID"_s, last->uuid() } } } }));
}

TEST_F(ZLChapterEditingAddingTest, NothingIsNotifiedWithoutTheSettingInTheActiveProgramOrForATemplate)
{
    startAndAdvance(1.0);
    m_document.addChapterButtonPressed();
    Settings::setShowQuickEdit(true);
    m_isApplicationActive = true;
    m_document.addChapterButtonPressed();
    m_isApplicationActive = false;
    addTemplate(u"News"_s);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(chapters().count(), 3);
    EXPECT_TRUE(m_notificationCenter->delivered().isEmpty());
    history().undo();
    history().redo();
    EXPECT_TRUE(m_notificationCenter->delivered().isEmpty());
}
