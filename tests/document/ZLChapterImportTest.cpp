#include "document/ZLChapterImport.h"

#include "document/ZLChapterDocumentCommandsFixture.h"
#include "support/ZLChangeSpy.h"

#include <QSet>
#include <QTimeZone>

#include <limits>

using namespace Qt::StringLiterals;

class ZLChapterImportTest : public ZLChapterDocumentCommandsTest {
protected:
    const QList<ZLListedChapter> m_listed {
        { .start = 30.0, .title = u"News"_s, .link = u"https://example.org"_s },
        { .start = 0.0, .title = u"Welcome"_s, .isEnabled = false },
    };

    qsizetype import(ZLChapterImport::Way way, double shift = 0.0)
    {
        return ZLChapterImport::importChapters(m_document, m_listed, way, shift);
    }
};

TEST_F(ZLChapterImportTest, AddsToWhatIsThereInTheOrderOfTheirTimes)
{
    addChapterAt(10.0, u"Own"_s);
    EXPECT_EQ(import(ZLChapterImport::Way::Add), 2);
    EXPECT_EQ(titles(), (QStringList { u"Welcome"_s, u"Own"_s, u"News"_s }));
    EXPECT_EQ(times(), (QList<double> { 0.0, 10.0, 30.0 }));
    EXPECT_EQ(chapters().chapterAtIndex(2)->link(), u"https://example.org"_s);
    EXPECT_FALSE(chapters().chapterAtIndex(0)->isEnabled());
    EXPECT_TRUE(chapters().chapterAtIndex(2)->isEnabled());
}

TEST_F(ZLChapterImportTest, IsOneStepThatCanBeUndoneAndDoneAgain)
{
    addChapterAt(10.0, u"Own"_s);
    for (const auto way : { ZLChapterImport::Way::Add, ZLChapterImport::Way::Replace }) {
        import(way);
        expectUndoName(u"Import Chapters"_s);
        const QStringList imported = titles();
        history().undo();
        EXPECT_EQ(titles(), QStringList { u"Own"_s });
        expectRedoName(u"Import Chapters"_s);
        history().redo();
        EXPECT_EQ(titles(), imported);
        history().undo();
    }
    EXPECT_EQ(undoEverything(), 1) << "what is left is the chapter that was there";
}

TEST_F(ZLChapterImportTest, ReplacesWhatIsThere)
{
    addChapterAt(10.0, u"Own"_s);
    EXPECT_EQ(import(ZLChapterImport::Way::Replace), 2);
    EXPECT_EQ(titles(), (QStringList { u"Welcome"_s, u"News"_s }));
}

TEST_F(ZLChapterImportTest, MovesThemByTheShiftAndDisablesWhatLiesBeforeTheStart)
{
    import(ZLChapterImport::Way::Add, -10.0);
    EXPECT_EQ(times(), (QList<double> { -10.0, 20.0 }));
    EXPECT_TRUE(chapters().chapterAtIndex(1)->isEnabled());
    const QList<ZLListedChapter> before { { .start = -1.0, .title = u"Before"_s, .isEnabled = true } };
    ZLChapterImport::importChapters(m_document, before, ZLChapterImport::Way::Replace);
    EXPECT_FALSE(chapters().chapterAtIndex(0)->isEnabled());
}

TEST_F(ZLChapterImportTest, LeavesARunningClockAloneAndLetsMarksCome)
{
    m_isApplicationActive = true;
    startAndAdvance(20.0);
    m_document.addNewBlankChapter();
    const ZLChapterPointer marked = chapters().chapterAtIndex(0);
    int editings = 0;
    QObject::connect(&m_document.typing(), &ZLTypingRequests::wantsEditing, &m_document, [&] { ++editings; });
    import(ZLChapterImport::Way::Add);
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(m_document.currentDuration(), 20.0);
    EXPECT_EQ(editings, 0) << "no title opens for typing";
    EXPECT_EQ(chapters().chapterAtIndex(m_document.selectedRow()), marked) << "which may be in use";
    advance(5.0);
    m_document.addNewBlankChapter();
    EXPECT_EQ(times(), (QList<double> { 0.0, 20.0, 25.0, 30.0 }));
    history().undo();
    history().undo();
    EXPECT_EQ(times(), QList<double> { 20.0 });
    EXPECT_EQ(chapters().chapterAtIndex(m_document.selectedRow()), marked);
    EXPECT_EQ(m_document.currentDuration(), 25.0);
}

TEST_F(ZLChapterImportTest, AnnouncesTheNewContentsOnce)
{
    const ZLChangeSpy told(m_document, ~ZLDocumentChange::Parts());
    import(ZLChapterImport::Way::Add);
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told.changes().first().concerns(ZLDocumentChange::Contents));
    EXPECT_TRUE(told.changes().first().concerns(ZLDocumentChange::Rows));
    EXPECT_TRUE(m_document.isDocumentEdited());
    EXPECT_EQ(m_document.selectedRow(), 0);
}

TEST_F(ZLChapterImportTest, WithNothingToAddNothingHappens)
{
    addChapterAt(10.0, u"Own"_s);
    const QList<ZLListedChapter> timeless { { .start = std::numeric_limits<double>::quiet_NaN() } };
    for (const auto way : { ZLChapterImport::Way::Add, ZLChapterImport::Way::Replace }) {
        EXPECT_EQ(ZLChapterImport::importChapters(m_document, timeless, way), 0);
        EXPECT_EQ(ZLChapterImport::importChapters(m_document, {}, way), 0);
    }
    EXPECT_EQ(titles(), QStringList { u"Own"_s });
    EXPECT_EQ(undoEverything(), 1);
}

TEST_F(ZLChapterImportTest, AChapterOfADocumentKeepsItsTagsItsDateAndItsUUID)
{
    const QDateTime date(QDate(2026, 3, 1), QTime(20, 15), QTimeZone::utc());
    const ZLListedChapter listed {
        .start = 5.0, .title = u"News"_s, .tags = u"politics"_s, .date = date, .uuid = u"A1"_s
    };
    ZLChapterImport::importChapters(m_document, { listed }, ZLChapterImport::Way::Add);
    const ZLChapterPointer first = chapters().chapterAtIndex(0);
    EXPECT_EQ(first->tags(), u"politics"_s);
    EXPECT_EQ(first->realDate(), date);
    EXPECT_EQ(first->uuid(), u"A1"_s);

    ZLChapterImport::importChapters(m_document, { listed, listed }, ZLChapterImport::Way::Add);
    QSet<QString> uuids;
    for (const ZLChapterPointer& chapter : chapters().allChapters())
        uuids.insert(chapter->uuid());
    EXPECT_EQ(uuids.size(), 3);
    EXPECT_EQ(first->uuid(), u"A1"_s);

    ZLChapterImport::importChapters(m_document, { listed }, ZLChapterImport::Way::Replace);
    EXPECT_NE(chapters().chapterAtIndex(0)->uuid(), u"A1"_s);
}

TEST_F(ZLChapterImportTest, AChapterOfAListHasNoDateAndAnUUIDOfItsOwn)
{
    import(ZLChapterImport::Way::Add);
    EXPECT_EQ(chapters().chapterAtIndex(0)->realDate(), ZLChapter::distantPast());
    EXPECT_FALSE(chapters().chapterAtIndex(0)->uuid().isEmpty());
    EXPECT_NE(chapters().chapterAtIndex(0)->uuid(), chapters().chapterAtIndex(1)->uuid());
    EXPECT_FALSE(chapters().chapterAtIndex(0)->tags().isNull());
}
