#include "document/ZLTitleTidying.h"

#include "document/ZLChapterDocumentCommandsFixture.h"

using namespace Qt::StringLiterals;

using ZLTitleTidyingTest = ZLChapterDocumentCommandsTest;

TEST_F(ZLTitleTidyingTest, TakesOutWhatCannotBeSeen)
{
    EXPECT_EQ(ZLTitleTidying::tidied(u" News\r"_s), u"News"_s);
    EXPECT_EQ(ZLTitleTidying::tidied(u"a\u0007b\u009f c"_s), u"ab c"_s);
    EXPECT_EQ(ZLTitleTidying::tidied(u"Grüße 👋 zu zweit"_s), u"Grüße 👋 zu zweit"_s);
    EXPECT_FALSE(ZLTitleTidying::tidied(u" \t"_s).isNull());
    EXPECT_TRUE(ZLTitleTidying::tidied(QString()).isNull());
}

TEST_F(ZLTitleTidyingTest, ChaptersAndTemplatesAreOneStep)
{
    const auto chapter = addChapterAt(1.0, u"News\r"_s);
    chapter->setLink(u" example.org "_s);
    addChapterAt(2.0, u"tidy"_s);
    const auto prepared = addTemplate(u"\tMail"_s);
    history().removeAllActions();
    m_document.setDocumentEdited(false);

    EXPECT_EQ(ZLTitleTidying::tidy(m_document), 2);
    EXPECT_EQ(titles(), (QStringList { u"News"_s, u"tidy"_s }));
    EXPECT_EQ(chapter->link(), u"example.org"_s);
    EXPECT_EQ(prepared->title(), u"Mail"_s);
    EXPECT_TRUE(m_document.isDocumentEdited());
    expectUndoName(u"Tidy Titles"_s);

    history().undo();
    EXPECT_EQ(chapter->title(), u"News\r"_s);
    EXPECT_EQ(chapter->link(), u" example.org "_s);
    EXPECT_EQ(prepared->title(), u"\tMail"_s);
    EXPECT_FALSE(history().canUndo());
    expectRedoName(u"Tidy Titles"_s);
    history().redo();
    EXPECT_EQ(prepared->title(), u"Mail"_s);
}

TEST_F(ZLTitleTidyingTest, NothingToTidyIsNoStep)
{
    addChapterAt(1.0, u"News"_s)->setLink(QString());
    history().removeAllActions();
    EXPECT_EQ(ZLTitleTidying::tidy(m_document), 0);
    EXPECT_FALSE(history().canUndo());
    EXPECT_TRUE(chapters().lastChapter()->link().isNull());
}
