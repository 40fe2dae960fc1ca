#include "document/saving/journal/ZLJournalReader.h"

#include "document/saving/journal/ZLJournalChange.h"
#include "document/saving/journal/ZLJournalRecord.h"

#include <QTimeZone>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLJournalReaderTest : public testing::Test {
protected:
    using Kind = ZLJournalRecord::Kind;

    static QVariantList chapters(const QStringList& titles)
    {
        QVariantList list;
        for (const QString& title : titles)
            list.append(QVariantMap { { u"Title"_s, title } });
        return list;
    }

    static QStringList titles(const QVariantList& list)
    {
        QStringList result;
        for (const QVariant& chapter : list)
            result.append(chapter.toMap().value(u"Title"_s).toString());
        return result;
    }

    ZLJournalReaderTest()
    {
        add({ Kind::Origin, "/shows/12.zelta" });
        add({ Kind::Snapshot, ZLDocumentFile::encode({ chapters({ u"A"_s, u"B"_s }), 7.5, chapters({ u"T"_s }) }) });
    }

    void add(const ZLJournalRecord& record) { bytes += ZLJournalRecords::encoded(nextSequence++, record); }

    void splice(qsizetype first, qsizetype removed, const QStringList& inserted)
    {
        add({ Kind::Change,
            ZLJournalChange { .chapters = ZLJournalSplice { first, removed, chapters(inserted) } }.encoded() });
    }

    /// The record of a chapter at the end.
    static ZLJournalRecord addition(qsizetype count, const QString& title, qint64 number)
    {
        return { Kind::Change,
            ZLJournalChange {
                .chapters = ZLJournalSplice { count, 0, chapters({ title }) },
                .number = number,
            }
                .encoded() };
    }

    /// What another part of memory holds of the same journal.
    static QByteArray tailOf(const QList<ZLJournalRecord>& records)
    {
        QByteArray tail = ZLJournalRecords::Signature;
        for (qsizetype index = 0; index < records.size(); ++index)
            tail += ZLJournalRecords::encoded(quint32(index), records.at(index));
        return tail;
    }

    QStringList titlesWith(const QByteArray& tail) const
    {
        const auto read = ZLJournalReader::read(bytes, tail);
        EXPECT_TRUE(read);
        return read ? titles(read.value().contents.chapters) : QStringList();
    }

    QStringList readTitles() const
    {
        const auto read = ZLJournalReader::read(bytes);
        EXPECT_TRUE(read);
        return read ? titles(read.value().contents.chapters) : QStringList();
    }

    QByteArray bytes = ZLJournalRecords::Signature;
    quint32 nextSequence = 0;
};

TEST_F(ZLJournalReaderTest, TheSnapshotIsTheStateBeforeAnyChange)
{
    const auto read = ZLJournalReader::read(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value().filePath, u"/shows/12.zelta"_s);
    EXPECT_EQ(titles(read.value().contents.chapters), (QStringList { u"A"_s, u"B"_s }));
    EXPECT_EQ(titles(read.value().contents.templates), QStringList { u"T"_s });
    EXPECT_EQ(read.value().contents.duration, 7.5);
    EXPECT_FALSE(read.value().interruption);
    EXPECT_TRUE(read.value().hasChangesSinceFile) << "there is no file that shows it";
    EXPECT_FALSE(read.value().isTorn);
}

TEST_F(ZLJournalReaderTest, RunsAreInsertedReplacedAndRemoved)
{
    splice(1, 0, { u"X"_s, u"Y"_s });
    EXPECT_EQ(readTitles(), (QStringList { u"A"_s, u"X"_s, u"Y"_s, u"B"_s }));
    splice(0, 3, { u"C"_s });
    EXPECT_EQ(readTitles(), (QStringList { u"C"_s, u"B"_s }));
    splice(1, 1, { u"D"_s, u"E"_s });
    EXPECT_EQ(readTitles(), (QStringList { u"C"_s, u"D"_s, u"E"_s }));
    splice(0, 3, {});
    EXPECT_EQ(readTitles(), QStringList());
}

TEST_F(ZLJournalReaderTest, ARecordThatIsTornAnywhereLeavesTheStateBeforeIt)
{
    splice(2, 0, { u"C"_s });
    const qsizetype whole = bytes.size();
    splice(3, 0, { u"D"_s });
    const QByteArray all = bytes;
    for (qsizetype size = whole + 1; size < all.size(); ++size) {
        bytes = all.first(size);
        ASSERT_EQ(readTitles(), (QStringList { u"A"_s, u"B"_s, u"C"_s })) << size;
        ASSERT_TRUE(ZLJournalReader::read(bytes).value().isTorn) << size;
    }
}

TEST_F(ZLJournalReaderTest, ABitThatFlippedAnywhereInTheLastRecordLeavesTheStateBeforeIt)
{
    const qsizetype whole = bytes.size();
    splice(2, 0, { u"C"_s });
    const QByteArray all = bytes;
    for (qsizetype at = whole; at < all.size(); ++at) {
        bytes = all;
        bytes[at] = char(bytes.at(at) ^ 4);
        ASSERT_EQ(readTitles(), (QStringList { u"A"_s, u"B"_s })) << at;
    }
}

TEST_F(ZLJournalReaderTest, RecordsOutOfSequenceAndThatDoNotFitEndTheJournal)
{
    const QByteArray before = bytes;
    nextSequence += 1;
    splice(2, 0, { u"C"_s });
    EXPECT_EQ(readTitles(), (QStringList { u"A"_s, u"B"_s }));
    for (const auto& [first, removed] : { std::pair<qsizetype, qsizetype> { 3, 0 }, { 0, 3 }, { -1, 1 }, { 1, -1 },
             { std::numeric_limits<qsizetype>::max(), 1 }, { 1, std::numeric_limits<qsizetype>::max() } }) {
        bytes = before;
        nextSequence = 2;
        splice(first, removed, { u"C"_s });
        splice(0, 1, {});
        EXPECT_EQ(readTitles(), (QStringList { u"A"_s, u"B"_s })) << first << ' ' << removed;
    }
}

TEST_F(ZLJournalReaderTest, WhatIsNoJournalIsRefusedInOneLine)
{
    for (const QByteArray& wrong : { QByteArray(), QByteArray("x"), ZLJournalRecords::Signature, bytes.first(40) }) {
        const auto read = ZLJournalReader::read(wrong);
        ASSERT_FALSE(read);
        EXPECT_FALSE(read.error().message.isEmpty());
        EXPECT_FALSE(read.error().message.contains(u'\n'));
    }
}

TEST_F(ZLJournalReaderTest, TheLastWordOnTheClockCounts)
{
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(1'700'000'000'123, QTimeZone::utc());
    const ZLJournalChange running { .reading = 9.0, .running = ZLInterruptedRecording { 9.0, moment } };
    add({ Kind::Change, running.encoded() });
    auto read = ZLJournalReader::read(bytes);
    ASSERT_TRUE(read && read.value().interruption);
    EXPECT_EQ(*read.value().interruption, (ZLInterruptedRecording { 9.0, moment }));
    EXPECT_EQ(read.value().contents.duration, 9.0);
    add({ Kind::Change, ZLJournalChange { .reading = 10.0 }.encoded() });
    read = ZLJournalReader::read(bytes);
    ASSERT_TRUE(read);
    EXPECT_FALSE(read.value().interruption);
    EXPECT_EQ(read.value().contents.duration, 10.0);
}

TEST_F(ZLJournalReaderTest, ItBelongsToEachVersionOfTheFileThatItKnows)
{
    add({ Kind::KnownFile, ZLJournalRecords::digestOf("one") });
    splice(0, 1, {});
    add({ Kind::KnownFile, ZLJournalRecords::digestOf("two") });
    auto read = ZLJournalReader::read(bytes);
    ASSERT_TRUE(read);
    EXPECT_TRUE(read.value().belongsTo("one"));
    EXPECT_TRUE(read.value().belongsTo("two"));
    EXPECT_FALSE(read.value().belongsTo("three"));
}

TEST_F(ZLJournalReaderTest, AVersionOfTheFileCoversOnlyTheStateThatItShows)
{
    const QByteArray before = ZLDocumentFile::encode({ chapters({ u"A"_s, u"B"_s }), 7.5, chapters({ u"T"_s }) });
    const QByteArray after = ZLDocumentFile::encode({ chapters({ u"B"_s }), 7.5, chapters({ u"T"_s }) });
    const auto change = ZLJournalChange { .chapters = ZLJournalSplice { 0, 1, {} }, .reading = 7.5 }.encoded();
    add({ Kind::Change, change });
    // The bytes were made before the change, and noted by a slower thread after it.
    add({ Kind::KnownFile, ZLJournalRecords::digestOf(before) });
    auto read = ZLJournalReader::read(bytes);
    ASSERT_TRUE(read);
    EXPECT_TRUE(read.value().hasChangesSinceFile);
    EXPECT_FALSE(read.value().isWhollyIn(before));
    add({ Kind::KnownFile, ZLJournalRecords::digestOf(after) });
    read = ZLJournalReader::read(bytes);
    ASSERT_TRUE(read);
    EXPECT_FALSE(read.value().hasChangesSinceFile);
    EXPECT_TRUE(read.value().isWhollyIn(after));
    EXPECT_FALSE(read.value().isWhollyIn(before)) << "the kill came before the file was replaced";
}

TEST_F(ZLJournalReaderTest, ASnapshotThatTheFileDoesNotShowIsAChange)
{
    // A journal that was begun anew, after a recovery for one, while the clock was paused: all of it is in the
    // snapshot.
    add({ Kind::KnownFile, ZLJournalRecords::digestOf("older") });
    add({ Kind::Change, ZLJournalChange { .reading = 7.5 }.encoded() });
    auto read = ZLJournalReader::read(bytes);
    ASSERT_TRUE(read);
    EXPECT_TRUE(read.value().hasChangesSinceFile);
    EXPECT_FALSE(read.value().isWhollyIn("older"));
    const QByteArray same = ZLDocumentFile::encode(read.value().contents);
    add({ Kind::KnownFile, ZLJournalRecords::digestOf(same) });
    read = ZLJournalReader::read(bytes);
    ASSERT_TRUE(read);
    EXPECT_FALSE(read.value().hasChangesSinceFile);
    EXPECT_TRUE(read.value().isWhollyIn(same));
}

TEST_F(ZLJournalReaderTest, ATemplateWithTheIdentifierOfAChapterIsBackToo)
{
    const QVariantMap mark { { u"Title"_s, u"T"_s }, { u"UUID"_s, u"1"_s }, { u"TimeStamp"_s, 3.0 } };
    const QVariantMap next { { u"Title"_s, u"U"_s }, { u"UUID"_s, u"2"_s } };
    add({ Kind::Change,
        ZLJournalChange {
            .chapters = ZLJournalSplice { 2, 0, { mark } }, .templates = ZLJournalSplice { 0, 1, { mark, next } } }
            .encoded() });
    const auto read = ZLJournalReader::read(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(titles(read.value().contents.chapters), (QStringList { u"A"_s, u"B"_s, u"T"_s }));
    EXPECT_EQ(titles(read.value().contents.templates), (QStringList { u"T"_s, u"U"_s }));
}

TEST_F(ZLJournalReaderTest, TheTailBringsWhatFollowsTheLastChange)
{
    add(addition(2, u"C"_s, 100));
    const auto mark = [](qint64 number) { return addition(number - 98, QString::number(number), number); };
    const QStringList all { u"A"_s, u"B"_s, u"C"_s, u"101"_s, u"102"_s };
    EXPECT_EQ(titlesWith(tailOf({ addition(2, u"C"_s, 100), mark(101), mark(102) })), all);
    EXPECT_EQ(titlesWith(tailOf({ mark(101), mark(102) })), all);
    EXPECT_EQ(titlesWith(tailOf({ mark(101), mark(102) }) + "torn"), all);
    EXPECT_EQ(titlesWith(tailOf({ mark(101), mark(103) })), all.first(4)) << "a change between them is missing";
    for (const QByteArray& useless :
        { QByteArray(), QByteArray("x"), tailOf({ mark(102) }), tailOf({ mark(99) }), tailOf({}) })
        EXPECT_EQ(titlesWith(useless), all.first(3));
}

TEST_F(ZLJournalReaderTest, AJournalThatIsTornEndsWithWhatItsTailHolds)
{
    add(addition(2, u"C"_s, 100));
    const qsizetype whole = bytes.size();
    add(addition(3, u"D"_s, 101));
    bytes.truncate(whole + 10);
    EXPECT_EQ(titlesWith({}), (QStringList { u"A"_s, u"B"_s, u"C"_s }));
    EXPECT_EQ(titlesWith(tailOf({ addition(3, u"D"_s, 101) })), (QStringList { u"A"_s, u"B"_s, u"C"_s, u"D"_s }));
    EXPECT_FALSE(ZLJournalReader::read(bytes, tailOf({ addition(3, u"D"_s, 101) })).value().isTorn);
}

TEST_F(ZLJournalReaderTest, ATailThatDoesNotFitIsLeftOut)
{
    add(addition(2, u"C"_s, 100));
    const QStringList journaled { u"A"_s, u"B"_s, u"C"_s };
    EXPECT_EQ(titlesWith(tailOf({ addition(17, u"D"_s, 101) })), journaled);
    EXPECT_EQ(titlesWith(tailOf({ { Kind::Change, "no change" } })), journaled);
    EXPECT_EQ(titlesWith(tailOf({ { Kind::Snapshot, addition(3, u"D"_s, 101).payload } })), journaled);
}

TEST_F(ZLJournalReaderTest, AJournalWithoutNumbersTakesNoTail)
{
    splice(2, 0, { u"C"_s });
    EXPECT_EQ(titlesWith(tailOf({ addition(3, u"D"_s, 1) })), (QStringList { u"A"_s, u"B"_s, u"C"_s }));
}
