#include "remote/ZLCommandSocket.h"

#include "platform/osc/ZLOSCCodec.h"

#include <QDataStream>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <gtest/gtest.h>

#include <linux/sockios.h>
#include <sys/ioctl.h>

using namespace Qt::StringLiterals;

class ZLCommandSocketTest : public testing::Test {
protected:
    static constexpr int socketDeadlineMilliseconds = 30000;

    [[nodiscard]] std::unique_ptr<ZLCommandSocket> makeSocket(const QString& answer = u"done"_s)
    {
        return std::make_unique<ZLCommandSocket>(
            [this, text = answer](const ZLOSCMessage& message, const ZLPressStamp&, const auto& tell) {
                m_messages.append(message);
                tell(text);
            },
            m_path);
    }

    /// As another program would, while this one goes on with its events.
    [[nodiscard]] ZLResult<QString> send(const ZLOSCMessage& message) const
    {
        std::optional<ZLResult<QString>> result;
        const std::unique_ptr<QThread> thread(
            QThread::create([&] { result = ZLCommandSocket::send(message, m_path); }));
        thread->start();
        EXPECT_TRUE(QTest::qWaitFor([&] { return thread->isFinished(); }, socketDeadlineMilliseconds));
        thread->wait();
        return *result;
    }

    /// What comes back for these bytes, until the other side closes the connection.
    [[nodiscard]] QByteArray answerTo(const QList<QByteArray>& pieces) const
    {
        QLocalSocket socket;
        socket.connectToServer(m_path);
        EXPECT_TRUE(socket.waitForConnected(socketDeadlineMilliseconds));
        for (const QByteArray& piece : pieces) {
            socket.write(piece);
            socket.flush();
            QCoreApplication::processEvents();
        }
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return socket.state() == QLocalSocket::UnconnectedState; }, socketDeadlineMilliseconds));
        return socket.readAll();
    }

    [[nodiscard]] static QByteArray sized(quint32 size, const QByteArray& bytes)
    {
        QByteArray result;
        QDataStream(&result, QIODevice::WriteOnly) << size;
        return result + bytes;
    }

    /// Handles no event until a while after the other side has read what was written; gives the moment at which events
    /// may be handled again.
    static double busyUntilRead(const QLocalSocket& socket)
    {
        const QDeadlineTimer limit(socketDeadlineMilliseconds);
        int unread = 1;
        while (unread > 0 && !limit.hasExpired()) {
            QThread::msleep(1);
            ioctl(int(socket.socketDescriptor()), SIOCOUTQ, &unread);
        }
        EXPECT_EQ(unread, 0);
        QThread::msleep(30);
        return ZLSteadyHostClock().now();
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"commands"_s);
    QList<ZLOSCMessage> m_messages;
    ZLOSCMessage m_command { u"/zl/newChapter"_s, { 1.0F } };
};

TEST_F(ZLCommandSocketTest, ACommandIsCarriedOutAndAnswered)
{
    const auto socket = makeSocket(u"added a chapter – “ä”"_s);
    EXPECT_TRUE(socket->isListening());
    const ZLResult<QString> answer = send(m_command);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer.value(), u"added a chapter – “ä”"_s);
    EXPECT_EQ(m_messages, QList<ZLOSCMessage> { m_command });
}

TEST_F(ZLCommandSocketTest, AnAnswerMayComeLaterAndHoldsUpNoOtherCommand)
{
    ZLCommandSocket::Answer late;
    auto socket = std::make_unique<ZLCommandSocket>(
        [this, &late](const ZLOSCMessage& message, const ZLPressStamp&, const ZLCommandSocket::Answer& answer) {
            m_messages.append(message);
            if (late)
                answer(u"the second one"_s);
            else
                late = answer;
        },
        m_path);
    std::optional<ZLResult<QString>> first;
    const std::unique_ptr<QThread> other(
        QThread::create([&] { first = ZLCommandSocket::send(m_command, m_path, socketDeadlineMilliseconds); }));
    other->start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bool(late); }, socketDeadlineMilliseconds));
    EXPECT_EQ(send(m_command).value(), u"the second one"_s);
    EXPECT_FALSE(other->isFinished());
    late(u"the first one"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return other->isFinished(); }, socketDeadlineMilliseconds));
    other->wait();
    EXPECT_EQ(first->value(), u"the first one"_s);
    socket.reset();
    late(u"nobody hears this"_s);
}

TEST_F(ZLCommandSocketTest, OnlyTheUserMayUseIt)
{
    const auto socket = makeSocket();
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFileInfo(m_path).permissions() & others, QFile::Permissions());
}

TEST_F(ZLCommandSocketTest, WithoutARecorderThatIsTheError)
{
    const ZLResult<QString> answer = send(m_command);
    ASSERT_FALSE(answer);
    EXPECT_EQ(answer.error().message, u"Zelta is not running."_s);
}

TEST_F(ZLCommandSocketTest, OfTwoRecordersTheFirstAnswersAndAfterItTheOther)
{
    auto first = makeSocket(u"first"_s);
    const auto second = makeSocket(u"second"_s);
    EXPECT_FALSE(second->isListening());
    EXPECT_EQ(send(m_command).value(), u"first"_s);
    first.reset();
    ASSERT_TRUE(QTest::qWaitFor([&] { return second->isListening(); }, socketDeadlineMilliseconds));
    EXPECT_EQ(send(m_command).value(), u"second"_s);
}

TEST_F(ZLCommandSocketTest, WhatACrashLeftBehindIsNoObstacle)
{
    QFile leftover(m_path);
    ASSERT_TRUE(leftover.open(QIODevice::WriteOnly));
    leftover.close();
    const auto socket = makeSocket();
    EXPECT_TRUE(socket->isListening());
    EXPECT_TRUE(send(m_command));
}

TEST_F(ZLCommandSocketTest, ACommandMayComeInPieces)
{
    const auto socket = makeSocket();
    const QByteArray datagram = ZLOSCCodec::encode(m_command).value();
    const QByteArray whole = sized(quint32(datagram.size()), datagram);
    QList<QByteArray> pieces;
    for (const char byte : whole)
        pieces.append(QByteArray(1, byte));
    EXPECT_EQ(answerTo(pieces), QByteArray("done"));
    EXPECT_EQ(m_messages.size(), 1);
}

TEST_F(ZLCommandSocketTest, GarbageGetsNoAnswerAndTheNextCommandIsTaken)
{
    const auto socket = makeSocket();
    EXPECT_EQ(answerTo({ sized(7, "garbage") }), QByteArray());
    EXPECT_EQ(answerTo({ sized(0, "") }), QByteArray());
    EXPECT_EQ(answerTo({ sized(0xFFFFFFFF, "too large") }), QByteArray());
    EXPECT_TRUE(m_messages.isEmpty());
    EXPECT_TRUE(send(m_command));
}

TEST_F(ZLCommandSocketTest, WhoGoesAwayInTheMiddleDoesNoHarm)
{
    const auto socket = makeSocket();
    {
        QLocalSocket impatient;
        impatient.connectToServer(m_path);
        ASSERT_TRUE(impatient.waitForConnected(socketDeadlineMilliseconds));
        impatient.write(sized(100, "half"));
        impatient.flush();
    }
    EXPECT_TRUE(send(m_command));
    EXPECT_EQ(m_messages.size(), 1);
}

TEST_F(ZLCommandSocketTest, AFolderThatLiesDeepIsNoObstacle)
{
    for (int depth = 0; depth < 8; ++depth)
        m_path.insert(m_path.lastIndexOf(u'/'), u"/a-folder-within-a-folder-with-a-long-name"_s);
    ASSERT_GT(m_path.size(), 300);
    const auto socket = makeSocket(u"from the deep"_s);
    EXPECT_TRUE(socket->isListening());
    const ZLResult<QString> answer = send(m_command);
    ASSERT_TRUE(answer) << qPrintable(answer.error().message);
    EXPECT_EQ(answer.value(), u"from the deep"_s);
}

TEST_F(ZLCommandSocketTest, ACommandHasTheTimeOfItsArrivalHoweverBusyTheMainThreadIs)
{
    std::optional<ZLPressStamp> press;
    const ZLCommandSocket socket(
        [&press](const ZLOSCMessage&, const ZLPressStamp& stamp, const ZLCommandSocket::Answer& answer) {
            press = stamp;
            answer(u"done"_s);
        },
        m_path);
    const ZLSteadyHostClock clock;
    const QByteArray datagram = ZLOSCCodec::encode(m_command).value();
    QLocalSocket other;
    other.connectToServer(m_path);
    ASSERT_TRUE(other.waitForConnected(socketDeadlineMilliseconds));
    const double begin = clock.now();
    other.write(sized(quint32(datagram.size()), datagram));
    ASSERT_TRUE(other.waitForBytesWritten(socketDeadlineMilliseconds));
    const double end = busyUntilRead(other);
    ASSERT_TRUE(QTest::qWaitFor([&] { return press.has_value(); }, socketDeadlineMilliseconds));
    EXPECT_GE(press->hostTime(), begin);
    EXPECT_LE(press->hostTime(), end);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return other.state() == QLocalSocket::UnconnectedState; }, socketDeadlineMilliseconds));
    EXPECT_EQ(other.readAll(), QByteArray("done"));
}
