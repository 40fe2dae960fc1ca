#include "document/ZLDocumentSnapshot.h"

#include "support/ZLDocumentFixture.h"

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

class ZLDocumentSnapshotTest : public ZLDocumentFixture {
protected:
    void fill()
    {
        for (int number = 0; number < 50; ++number)
            addChapterAt(number, u"Chapter %1"_s.arg(number));
        addTemplate(u"Prepared"_s, 7.0);
        m_document.extras().change(u"Recorder"_s, u"obs"_s);
        m_document.extras().changeOfChapter(chapters().lastChapter()->uuid(), u"Reading"_s, 49.5);
    }

    /// Changes something of every kind.
    void changeEverything(int round)
    {
        const auto all = chapters().allChapters();
        for (const auto& chapter : all)
            m_document.updateChapterToTitle(chapter, u"Round %1"_s.arg(round));
        m_document.moveChaptersByMilliseconds(10.0F);
        addChapterAt(100.0 + round);
        m_document.deleteLastChapter();
        templates().chapterAtIndex(0)->setTitle(u"Round %1"_s.arg(round));
        m_document.extras().change(u"Recorder"_s, round);
        m_document.extras().changeOfChapter(all.first()->uuid(), u"Reading"_s, double(round));
    }
};

TEST_F(ZLDocumentSnapshotTest, ItHasTheBytesOfTheDocumentAndKeepsThemWhileThatChanges)
{
    fill();
    const QByteArray bytes = m_document.dataOfType();
    const ZLDocumentSnapshot snapshot = m_document.snapshot();
    changeEverything(1);
    EXPECT_NE(m_document.dataOfType(), bytes);
    EXPECT_EQ(snapshot.encoded(), bytes);
}

TEST_F(ZLDocumentSnapshotTest, ItsBytesAreMadeOnAnotherThreadWhileTheDocumentChanges)
{
    fill();
    const QByteArray bytes = m_document.dataOfType();
    std::atomic<bool> isDone = false;
    QList<QByteArray> made;
    std::thread worker([&, snapshot = m_document.snapshot()] {
        for (int round = 0; round < 20; ++round)
            made.append(snapshot.encoded());
        isDone = true;
    });
    for (int round = 0; !isDone; ++round)
        changeEverything(round);
    worker.join();
    EXPECT_EQ(made, QList<QByteArray>(20, bytes));
}

TEST_F(ZLDocumentSnapshotTest, AChapterThatHasNotChangedIsSharedByAllSnapshots)
{
    fill();
    const auto first = m_document.snapshot().chapters;
    chapters().chapterAtIndex(1)->setTitle(u"Other"_s);
    const auto second = m_document.snapshot().chapters;
    EXPECT_EQ(first.at(0), second.at(0)) << "taking a snapshot copies no chapter";
    EXPECT_NE(first.at(1), second.at(1));
    EXPECT_EQ(first.at(1)->title, u"Chapter 1"_s);
}
