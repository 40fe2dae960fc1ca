#include "document/saving/ZLMoveToFile.h"

#include "document/saving/SavingFixture.h"

#include <QTest>

#include <atomic>
#include <semaphore>

using namespace Qt::StringLiterals;

namespace {

/// A document that is saved under another name while it goes on.
class ZLMoveToFileTest : public SavingFixture {
protected:
    ZLMoveToFileTest()
    {
        machinery.executor = {};
        machinery.writeFile = [this](const QString& path, const QByteArray& bytes) -> ZLStatus {
            if (path == other && isHeld) {
                atDisk.release();
                goOn.acquire();
            }
            writes.append(path);
            return path == other && isFull ? ZLStatus(ZLError { u"full"_s }) : ZLAtomicFile::write(path, bytes);
        };
        saver = titledSaver(first);
    }

    void askToMove()
    {
        saver->saveAs(other, [this](const ZLStatus& status) { outcome = status; });
    }
    /// Lets `change` happen while the disk takes its time.
    void duringTheWrite(const std::function<void()>& change)
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return atDisk.try_acquire(); }));
        change();
        goOn.release();
    }
    bool isOver()
    {
        return QTest::qWaitFor([this] { return outcome.has_value(); });
    }

    const QString first = filePath("show.zelta");
    const QString other = filePath("other.zelta");
    std::atomic<bool> isHeld = false;
    std::atomic<bool> isFull = false;
    std::counting_semaphore<100> atDisk { 0 };
    std::counting_semaphore<100> goOn { 0 };
    QStringList writes;
    std::optional<ZLStatus> outcome;
    std::unique_ptr<ZLDocumentSaver> saver;
};

TEST_F(ZLMoveToFileTest, TheDocumentStaysWhereItIsUntilTheOtherFileHoldsIt)
{
    addChapter("One");
    isHeld = true;
    askToMove();
    duringTheWrite([this] {
        EXPECT_EQ(saver->path(), first);
        EXPECT_FALSE(outcome);
    });
    ASSERT_TRUE(isOver());
    EXPECT_TRUE(*outcome);
    EXPECT_EQ(saver->path(), other);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(titlesIn(other), QStringList { u"One"_s });
    EXPECT_TRUE(recoveryFolder.journaledFiles().isEmpty());
    EXPECT_FALSE(saver->canRevert());
}

TEST_F(ZLMoveToFileTest, WhatChangesMeanwhileIsInTheOtherFileBeforeItMoves)
{
    isHeld = true;
    askToMove();
    duringTheWrite([this] {
        addChapter("Mark");
        EXPECT_EQ(journaledTitles(), QStringList { u"Mark"_s }) << "not a moment without a journal";
        isHeld = false;
    });
    ASSERT_TRUE(isOver());
    EXPECT_EQ(saver->path(), other);
    EXPECT_EQ(titlesIn(other), QStringList { u"Mark"_s });
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(writes, (QStringList { other, other })) << "nothing more goes to the first file";
}

TEST_F(ZLMoveToFileTest, ADocumentThatChangesFasterThanItIsWrittenMovesAllTheSame)
{
    isHeld = true;
    askToMove();
    for (int round = 1; round <= 4; ++round) {
        duringTheWrite([this, round] {
            addChapter("Mark");
            isHeld = round < 4;
        });
    }
    ASSERT_TRUE(isOver());
    EXPECT_EQ(titlesIn(other).size(), 4);
    EXPECT_EQ(writes.size(), 5);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
}

TEST_F(ZLMoveToFileTest, AFailureLeavesTheDocumentWhereItIsAndItsFileIsWrittenAgain)
{
    addChapter("One");
    isFull = true;
    askToMove();
    ASSERT_TRUE(isOver());
    EXPECT_FALSE(*outcome);
    EXPECT_EQ(saver->path(), first);
    EXPECT_TRUE(QTest::qWaitFor([this] { return titlesIn(first) == QStringList { u"One"_s }; }));
}

TEST_F(ZLMoveToFileTest, TheEndOfTheProgramWaitsForIt)
{
    addChapter("One");
    askToMove();
    EXPECT_TRUE(saver->saveNow());
    ASSERT_TRUE(outcome);
    EXPECT_TRUE(*outcome);
    EXPECT_EQ(saver->path(), other);
    EXPECT_EQ(titlesIn(other), QStringList { u"One"_s });
}

TEST_F(ZLMoveToFileTest, ASecondMoveComesAfterTheFirstOne)
{
    addChapter("One");
    askToMove();
    std::optional<ZLStatus> second;
    saver->saveAs(filePath("third.zelta"), [&second](const ZLStatus& status) { second = status; });
    ASSERT_TRUE(QTest::qWaitFor([&second] { return second.has_value(); }));
    EXPECT_TRUE(outcome && *outcome);
    EXPECT_EQ(saver->path(), filePath("third.zelta"));
    EXPECT_EQ(titlesIn(other), QStringList { u"One"_s });
}

}
