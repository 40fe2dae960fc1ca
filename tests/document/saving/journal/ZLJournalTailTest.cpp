#include "document/saving/journal/ZLJournalTail.h"

#include "support/ZLRuntimeFolderInMemory.h"

#include <QDir>
#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;

class ZLJournalTailTest : public testing::Test {
protected:
    using Kind = ZLJournalRecord::Kind;

    void SetUp() override
    {
        if (!ZLRuntimeFolderInMemory::isInMemory())
            GTEST_SKIP() << "this system has no file system in memory";
        tail.emplace(journal);
    }

    QList<QByteArray> payloads() const
    {
        QList<QByteArray> found;
        const auto records = ZLJournalRecords::decoded(ZLJournalTail::read(journal)).records;
        for (const ZLJournalRecord& record : records)
            found.append(record.payload);
        return found;
    }

    const ZLRuntimeFolderInMemory memory;
    const QString journal = u"/shows/20260101-120000-000-00000001.zelta.journal"_s;
    std::optional<ZLJournalTail> tail;
};

TEST_F(ZLJournalTailTest, ItHoldsWhatTheJournalHasNotTaken)
{
    tail->append({ Kind::Change, "1" }, true);
    EXPECT_EQ(payloads(), QList<QByteArray> { "1" });
    tail->append({ Kind::Change, "2" }, false);
    tail->append({ Kind::Change, "3" }, false);
    EXPECT_EQ(payloads(), (QList<QByteArray> { "1", "2", "3" }));
    tail->append({ Kind::Change, "4" }, true);
    EXPECT_EQ(payloads(), QList<QByteArray> { "4" });
}

TEST_F(ZLJournalTailTest, ItStaysWhenItsProcessEnds)
{
    tail->append({ Kind::Change, "1" }, true);
    tail.reset();
    EXPECT_EQ(payloads(), QList<QByteArray> { "1" });
    EXPECT_EQ(QFileInfo(QDir(memory.path()).entryInfoList(QDir::Files).value(0)).permissions()
            & (QFile::ReadGroup | QFile::ReadOther),
        QFile::Permissions());
    ZLJournalTail::remove(journal);
    EXPECT_TRUE(QDir(memory.path()).entryList(QDir::Files).isEmpty());
}

TEST_F(ZLJournalTailTest, AnOlderTailStaysUntilAJournalHoldsIt)
{
    tail->append({ Kind::Change, "of a killed process" }, true);
    tail.emplace(journal);
    tail->append({ Kind::Change, "1" }, false);
    EXPECT_EQ(payloads(), QList<QByteArray> { "of a killed process" });
    tail->append({ Kind::Change, "2" }, true);
    EXPECT_EQ(payloads(), QList<QByteArray> { "2" });
}

TEST_F(ZLJournalTailTest, BeyondItsLargestSizeItHoldsWhatCameFirst)
{
    const QByteArray large(ZLJournalTail::LargestSize / 2, 'x');
    tail->append({ Kind::Change, large }, true);
    tail->append({ Kind::Change, large }, false);
    tail->append({ Kind::Change, "behind the gap" }, false);
    EXPECT_EQ(payloads(), QList<QByteArray> { large });
    tail->append({ Kind::Change, "after it" }, true);
    EXPECT_EQ(payloads(), QList<QByteArray> { "after it" });
}

TEST_F(ZLJournalTailTest, WithoutMemoryThereIsNone)
{
    qputenv("XDG_RUNTIME_DIR", "/proc/self");
    tail.emplace(journal);
    tail->append({ Kind::Change, "1" }, true);
    EXPECT_EQ(payloads(), QList<QByteArray>());
    ZLJournalTail::remove(journal);
}
