#include "listening/ZLListeningData.h"

#include <QByteArray>
#include <QVariantList>
#include <QVariantMap>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// Frames that count up, so that each tells where it belongs.
ZLListeningSpan countingSpan(double start, std::size_t count, std::uint32_t first = 1, double interval = 0.02)
{
    ZLListeningSpan span { start, interval, {} };
    for (std::size_t index = 0; index < count; ++index)
        span.frames.push_back(first + std::uint32_t(index));
    return span;
}

ZLListeningData dataOf(const std::vector<ZLListeningSpan>& spans)
{
    ZLListeningData data;
    for (const ZLListeningSpan& span : spans)
        data.add(span);
    return data;
}

QVariant storedSpans(const QVariantList& spans)
{
    return QVariantMap { { u"Spans"_s, spans } };
}

QVariantMap storedSpan(const QVariant& start, const QVariant& interval, const QVariant& frames)
{
    return { { u"Start"_s, start }, { u"Interval"_s, interval }, { u"Frames"_s, frames } };
}

}

TEST(ZLListeningDataTest, HasWhatWasHeardThereAndNothingElse)
{
    const ZLListeningData data = dataOf({ countingSpan(0.0, 100), countingSpan(10.0, 100, 1000) });
    EXPECT_TRUE(data.has(countingSpan(10.0, 100, 1000)));
    EXPECT_TRUE(data.has(countingSpan(10.1, 40, 1000))) << "the beginning, whose place was not known well";
    EXPECT_FALSE(data.has(countingSpan(10.0, 101, 1000))) << "more";
    EXPECT_FALSE(data.has(countingSpan(11.0, 40, 1000))) << "elsewhere";
    EXPECT_FALSE(data.has(countingSpan(10.0, 40, 1001))) << "something else";
    ZLListeningSpan hole = countingSpan(10.0, 100, 1000);
    hole.frames[7] = ZLSoundFingerprint::Nothing;
    EXPECT_TRUE(data.has(hole));
}

TEST(ZLListeningDataTest, NothingThatWasHeardIsNothingStored)
{
    EXPECT_FALSE(ZLListeningData().stored().isValid());
    EXPECT_TRUE(ZLListeningData::fromStored({}).isEmpty());
    EXPECT_TRUE(ZLListeningData().heardShow().fingerprint.frames.empty());
}

TEST(ZLListeningDataTest, WhatIsStoredIsReadAgain)
{
    const auto data = dataOf({ countingSpan(1.5, 100, 0xFFFFFF00U), countingSpan(90.25, 3, 7, 0.020002) });
    EXPECT_EQ(ZLListeningData::fromStored(data.stored()), data);
    EXPECT_EQ(data.spans().size(), 2U);
}

TEST(ZLListeningDataTest, TheStoredFormIsTheDocumentedOne)
{
    const auto stored = dataOf({ { 2.0, 0.02, { 0x01020304U, 0xA0B0C0D0U } } }).stored().toMap();
    EXPECT_EQ(stored.keys(), QStringList { u"Spans"_s });
    const auto spans = stored.value(u"Spans"_s).toList();
    ASSERT_EQ(spans.size(), 1);
    const auto span = spans.first().toMap();
    EXPECT_EQ(span.keys(), (QStringList { u"Frames"_s, u"Interval"_s, u"Start"_s }));
    EXPECT_EQ(span.value(u"Start"_s).typeId(), QMetaType::Double);
    EXPECT_EQ(span.value(u"Interval"_s).toDouble(), 0.02);
    // Four bytes a frame and nothing beside them.
    EXPECT_EQ(span.value(u"Frames"_s).toByteArray(), QByteArray::fromHex("01020304a0b0c0d0"));
}

TEST(ZLListeningDataTest, AClockThatWasSetBackForgetsWhatWasHeardLater)
{
    auto data = dataOf({ countingSpan(0.0, 500), countingSpan(20.0, 50) });
    data.add(countingSpan(4.0, 10, 9000));
    ASSERT_EQ(data.spans().size(), 2U);
    EXPECT_EQ(data.spans()[0].frames.size(), 200U);
    EXPECT_EQ(data.spans()[1], countingSpan(4.0, 10, 9000));
}

TEST(ZLListeningDataTest, TheSameSpanTwiceCountsOnce)
{
    const auto span = countingSpan(3.0, 50);
    EXPECT_EQ(dataOf({ countingSpan(0.0, 100), span, span }), dataOf({ countingSpan(0.0, 100), span }));
}

TEST(ZLListeningDataTest, APauseHasFramesThatSayNothing)
{
    const auto show = dataOf({ countingSpan(0.0, 100), countingSpan(3.0, 100, 1000) }).heardShow();
    EXPECT_DOUBLE_EQ(show.zero, 0.0);
    ASSERT_EQ(show.fingerprint.frames.size(), 250U);
    EXPECT_EQ(show.fingerprint.frames[99], 100U);
    EXPECT_EQ(show.fingerprint.frames[100], ZLSoundFingerprint::Nothing);
    EXPECT_EQ(show.fingerprint.frames[149], ZLSoundFingerprint::Nothing);
    EXPECT_EQ(show.fingerprint.frames[150], 1000U);
}

TEST(ZLListeningDataTest, ASpanThatBeginsBetweenTwoFramesKeepsItsPlace)
{
    const auto show = dataOf({ countingSpan(1.013, 100) }).heardShow();
    EXPECT_LT(show.zero, 0.02);
    for (std::size_t frame = 0; frame < 100; ++frame) {
        const double time = 1.013 + 0.02 * double(frame);
        EXPECT_EQ(show.fingerprint.frames.at(std::size_t(std::lround((time + show.zero) / 0.02))), frame + 1);
    }
}

TEST(ZLListeningDataTest, TheDriftOfAnInputIsTakenOut)
{
    // An hour of an input that counts 100 seconds too few by its end: 200 ppm are 0.72 s.
    const double interval = 0.02 * (1.0 + 200e-6);
    const auto show = dataOf({ countingSpan(0.0, 180000, 1, interval) }).heardShow();
    EXPECT_EQ(show.fingerprint.frames.size(), 180036U);
    for (const std::size_t frame : { std::size_t(0), std::size_t(90000), std::size_t(179999) }) {
        const auto index = std::size_t(std::lround((double(frame) * interval + show.zero) / 0.02));
        EXPECT_NEAR(double(show.fingerprint.frames.at(index)), double(frame + 1), 1.0);
    }
}

TEST(ZLListeningDataTest, TimeThatIsAddedToTheClockMovesWhatWasHeardLater)
{
    auto data = dataOf({ countingSpan(0.0, 100), countingSpan(5.0, 100, 1000) });
    data.insertTime(1.0, 60.0);
    const auto& spans = data.spans();
    ASSERT_EQ(spans.size(), 3U);
    EXPECT_EQ(spans[0].frames.size(), 50U);
    EXPECT_DOUBLE_EQ(spans[1].start, 61.0);
    EXPECT_EQ(spans[1].frames.front(), 51U);
    EXPECT_DOUBLE_EQ(spans[2].start, 65.0);
}

TEST(ZLListeningDataTest, TimeThatIsTakenBackFromTheClockMovesWhatWasHeardBack)
{
    const auto before = dataOf({ countingSpan(0.0, 100), countingSpan(5.0, 100, 1000) });
    auto data = before;
    data.insertTime(3.0, 60.0);
    data.insertTime(2.5, 7.0);
    EXPECT_NE(data, before);
    data.removeTime(2.5, 7.0);
    data.removeTime(3.0, 60.0);
    ASSERT_EQ(data.spans().size(), 2U);
    EXPECT_DOUBLE_EQ(data.spans()[1].start, 5.0);
    EXPECT_EQ(data, before);
}

TEST(ZLListeningDataTest, DamagedSpansAreLeftOutAndTheOthersStay)
{
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const QByteArray frames = QByteArray::fromHex("0000000100000002");
    const QVariantList bad { storedSpan(nan, 0.02, frames), storedSpan(inf, 0.02, frames),
        storedSpan(-1.0, 0.02, frames), storedSpan(1e300, 0.02, frames), storedSpan(360000.0, 0.02, frames),
        storedSpan(0.0, nan, frames), storedSpan(0.0, 0.0, frames), storedSpan(0.0, -0.02, frames),
        storedSpan(0.0, 1e-300, frames), storedSpan(0.0, 1e300, frames), storedSpan(0.0, 0.02, QByteArray()),
        storedSpan(0.0, 0.02, QByteArray("abc")), storedSpan(0.0, 0.02, u"text"_s),
        storedSpan(QVariantList {}, QVariantMap {}, frames), 7, u"span"_s, QVariant() };
    for (const QVariant& span : bad)
        EXPECT_TRUE(ZLListeningData::fromStored(storedSpans({ span })).isEmpty()) << bad.indexOf(span);
    const auto data = ZLListeningData::fromStored(storedSpans(bad + QVariantList { storedSpan(4, 0.02, frames) }));
    EXPECT_EQ(data, dataOf({ countingSpan(4.0, 2) }));
    for (const QVariant& stored : { QVariant(5), QVariant(u"x"_s), QVariant(QVariantList { 1 }), storedSpans({}) })
        EXPECT_TRUE(ZLListeningData::fromStored(stored).isEmpty());
}

TEST(ZLListeningDataTest, TheLongestShowHasRoomAndALongerOneIsLeftOut)
{
    const auto show = dataOf({ countingSpan(359990.0, 500), countingSpan(359999.9, 500) }).heardShow();
    EXPECT_NEAR(show.fingerprint.seconds(), 360000.0, 0.1);
    EXPECT_EQ(show.fingerprint.frames.back(), 500U);
}

TEST(ZLListeningDataTest, BytesAfterTheLastWholeFrameAreLeftOut)
{
    const auto data =
        ZLListeningData::fromStored(storedSpans({ storedSpan(0.0, 0.02, QByteArray::fromHex("0000000100")) }));
    EXPECT_EQ(data, dataOf({ countingSpan(0.0, 1) }));
}

TEST(ZLListeningDataTest, ManySpansOverEachOtherTakeNoMoreRoomThanOneShow)
{
    QVariantList spans;
    for (int count = 0; count < 20000; ++count)
        spans.append(storedSpan(1.0, 0.02, QByteArray(8, '\1')));
    EXPECT_EQ(ZLListeningData::fromStored(storedSpans(spans)).spans().size(), 1U);
}
