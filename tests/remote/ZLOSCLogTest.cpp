#include "remote/ZLOSCLog.h"
#include "remote/ZLOSCLogTexts.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Direction = ZLOSCLogEntry::Direction;

ZLOSCLogEntry logEntry(Direction direction, const QString& address, const QString& value = u"1"_s)
{
    return { .time = QDateTime(QDate(2024, 5, 1), QTime(14, 3, 7, 250)),
        .direction = direction,
        .peer = u"192.0.2.1:9000"_s,
        .address = address,
        .value = value,
        .outcome = direction == Direction::In ? u"added a chapter"_s : u"sent"_s };
}

QStringList addressesIn(const ZLOSCLog& log)
{
    QStringList addresses;
    for (const ZLOSCLogEntry& entry : log.entries())
        addresses.append(entry.address);
    return addresses;
}

QString cell(const ZLOSCLog& log, int row, int column)
{
    return log.data(log.index(row, column)).toString();
}

ZLOSCLogEntry droppedEntry(ZLOSCDropReason reason, const QString& address, const QString& detail,
    ZLOSCAccept accept = ZLOSCAccept::DirectlyConnectedNetworks)
{
    const ZLOSCPeer peer { QHostAddress(u"2001:db8::1"_s), 9000 };
    return ZLOSCLogTexts::entryForDropped({ reason, peer, 0, address, detail }, accept);
}

}

TEST(ZLOSCLog, EntriesAppearTogetherAndAreShownInWords)
{
    ZLOSCLog log;
    const QAbstractItemModelTester tester(&log, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QSignalSpy inserted(&log, &QAbstractItemModel::rowsInserted);
    log.append(logEntry(Direction::In, u"/zl/newChapter"_s));
    log.append(logEntry(Direction::Out, u"/zl/isRecording"_s, u"true"_s));
    EXPECT_EQ(log.rowCount(), 0);
    log.flush();
    EXPECT_EQ(inserted.size(), 1);
    ASSERT_EQ(log.rowCount(), 2);
    EXPECT_EQ(cell(log, 0, ZLOSCLog::TimeColumn), u"14:03:07.250"_s);
    EXPECT_EQ(cell(log, 0, ZLOSCLog::DirectionColumn), u"in"_s);
    EXPECT_EQ(cell(log, 1, ZLOSCLog::DirectionColumn), u"out"_s);
    EXPECT_EQ(cell(log, 0, ZLOSCLog::PeerColumn), u"192.0.2.1:9000"_s);
    EXPECT_EQ(cell(log, 0, ZLOSCLog::AddressColumn), u"/zl/newChapter"_s);
    EXPECT_EQ(cell(log, 1, ZLOSCLog::ValueColumn), u"true"_s);
    EXPECT_EQ(cell(log, 1, ZLOSCLog::OutcomeColumn), u"sent"_s);
    for (int column = 0; column < ZLOSCLog::ColumnCount; ++column)
        EXPECT_FALSE(log.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().isEmpty());
}

TEST(ZLOSCLog, EntriesAppearByThemselves)
{
    ZLOSCLog log;
    QSignalSpy inserted(&log, &QAbstractItemModel::rowsInserted);
    log.append(logEntry(Direction::In, u"/zl/newChapter"_s));
    EXPECT_TRUE(inserted.wait());
}

TEST(ZLOSCLog, RepeatedStatusMessagesShareARowUntilAMessageComesIn)
{
    ZLOSCLog log;
    for (int second = 0; second < 3; ++second) {
        log.append(logEntry(Direction::Out, u"/zl/currentTime"_s, QString::number(second)));
        log.append(logEntry(Direction::Out, u"/zl/currentChapterDuration"_s));
        log.flush();
    }
    ASSERT_EQ(log.rowCount(), 2);
    EXPECT_EQ(cell(log, 0, ZLOSCLog::ValueColumn), u"2"_s) << "the latest one";
    EXPECT_EQ(cell(log, 0, ZLOSCLog::OutcomeColumn), u"sent (3 times)"_s);
    log.append(logEntry(Direction::In, u"/zl/newChapter"_s));
    log.append(logEntry(Direction::In, u"/zl/newChapter"_s));
    log.append(logEntry(Direction::Out, u"/zl/currentTime"_s));
    log.flush();
    EXPECT_EQ(addressesIn(log),
        (QStringList { u"/zl/currentTime"_s, u"/zl/currentChapterDuration"_s, u"/zl/newChapter"_s, u"/zl/newChapter"_s,
            u"/zl/currentTime"_s }));
}

TEST(ZLOSCLog, AnotherOutcomeOrPeerHasARowOfItsOwn)
{
    ZLOSCLog log;
    ZLOSCLogEntry entry = logEntry(Direction::Out, u"/zl/currentTime"_s);
    log.append(entry);
    entry.outcome = u"not sent"_s;
    log.append(entry);
    entry.peer = u"192.0.2.2:9000"_s;
    log.append(entry);
    log.flush();
    EXPECT_EQ(log.rowCount(), 3);
}

TEST(ZLOSCLog, AFullLogForgetsTheOldestAndNeitherDirectionDrivesTheOtherOut)
{
    ZLOSCLog log;
    const QAbstractItemModelTester tester(&log, QAbstractItemModelTester::FailureReportingMode::Fatal);
    log.append(logEntry(Direction::Out, u"/zl/isRecording"_s));
    for (int number = 0; number < 1000; ++number)
        log.append(logEntry(Direction::In, QString::number(number)));
    log.flush();
    ASSERT_EQ(log.rowCount(), ZLOSCLog::Capacity);
    EXPECT_EQ(log.entries().first().address, u"/zl/isRecording"_s);
    EXPECT_EQ(log.entries().last().address, u"999"_s);
    for (int number = 1000; number < 1500; ++number) {
        log.append(logEntry(Direction::In, QString::number(number)));
        log.flush();
    }
    EXPECT_EQ(log.rowCount(), ZLOSCLog::Capacity);
    EXPECT_EQ(log.entries().first().address, u"/zl/isRecording"_s);
    EXPECT_EQ(log.entries().at(1).address, QString::number(1500 - ZLOSCLog::Capacity + 1));
}

TEST(ZLOSCLog, AFloodIsNoFloodOfSignals)
{
    ZLOSCLog log;
    const QSignalSpy inserted(&log, &QAbstractItemModel::rowsInserted);
    for (int number = 0; number < 20000; ++number)
        log.append(logEntry(Direction::In, u"/zl/newChapter"_s));
    EXPECT_EQ(inserted.size(), 0);
    log.flush();
    EXPECT_EQ(inserted.size(), 1);
}

TEST(ZLOSCLog, ClearForgetsWhatIsShownAndWhatIsNotYet)
{
    ZLOSCLog log;
    log.append(logEntry(Direction::In, u"/a"_s));
    log.flush();
    log.append(logEntry(Direction::In, u"/b"_s));
    log.clear();
    log.flush();
    EXPECT_EQ(log.rowCount(), 0);
}

TEST(ZLOSCLogTexts, AMessageIsShownWithItsControlCharactersEscaped)
{
    const ZLOSCLogEntry entry = ZLOSCLogTexts::entryFor(
        ZLOSCMessage(u"/zl/a\nb"_s, { 1.5F, u"x\r"_s, true }), Direction::In, u"192.0.2.1:9000"_s);
    EXPECT_FALSE(entry.address.contains(u'\n'));
    EXPECT_FALSE(entry.value.contains(u'\r'));
    EXPECT_TRUE(entry.value.startsWith(u"1.5 \"x"_s)) << qPrintable(entry.value);
    EXPECT_TRUE(entry.value.endsWith(u"\" true"_s)) << qPrintable(entry.value);
    EXPECT_TRUE(entry.time.isValid());
    EXPECT_EQ(entry.count, 1);
}

TEST(ZLOSCLogTexts, EachReasonForDroppingIsTold)
{
    using Reason = ZLOSCDropReason;
    const auto refused = [](ZLOSCAccept accept) { return droppedEntry(Reason::RefusedSender, {}, {}, accept).outcome; };
    EXPECT_EQ(refused(ZLOSCAccept::ThisComputerOnly), u"dropped: not from this computer"_s);
    EXPECT_EQ(refused(ZLOSCAccept::DirectlyConnectedNetworks), u"dropped: not from a directly connected network"_s);
    EXPECT_EQ(refused(ZLOSCAccept::OnlyTheseAddresses), u"dropped: not from one of the accepted addresses"_s);
    const ZLOSCLogEntry malformed = droppedEntry(Reason::Malformed, {}, u"the type tags are missing"_s);
    EXPECT_EQ(malformed.outcome, u"dropped: malformed"_s);
    EXPECT_EQ(malformed.value, u"the type tags are missing"_s);
    EXPECT_EQ(malformed.peer, u"[2001:db8::1]:9000"_s);
    EXPECT_EQ(malformed.time, QDateTime::fromMSecsSinceEpoch(0));
    EXPECT_EQ(
        droppedEntry(Reason::Filtered, u"/zl/newChapter"_s, u"/zl/newChapter 0"_s).outcome, u"ignored: value 0"_s);
    EXPECT_EQ(droppedEntry(Reason::Filtered, u"/zl/newChapter"_s, u"/zl/newChapter"_s).outcome, u"ignored: no value"_s);
    EXPECT_EQ(droppedEntry(Reason::Filtered, u"/other"_s, u"/other 1"_s).outcome, u"ignored: unknown address"_s);
    EXPECT_EQ(droppedEntry(Reason::Overflow, {}, {}).outcome, u"dropped older messages: too many at once"_s);
}

TEST(ZLOSCLogTexts, AMessageThatWasNotSentSaysWhy)
{
    const ZLOSCOutPort resolving(u"desk"_s, u"desk.example"_s, 9000, nullptr,
        [](const QString&, QObject*, const std::function<void(const QHostInfo&)>&) { });
    EXPECT_EQ(ZLOSCLogTexts::outcomeOfSending(false, resolving), u"not sent: the host is being looked up"_s);
    const ZLOSCOutPort failed(u"desk"_s, {}, 9000);
    EXPECT_EQ(ZLOSCLogTexts::outcomeOfSending(false, failed), u"not sent: "_s + failed.failure());
    EXPECT_EQ(ZLOSCLogTexts::outcomeOfSending(true, failed), u"sent"_s);
}
