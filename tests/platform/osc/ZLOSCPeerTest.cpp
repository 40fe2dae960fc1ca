// Programs that others wrote, in both directions: oscsend and oscdump of liblo-tools. Without them these tests fail.
#include "platform/osc/ZLOSCManager.h"

#include "LoopbackPeer.h"

#include <QProcess>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void oscsend(const QStringList& arguments)
{
    QProcess process;
    process.start(u"oscsend"_s, arguments);
    ASSERT_TRUE(process.waitForFinished(hangLimitMilliseconds)) << qPrintable(process.errorString());
    ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
}

}

TEST(ZLOSCPeer, oscsendIsUnderstood)
{
    ZLOSCManager manager(u"Show"_s);
    manager.setPortRange(ZLOSCPortRange::exactly(0));
    const ZLOSCInPort* input = manager.createNewInput();
    QList<ZLOSCMessage> received;
    QObject::connect(&manager, &ZLOSCManager::receivedOSCMessage, &manager,
        [&](const ZLOSCReceivedMessage& each) { received.append(each.message); });
    const QString port = QString::number(input->port());
    oscsend({ u"localhost"_s, port, u"/zl/newChapter"_s, u"f"_s, u"1.0"_s });
    oscsend({ u"127.0.0.1"_s, port, u"/zl/many"_s, u"ihfdsTFNIcm"_s, u"-5"_s, u"6000000000"_s, u"0.5"_s, u"0.25"_s,
        u"Grüße"_s, u"A"_s, u"00903c7f"_s });
    oscsend({ u"127.0.0.1"_s, port, u"/zl/none"_s });
    ASSERT_TRUE(waitUntil([&] { return received.size() == 3; }));
    EXPECT_EQ(received[0], ZLOSCMessage(u"/zl/newChapter"_s, { 1.0F }));
    EXPECT_EQ(received[1],
        ZLOSCMessage(u"/zl/many"_s,
            { qint32(-5), qint64(6'000'000'000), 0.5F, 0.25, u"Grüße"_s, true, false, ZLOSCNil(), ZLOSCInfinitum(),
                ZLOSCOpaque { 'c', 65 }, ZLOSCOpaque { 'm', 0x00903c7f } }));
    EXPECT_EQ(received[2], ZLOSCMessage(u"/zl/none"_s));
    EXPECT_EQ(input->counters().malformed, 0U);
}

TEST(ZLOSCPeer, oscdumpUnderstandsWhatIsSent)
{
    quint16 port = 0;
    {
        const LoopbackPeer chooser;
        port = chooser.port();
    }
    QProcess dump;
    dump.start(u"oscdump"_s, { u"-L"_s, QString::number(port) });
    ASSERT_TRUE(dump.waitForStarted(hangLimitMilliseconds)) << qPrintable(dump.errorString());
    ZLOSCOutPort output(u"dump"_s, u"127.0.0.1"_s, port);
    QByteArray printed;
    const auto printedContains = [&](const char* text) {
        printed += dump.readAllStandardOutput();
        return printed.contains(text);
    };
    // It says nothing when it begins to listen, so it is called until it answers.
    ASSERT_TRUE(
        waitUntil([&] { return output.sendThisMessage(ZLOSCMessage(u"/hello"_s)) && printedContains("/hello"); }));
    output.sendThisMessage(ZLOSCMessage(u"/zl/isRecording"_s, { true }));
    output.sendThisMessage(ZLOSCMessage(u"/zl/lastChapterTitle"_s, { u"Grüße 日本"_s }));
    output.sendThisMessage(
        ZLOSCMessage(u"/zl/many"_s, { qint32(-5), qint64(6'000'000'000), 0.5F, 0.25, QByteArray("ab") }));
    output.sendThisMessage(ZLOSCMessage(u"/bye"_s));
    EXPECT_TRUE(waitUntil([&] { return printedContains("/bye"); }));
    EXPECT_TRUE(printed.contains("/zl/isRecording T #T\n")) << printed.constData();
    EXPECT_TRUE(printed.contains("/zl/lastChapterTitle s \"Grüße 日本\"\n")) << printed.constData();
    EXPECT_TRUE(printed.contains("/zl/many ihfdb -5 6000000000 0.5")) << printed.constData();
    dump.kill();
    dump.waitForFinished(hangLimitMilliseconds);
}
