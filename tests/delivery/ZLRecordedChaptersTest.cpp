#include "delivery/ZLRecordedChapters.h"

#include "document/shared/ZLRecorderFiles.h"
#include "support/ZLDocumentFixture.h"

using namespace Qt::StringLiterals;

class ZLRecordedChaptersTest : public ZLDocumentFixture {
protected:
    void SetUp() override
    {
        ZLRecorderFiles::add(m_document.extras(), { u"/shows/one.mp4"_s, 0.0 });
        ZLRecorderFiles::add(m_document.extras(), { u"/shows/two.MP4"_s, 60.0 });
        ZLRecorderFiles::add(m_document.extras(), { u"/shows/three.mkv"_s, 120.0 });
    }
};

TEST_F(ZLRecordedChaptersTest, FilesWhoseFormHoldsChaptersAreProposed)
{
    EXPECT_EQ(ZLRecordedChapters::audioFiles(m_document), QStringList({ u"/shows/one.mp4"_s, u"/shows/two.MP4"_s }));
}

TEST_F(ZLRecordedChaptersTest, ChaptersStandWhereTheyAreInEachFile)
{
    addChapterAt(10.0, u"Hello"_s);
    const auto later = addChapterAt(75.0, u"Guest"_s);
    EXPECT_FALSE(ZLRecordedChapters::forFile(m_document, u"/shows/one.mp4"_s)) << "as they are";
    EXPECT_FALSE(ZLRecordedChapters::forFile(m_document, u"/shows/other.mp4"_s));
    const auto placed = ZLRecordedChapters::forFile(m_document, u"/shows/two.MP4"_s);
    ASSERT_TRUE(placed);
    ASSERT_EQ(placed->size(), 2);
    EXPECT_EQ(placed->at(0)->timeStamp(), -50.0);
    EXPECT_EQ(placed->at(1)->timeStamp(), 15.0);
    EXPECT_EQ(placed->at(1)->title(), u"Guest"_s);
    EXPECT_EQ(later->timeStamp(), 75.0) << "the document is not touched";
}
