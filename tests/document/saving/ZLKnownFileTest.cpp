#include "document/saving/ZLKnownFile.h"

#include "document/saving/journal/ZLJournalRecord.h"

#include <QTimeZone>
#include <gtest/gtest.h>

namespace {

const QDateTime opened(QDate(2024, 5, 1), QTime(14, 0), QTimeZone::utc());
const QDateTime later = opened.addSecs(60);

QList<QByteArray> digestsOf(const QByteArray& bytes)
{
    return { ZLJournalRecords::digestOf(bytes) };
}

TEST(ZLKnownFileTest, NothingIsKnownOfAFileThatWasNeverReadOrWritten)
{
    const ZLKnownFile file;
    EXPECT_TRUE(file.bytes().isEmpty());
    EXPECT_EQ(file.versions(), std::nullopt) << "so whatever it holds may be replaced";
    EXPECT_TRUE(file.readBytes().isEmpty());
}

TEST(ZLKnownFileTest, AFileThatWasReadIsKnownByItsOwnBytesAndAsThisProgramWouldWriteIt)
{
    const ZLReadDocument read {
        .fileBytes = "as read", .version = ZLJournalRecords::digestOf("as read"), .bytes = "ours"
    };
    const ZLKnownFile file(read, opened);
    EXPECT_EQ(file.bytes(), "ours");
    EXPECT_EQ(file.readBytes(), "as read");
    EXPECT_EQ(file.versions(), digestsOf("as read"));
    EXPECT_EQ(file.timeOfBytes(), opened);
}

TEST(ZLKnownFileTest, AFileOutOfReachMayHoldAnyOfItsFormerVersions)
{
    const QList<QByteArray> versions = digestsOf("one") + digestsOf("two");
    const ZLKnownFile file(versions);
    EXPECT_TRUE(file.bytes().isEmpty()) << "so it is written whatever the document is";
    EXPECT_EQ(file.versions(), versions);
}

TEST(ZLKnownFileTest, AWriteCountsFromItsMomentUnlessItChangesNothing)
{
    ZLKnownFile file("ours", ZLJournalRecords::digestOf("ours"), opened);
    EXPECT_EQ(file.readBytes(), "ours");
    EXPECT_EQ(file.versions(), digestsOf("ours"));
    file.noteWritten("ours", ZLJournalRecords::digestOf("ours"), later);
    EXPECT_EQ(file.timeOfBytes(), opened);
    file.noteWritten("newer", ZLJournalRecords::digestOf("newer"), later);
    EXPECT_EQ(file.timeOfBytes(), later);
    EXPECT_EQ(file.bytes(), "newer");
    EXPECT_EQ(file.versions(), digestsOf("newer"));
}

}
