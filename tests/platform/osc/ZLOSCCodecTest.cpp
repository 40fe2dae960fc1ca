#include "platform/osc/ZLOSCCodec.h"

#include "OSCBundle.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Decodes from an allocation of exactly the size, so that a sanitizer sees a read of a byte too many.
ZLResult<QList<ZLOSCMessage>> decodeExactly(const QByteArray& datagram)
{
    const std::vector<char> bytes(datagram.cbegin(), datagram.cend());
    return ZLOSCCodec::decode(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
}

bool isRefused(const QByteArray& datagram)
{
    const ZLResult<QList<ZLOSCMessage>> result = decodeExactly(datagram);
    return !result && !result.error().message.isEmpty();
}

QByteArray nested(int depth, QByteArray element)
{
    for (int level = 0; level < depth; ++level)
        element = OSCBundle::of({ element });
    return element;
}

ZLOSCMessage messageOfEveryKind()
{
    return ZLOSCMessage(u"/all/kinds"_s,
        { qint32(-2), qint64(-3'000'000'000), 0.5F, -0.25, u"Grüße 日本 🎙"_s, u""_s, QByteArray("\0\1\2\3\4", 5), true,
            false, ZLOSCNil(), ZLOSCInfinitum(), ZLOSCTimeTag { 0x0102030405060708 }, ZLOSCOpaque { 'c', 65 },
            ZLOSCOpaque { 'r', 0xFF00FF00 }, ZLOSCOpaque { 'm', 0x00903C7F } });
}

const QByteArray press("/zl/a\0\0\0,f\0\0\x3f\x80\0\0", 16);

}

TEST(ZLOSCCodec, theBytesAreThoseOfThePublishedExamples)
{
    EXPECT_EQ(ZLOSCCodec::encode(ZLOSCMessage(u"/oscillator/4/frequency"_s, { 440.0F })).value(),
        QByteArray("/oscillator/4/frequency\0,f\0\0\x43\xdc\0\0", 32));
    EXPECT_EQ(
        ZLOSCCodec::encode(ZLOSCMessage(u"/foo"_s, { qint32(1000), qint32(-1), u"hello"_s, 1.234F, 5.678F })).value(),
        QByteArray(
            "/foo\0\0\0\0,iisff\0\0\0\0\x03\xe8\xff\xff\xff\xffhello\0\0\0\x3f\x9d\xf3\xb6\x40\xb5\xb2\x2d", 40));
    EXPECT_EQ(ZLOSCCodec::encode(ZLOSCMessage(u"/zl/isRecording"_s, { true })).value(),
        QByteArray("/zl/isRecording\0,T\0\0", 20));
}

TEST(ZLOSCCodec, everyKindOfArgumentComesBack)
{
    const QByteArray bytes = ZLOSCCodec::encode(messageOfEveryKind()).value();
    EXPECT_EQ(bytes.size() % 4, 0);
    EXPECT_EQ(decodeExactly(bytes).value(), QList<ZLOSCMessage>({ messageOfEveryKind() }));
}

TEST(ZLOSCCodec, textsOfEveryLengthComeBackPadded)
{
    for (int length = 0; length < 20; ++length) {
        const ZLOSCMessage message(u'/' + QString(length, u'a'), { QString(length, u'b'), QByteArray(length, 'c') });
        EXPECT_EQ(decodeExactly(ZLOSCCodec::encode(message).value()).value(), QList<ZLOSCMessage>({ message }));
    }
}

TEST(ZLOSCCodec, aNulWithinATextIsLeftOutOnTheWire)
{
    const QByteArray bytes = ZLOSCCodec::encode(ZLOSCMessage(u"/a"_s, { QString(u"x\0y"_s), qint32(7) })).value();
    EXPECT_EQ(decodeExactly(bytes).value(), QList<ZLOSCMessage>({ ZLOSCMessage(u"/a"_s, { u"xy"_s, qint32(7) }) }));
}

TEST(ZLOSCCodec, whatDoesNotFitIntoADatagramIsNotMade)
{
    EXPECT_TRUE(ZLOSCCodec::encode(ZLOSCMessage(u"/a"_s, { QString(65000, u'x') })).isOk());
    EXPECT_FALSE(ZLOSCCodec::encode(ZLOSCMessage(u"/a"_s, { QString(65600, u'x') })).isOk());
    EXPECT_FALSE(ZLOSCCodec::encode(ZLOSCMessage(u"/a"_s, { QString(65000, u'x'), QString(65000, u'x') })).isOk());
    EXPECT_FALSE(ZLOSCCodec::encode(ZLOSCMessage(u"/a"_s, QList<ZLOSCArgument>(1025, true))).isOk());
    EXPECT_FALSE(ZLOSCCodec::encode(ZLOSCMessage(u"a"_s)).isOk());
    EXPECT_FALSE(ZLOSCCodec::encode(ZLOSCMessage()).isOk());
}

TEST(ZLOSCCodec, bundlesAreTakenApartInTheirOrder)
{
    const ZLOSCMessage first(u"/1"_s, { qint32(1) });
    const ZLOSCMessage second(u"/2"_s, { u"two"_s });
    const QByteArray inner = OSCBundle::of({ ZLOSCCodec::encode(second).value(), ZLOSCCodec::encode(first).value() });
    EXPECT_EQ(decodeExactly(inner).value(), QList<ZLOSCMessage>({ second, first }));
    const QByteArray outer =
        OSCBundle::of({ ZLOSCCodec::encode(first).value(), inner, ZLOSCCodec::encode(second).value() });
    EXPECT_EQ(decodeExactly(outer).value(), QList<ZLOSCMessage>({ first, second, first, second }));
    EXPECT_EQ(decodeExactly(OSCBundle::of({})).value(), QList<ZLOSCMessage>());
}

TEST(ZLOSCCodec, oldSendersMayLeaveOutTheTypeTags)
{
    EXPECT_EQ(decodeExactly(QByteArray("/a\0\0", 4)).value(), QList<ZLOSCMessage>({ ZLOSCMessage(u"/a"_s) }));
    EXPECT_EQ(decodeExactly(QByteArray("/a\0\0,\0\0\0", 8)).value(), QList<ZLOSCMessage>({ ZLOSCMessage(u"/a"_s) }));
}

TEST(ZLOSCCodec, symbolsAreStringsAndArraysAreFlattened)
{
    EXPECT_EQ(decodeExactly(QByteArray("/a\0\0,S\0\0on\0\0", 12)).value().first().arguments().first(),
        ZLOSCArgument(u"on"_s));
    EXPECT_EQ(decodeExactly(QByteArray("/a\0\0,[iT[]]F\0\0\0\0\0\0\0\5", 20)).value(),
        QList<ZLOSCMessage>({ ZLOSCMessage(u"/a"_s, { qint32(5), true, false }) }));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0,[T\0", 8)));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0,T]\0", 8)));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0,][\0", 8)));
}

TEST(ZLOSCCodec, aMessageCutAnywhereIsRefused)
{
    const QByteArray whole = ZLOSCCodec::encode(messageOfEveryKind()).value();
    const qsizetype addressAlone = 12;
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_EQ(isRefused(whole.first(size)), size != addressAlone) << size;
}

TEST(ZLOSCCodec, aBundleCutAnywhereIsRefusedWhole)
{
    const QByteArray whole = OSCBundle::of({ press, OSCBundle::of({ press }), press });
    const qsizetype firstElement = 16 + 4 + press.size();
    const QList<qsizetype> complete { 16, firstElement, firstElement + 4 + 16 + 4 + press.size() };
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_EQ(isRefused(whole.first(size)), !complete.contains(size)) << size;
}

TEST(ZLOSCCodec, bytesTooManyAreRefused)
{
    ASSERT_FALSE(isRefused(press));
    for (int more = 1; more <= 9; ++more)
        EXPECT_TRUE(isRefused(press + QByteArray(more, '\0'))) << more;
}

TEST(ZLOSCCodec, textsThatAreNotEndedOrNotPaddedWithZerosAreRefused)
{
    EXPECT_TRUE(isRefused(QByteArray("/abc", 4)));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0,s\0\0abcd", 12)));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0,iii", 8)));
    EXPECT_TRUE(isRefused(QByteArray("/a\0x,T\0\0", 8)));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0,T\0x", 8)));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0,b\0\0\0\0\0\1a\0\0x", 16)));
}

TEST(ZLOSCCodec, wrongAddressesAndTypeTagsAreRefused)
{
    EXPECT_TRUE(isRefused(QByteArray("abc\0,T\0\0", 8)));
    EXPECT_TRUE(isRefused(QByteArray("\0\0\0\0,T\0\0", 8)));
    EXPECT_TRUE(isRefused(QByteArray("/\xff\0\0,T\0\0", 8)));
    EXPECT_TRUE(isRefused(QByteArray("#bundlx\0\0\0\0\0\0\0\0\1", 16)));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0iT\0\0", 8)));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0\0\0\0\1", 8)));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0,x\0\0", 8)));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0,T,\0", 8)));
}

TEST(ZLOSCCodec, sizesThatDoNotFitAreRefused)
{
    for (const quint32 size :
        { 0U, 1U, 15U, 17U, 20U, 0x7FFFFFFFU, 0x7FFFFFFCU, 0x80000000U, 0xFFFFFFFCU, 0xFFFFFFFFU })
        EXPECT_TRUE(isRefused(OSCBundle::of({}) + OSCBundle::bigEndian(size) + press)) << size;
    for (const quint32 size : { 5U, 0x7FFFFFFDU, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU })
        EXPECT_TRUE(isRefused(QByteArray("/a\0\0,b\0\0", 8) + OSCBundle::bigEndian(size) + QByteArray("abcd"))) << size;
    EXPECT_FALSE(isRefused(QByteArray("/a\0\0,b\0\0", 8) + OSCBundle::bigEndian(4) + QByteArray("abcd")));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0", 4) + QByteArray(65536, '\0')));
    EXPECT_TRUE(isRefused(QByteArray("/") + QByteArray(65506, 'a') + '\0'));
    EXPECT_FALSE(isRefused(QByteArray("/") + QByteArray(65502, 'a') + '\0'));
}

TEST(ZLOSCCodec, bundlesAreNestedOnlySoDeepAndHoldOnlySoMuch)
{
    EXPECT_EQ(decodeExactly(nested(ZLOSCCodec::deepestBundle, press)).value().size(), 1);
    EXPECT_TRUE(isRefused(nested(ZLOSCCodec::deepestBundle + 1, press)));
    EXPECT_TRUE(isRefused(nested(200, press)));
    EXPECT_TRUE(isRefused(nested(3000, press)));
    EXPECT_EQ(decodeExactly(OSCBundle::of(QList<QByteArray>(1023, press))).value().size(), 1023);
    EXPECT_TRUE(isRefused(OSCBundle::of(QList<QByteArray>(1024, press))));
    const QByteArray tags = QByteArray(",") + QByteArray(1024, 'T');
    EXPECT_FALSE(isRefused(QByteArray("/a\0\0", 4) + tags + QByteArray(3, '\0')));
    EXPECT_TRUE(isRefused(QByteArray("/a\0\0", 4) + tags + "T" + QByteArray(2, '\0')));
    EXPECT_TRUE(isRefused(OSCBundle::of({ press, nested(200, press) })));
}

TEST(ZLOSCCodec, textThatIsNotUTF8IsReadAsFarAsItGoes)
{
    const QList<ZLOSCMessage> messages = decodeExactly(QByteArray("/a\0\0,si\0Ger\xe4t\0\0\0\0\0\0\1", 20)).value();
    EXPECT_EQ(messages.first().arguments().first(), ZLOSCArgument(u"Ger\uFFFDt"_s));
}
