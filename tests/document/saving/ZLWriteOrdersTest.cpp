#include "document/saving/ZLWriteOrders.h"

#include "SavingPartsFixture.h"

using namespace Qt::StringLiterals;

namespace {

class ZLWriteOrdersTest : public SavingPartsFixture { };

TEST_F(ZLWriteOrdersTest, ATitledDocumentGoesToItsFileWhichMayHoldOnlyWhatIsKnown)
{
    const auto parts = titledParts();
    const QByteArray before = document.dataOfType();
    addChapter("One");
    parts->schedule.noteChange();
    const auto order = parts->orders.next();
    ASSERT_TRUE(order);
    EXPECT_EQ(order.value().path, path);
    EXPECT_EQ(order.value().snapshot->encoded(), document.dataOfType());
    EXPECT_EQ(order.value().present, before);
    EXPECT_EQ(order.value().replaceable, parts->knownFile.versions());
    EXPECT_EQ(order.value().revision, parts->schedule.revision());
    EXPECT_FALSE(order.value().isForOwnerOnly);
    ASSERT_TRUE(order.value().formerState);
    EXPECT_EQ(order.value().formerState->bytes, before);
}

TEST_F(ZLWriteOrdersTest, AReadingAloneKeepsNoFormerState)
{
    const auto parts = titledParts();
    const auto order = parts->orders.next();
    ASSERT_TRUE(order);
    EXPECT_FALSE(order.value().formerState);
}

TEST_F(ZLWriteOrdersTest, TheJournalIsWrittenWithTheFileWhereTheDocumentHasOne)
{
    const auto parts = titledParts();
    EXPECT_EQ(parts->orders.next().value().journal, nullptr) << "a document that was only opened has none";
    addChapter("One");
    parts->journaling.note();
    EXPECT_EQ(parts->orders.next().value().journal, parts->journaling.file());
    EXPECT_NE(parts->journaling.file(), nullptr);
}

TEST_F(ZLWriteOrdersTest, AnUntitledDocumentGoesToTheRecoveryFolderForItsUserAlone)
{
    const auto parts = untitledParts();
    addChapter("One");
    const auto order = parts->orders.next();
    ASSERT_TRUE(order);
    EXPECT_EQ(order.value().path, parts->place.recoveryPath());
    EXPECT_TRUE(order.value().path.startsWith(recoveryFolder.path()));
    EXPECT_TRUE(order.value().isForOwnerOnly);
    EXPECT_EQ(order.value().replaceable, std::nullopt);
}

TEST_F(ZLWriteOrdersTest, WithoutARecoveryFolderThereIsNoOrderForAnUntitledDocument)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(recoveryFolder.path()).path()));
    ASSERT_TRUE(ZLAtomicFile::write(recoveryFolder.path(), "a file in its place"));
    const auto parts = untitledParts();
    addChapter("One");
    const auto order = parts->orders.next();
    ASSERT_FALSE(order);
    EXPECT_TRUE(order.error().message.startsWith(recoveryFolder.path())) << qPrintable(order.error().message);
}

TEST_F(ZLWriteOrdersTest, AnEmptyUntitledDocumentLeavesNothingBehind)
{
    const auto parts = untitledParts();
    addChapter("One");
    ASSERT_TRUE(parts->orders.next());
    EXPECT_FALSE(parts->orders.keepNothingOfEmptyDocument());
    EXPECT_NE(parts->place.recoveryFile(), nullptr);
    document.undoManager().undo();
    EXPECT_TRUE(parts->orders.keepNothingOfEmptyDocument());
    EXPECT_EQ(parts->place.recoveryFile(), nullptr);
    EXPECT_FALSE(titledParts()->orders.keepNothingOfEmptyDocument()) << "an empty file is a file";
}

TEST_F(ZLWriteOrdersTest, OnlyAWriteThatChangedTheFileMakesItKnown)
{
    const auto parts = titledParts();
    const QByteArray before = parts->knownFile.bytes();
    parts->orders.noteOutcome({ .status = ZLError { u"full"_s }, .bytes = "failed", .digest = "digest" });
    EXPECT_EQ(parts->knownFile.bytes(), before);
    parts->orders.noteOutcome({ .bytes = "unchanged", .isUnchanged = true });
    EXPECT_EQ(parts->knownFile.bytes(), before);
    parts->orders.noteOutcome({ .bytes = "written", .digest = "digest" });
    EXPECT_EQ(parts->knownFile.bytes(), "written");
    EXPECT_EQ(parts->knownFile.versions(), QList<QByteArray> { "digest" });
}

TEST_F(ZLWriteOrdersTest, AStateThatWasKeptPutsTheNextOneOff)
{
    const auto parts = titledParts();
    addChapter("One");
    parts->schedule.noteChange();
    parts->orders.noteOutcome({ .bytes = "written", .digest = "digest", .keeping = ZLStateKeeping::Kept });
    EXPECT_FALSE(parts->orders.next().value().formerState);
    clock->seconds += ZLStateRhythm::Interval / 1000.0;
    EXPECT_TRUE(parts->orders.next().value().formerState);
}

}
