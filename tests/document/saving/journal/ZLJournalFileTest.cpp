#include "document/saving/journal/ZLJournalFile.h"

#include "platform/ZLBoundedFile.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <semaphore>

using namespace Qt::StringLiterals;
using Kind = ZLJournalRecord::Kind;

namespace {

constexpr auto longEnough = std::chrono::minutes(1);
const QDeadlineTimer forEver(QDeadlineTimer::Forever);

ZLJournalRecord change(const QByteArray& text)
{
    return { .kind = Kind::Change, .payload = text };
}

ZLJournalFile::MakeRecords justThese(const QList<ZLJournalRecord>& records)
{
    return [records] { return records; };
}

}

class ZLJournalFileTest : public testing::Test {
protected:
    [[nodiscard]] QList<QByteArray> payloads() const
    {
        const auto bytes = ZLBoundedFile::read(m_path, ZLFileBound::Document);
        const auto decoded = ZLJournalRecords::decoded(bytes ? bytes.value() : QByteArray());
        EXPECT_FALSE(decoded.isTorn);
        QList<QByteArray> result;
        for (const ZLJournalRecord& record : decoded.records)
            result.append(record.payload);
        return result;
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"show.journal"_s);
    std::shared_ptr<ZLJournalFile> m_file = std::make_shared<ZLJournalFile>(m_path);
};

TEST_F(ZLJournalFileTest, WhileTheRecordsOfANewBeginningAreMadeChangesAreTakenAndComeAfterThem)
{
    m_file->begin(justThese({ change("old") }));
    std::binary_semaphore mayGoOn(0);
    m_file->begin([&mayGoOn] {
        mayGoOn.acquire();
        return QList { change("new") };
    });
    m_file->append(change("meanwhile"), ZLJournalFile::Sync::AtOnce);
    EXPECT_TRUE(m_file->waitUntilSynced(longEnough)) << "no mark waits for the bytes of a long document";
    EXPECT_EQ(payloads(), (QList<QByteArray> { "old", "meanwhile" }));
    mayGoOn.release();
    ASSERT_TRUE(ZLJournalFile::leave(std::move(m_file), forEver));
    EXPECT_EQ(payloads(), (QList<QByteArray> { "new", "meanwhile" }));
}

TEST_F(ZLJournalFileTest, ALongRecordIsReadAsItWasWrittenAndSoAreThoseAfterIt)
{
    const QByteArray longText(300'000, 'x');
    ZLJournalRecord known = change(longText);
    known.digest = ZLJournalRecords::recordDigest(1, known);
    m_file->begin(justThese({ change("first"), known, change("third") }));
    m_file->append(change(longText), ZLJournalFile::Sync::AtOnce);
    m_file->append(change("last"), ZLJournalFile::Sync::AtOnce);
    ASSERT_TRUE(m_file->waitUntilHandedOver(longEnough));
    EXPECT_EQ(payloads(), (QList<QByteArray> { "first", longText, "third", longText, "last" }));
    EXPECT_GT(m_file->sizeAtBeginning(), longText.size());
    EXPECT_LT(m_file->sizeAtBeginning(), m_file->size());
}

TEST_F(ZLJournalFileTest, ALongRecordThatGoesInOnlyPartlyIsCutOffAgain)
{
    bool isFull = false;
    ZLJournalDisk disk;
    disk.write = [&isFull](int descriptor, const void* bytes, size_t count) {
        if (isFull && count > 1000) {
            errno = ENOSPC;
            return ssize_t(-1);
        }
        return ::write(descriptor, bytes, count);
    };
    m_file = std::make_shared<ZLJournalFile>(m_path, disk);
    m_file->begin(justThese({ change("first") }));
    ASSERT_TRUE(m_file->waitUntilHandedOver(longEnough));
    isFull = true;
    m_file->append(change(QByteArray(300'000, 'x')), ZLJournalFile::Sync::AtOnce);
    ASSERT_TRUE(m_file->waitUntilHandedOver(longEnough));
    EXPECT_TRUE(m_file->isBroken());
    EXPECT_EQ(payloads(), QList<QByteArray> { "first" });
}
