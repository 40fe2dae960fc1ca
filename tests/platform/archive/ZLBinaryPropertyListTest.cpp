#include "platform/archive/ZLArchivedDate.h"
#include "platform/archive/ZLBinaryPropertyListReader.h"
#include "platform/archive/ZLBinaryPropertyListWriter.h"

#include <QTimeZone>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

using PropertyListKind = ZLBinaryPropertyListObject::Kind;
using Reference = ZLBinaryPropertyListWriter::Reference;

/// A list of the given objects' bytes, one after the other; offsets, references and the trailer are one byte wide.
QByteArray listOf(const QList<QByteArray>& objects, quint8 top = 0)
{
    QByteArray file("bplist00");
    QByteArray table;
    for (const QByteArray& object : objects) {
        table.append(char(file.size()));
        file.append(object);
    }
    const char offset = char(file.size());
    file.append(table).append(6, '\0').append("\1\1").append(7, '\0').append(char(objects.size()));
    return file.append(7, '\0').append(char(top)).append(7, '\0').append(offset);
}

std::optional<QVariant> scalarOf(const QByteArray& object)
{
    const QByteArray file = listOf({ object });
    const auto reader = ZLBinaryPropertyListReader::open(file);
    EXPECT_TRUE(reader.isOk());
    return reader.value().objectAt(0).scalar();
}

PropertyListKind kindOf(const QByteArray& object)
{
    const QByteArray file = listOf({ object });
    const auto reader = ZLBinaryPropertyListReader::open(file);
    EXPECT_TRUE(reader.isOk());
    return reader.value().objectAt(0).kind;
}

bool opens(const QByteArray& file)
{
    return ZLBinaryPropertyListReader::open(file).isOk();
}

}

TEST(ZLBinaryPropertyList, ReadsEveryScalar)
{
    EXPECT_EQ(scalarOf(QByteArray("\x00", 1)), QVariant());
    EXPECT_EQ(scalarOf("\x08"), QVariant(false));
    EXPECT_EQ(scalarOf("\x09"), QVariant(true));
    EXPECT_EQ(scalarOf("\x10\xFF"), QVariant(255LL));
    EXPECT_EQ(scalarOf("\x11\xFF\xFE"), QVariant(65'534LL));
    EXPECT_EQ(scalarOf("\x12\xFF\xFF\xFF\xFB"), QVariant(4'294'967'291LL));
    EXPECT_EQ(scalarOf("\x13" + QByteArray(7, '\xFF') + "\xFB"), QVariant(-5LL));
    EXPECT_EQ(scalarOf("\x14" + QByteArray(8, '\0') + QByteArray(8, '\xFF')),
        QVariant(std::numeric_limits<qulonglong>::max()));
    EXPECT_EQ(scalarOf("\x14" + QByteArray(16, '\xFF')), QVariant(-1LL));
    EXPECT_EQ(scalarOf("\x14\x01" + QByteArray(15, '\0')), std::nullopt);
    EXPECT_EQ(scalarOf(QByteArray("\x22\x3F\x80\0\0", 5)), QVariant(1.0F));
    EXPECT_EQ(scalarOf(QByteArray("\x23\x3F\xF0\0\0\0\0\0\0", 9)), QVariant(1.0));
    EXPECT_EQ(
        scalarOf("\x33" + QByteArray(8, '\0')), QVariant(QDateTime(QDate(2001, 1, 1), QTime(0, 0), QTimeZone::utc())));
    EXPECT_EQ(scalarOf("\x42xy"), QVariant(QByteArray("xy")));
    EXPECT_EQ(scalarOf("\x52xy"), QVariant(u"xy"_s));
    EXPECT_EQ(scalarOf("\x51\xE4"), QVariant(u"ä"_s));
    EXPECT_EQ(scalarOf(QByteArray("\x61\x65\xE5", 3)), QVariant(u"日"_s));
}

TEST(ZLBinaryPropertyList, KeepsDatesAsTheyAreThatNoQDateTimeSays)
{
    const auto dateOf = [](const QByteArray& object) {
        return ZLArchivedDate::in(scalarOf(object).value_or(QVariant())).value_or(ZLArchivedDate());
    };
    EXPECT_TRUE(std::isnan(dateOf("\x33\x7F\xF8" + QByteArray(6, '\0')).referenceSeconds));
    EXPECT_EQ(dateOf("\x33\x7F\xF0" + QByteArray(6, '\0')).referenceSeconds, std::numeric_limits<double>::infinity());
    EXPECT_EQ(dateOf("\x33\xFF\xEF" + QByteArray(6, '\xFF')).referenceSeconds, std::numeric_limits<double>::lowest());
}

TEST(ZLBinaryPropertyList, RefusesObjectsThatDoNotFit)
{
    for (const QByteArray& object :
        { QByteArray("\x11\x01"), QByteArray("\x15\x01"), QByteArray("\x22\x01\x01"), QByteArray("\x21\x01\x01"),
            QByteArray("\x33\x01"), QByteArray("\x32\1\1\1\1"), QByteArray("\x42x"), QByteArray("\x52x"),
            QByteArray("\x61x"), QByteArray("\x88\1\1\1\1\1\1\1\1\1"), QByteArray("\x81\1"), QByteArray("\xA2\1"),
            QByteArray("\xD1\1"), QByteArray("\x5F"), QByteArray("\x5F\x10"), QByteArray("\x5F\x10\x02x"),
            QByteArray("\x5F\x51x"), QByteArray("\x01"), QByteArray("\x0F"), QByteArray("\x70"), QByteArray("\x90"),
            QByteArray("\xB0"), QByteArray("\xE0"), QByteArray("\xF0"), "\x5F\x14" + QByteArray(17, '\0') })
        EXPECT_EQ(kindOf(object), PropertyListKind::Invalid) << object.toHex().constData();
}

TEST(ZLBinaryPropertyList, RefusesCountsBeyondEveryFile)
{
    for (const char kind : { '\x4F', '\x5F', '\x6F', '\xAF', '\xCF', '\xDF' }) {
        // The second and the third are nothing but zero when doubled or taken four times.
        for (const QByteArray& count : { QByteArray(8, '\xFF'), "\x80" + QByteArray(7, '\0'),
                 "\x40" + QByteArray(7, '\0'), "\x7F" + QByteArray(7, '\xFF') })
            EXPECT_EQ(kindOf(QByteArray(1, kind) + "\x13" + count), PropertyListKind::Invalid)
                << count.toHex().constData();
        EXPECT_EQ(kindOf(QByteArray(1, kind) + QByteArray("\x12\x00\x0F\x42\x40", 5)), PropertyListKind::Invalid);
    }
}

TEST(ZLBinaryPropertyList, RefusesFilesThatAreNone)
{
    EXPECT_FALSE(opens({}));
    EXPECT_FALSE(opens("bplist00"));
    EXPECT_FALSE(opens(QByteArray(100, '\0')));
    EXPECT_FALSE(opens("<?xml version=\"1.0\"?><plist version=\"1.0\"><dict/></plist>"));
    EXPECT_TRUE(opens(listOf({ "\x09" })));
}

TEST(ZLBinaryPropertyList, RefusesTrailersThatDoNotFit)
{
    const QByteArray sound = listOf({ "\x09", "\x08" }, 1);
    ASSERT_TRUE(opens(sound));
    const qsizetype trailer = sound.size() - 32;
    struct Change {
        qsizetype at;
        char to;
    };
    // Offset size, reference size, count (last and first byte), top object, place of the table (last and first byte).
    for (const Change& change : { Change { 6, 0 }, { 6, 9 }, { 7, 0 }, { 7, 9 }, { 15, 3 }, { 8, '\xFF' }, { 15, 0 },
             { 23, 2 }, { 16, 1 }, { 31, 8 }, { 31, 11 }, { 24, '\xFF' } }) {
        QByteArray damaged = sound;
        damaged[trailer + change.at] = change.to;
        EXPECT_FALSE(opens(damaged)) << change.at;
    }
}

TEST(ZLBinaryPropertyList, RefusesOffsetsOutsideOfTheObjects)
{
    QByteArray file = listOf({ "\x09" });
    for (const int offset : { 0, 7, 9, 255 }) {
        file[9] = char(offset);
        const auto reader = ZLBinaryPropertyListReader::open(file);
        ASSERT_TRUE(reader.isOk());
        EXPECT_EQ(reader.value().objectAt(0).kind, PropertyListKind::Invalid) << offset;
        EXPECT_EQ(reader.value().objectAt(1).kind, PropertyListKind::Invalid);
    }
}

TEST(ZLBinaryPropertyList, FindsWhatTheWriterPutInCollections)
{
    ZLBinaryPropertyListWriter writer;
    const std::array<Reference, 2> keys { writer.addText("one"_L1), writer.addText(u"zwö") };
    const std::array<Reference, 2> values { writer.addInteger(-1), writer.addReal(1.5) };
    const std::array<Reference, 1> elements { writer.addDictionary(keys, values) };
    const QByteArray file = writer.finish(writer.addArray(elements));

    const auto opened = ZLBinaryPropertyListReader::open(file);
    ASSERT_TRUE(opened.isOk());
    const ZLBinaryPropertyListReader& reader = opened.value();
    const auto array = reader.objectAt(reader.topObject());
    ASSERT_EQ(array.kind, PropertyListKind::Array);
    ASSERT_EQ(array.count, 1U);
    const auto dictionary = reader.objectAt(reader.elementAt(array, 0));
    ASSERT_EQ(dictionary.kind, PropertyListKind::Dictionary);
    EXPECT_EQ(reader.valueFor(dictionary, "one"_L1).scalar(), QVariant(-1LL));
    EXPECT_EQ(reader.objectAt(reader.elementAt(dictionary, 1)).scalar(), QVariant(u"zwö"_s));
    EXPECT_EQ(reader.objectAt(reader.valueAt(dictionary, 1)).scalar(), QVariant(1.5));
    EXPECT_EQ(reader.valueFor(dictionary, "two"_L1).kind, PropertyListKind::Invalid);
    EXPECT_EQ(reader.valueFor(array, "one"_L1).kind, PropertyListKind::Invalid);
}

TEST(ZLBinaryPropertyList, WritesTheShortestReferences)
{
    for (const quint32 count : { 1U, 255U, 256U, 65'535U, 65'536U }) {
        ZLBinaryPropertyListWriter writer;
        for (quint32 index = 1; index < count; ++index)
            writer.addBoolean(true);
        const QByteArray file = writer.finish(writer.addArray({}));
        const auto reader = ZLBinaryPropertyListReader::open(file);
        ASSERT_TRUE(reader.isOk());
        EXPECT_EQ(reader.value().objectCount(), count);
        EXPECT_EQ(reader.value().referenceSize(), count <= 256 ? 1U : count <= 65'536 ? 2U : 3U);
    }
}

TEST(ZLBinaryPropertyList, KeepsDatesWithinTheirRange)
{
    EXPECT_TRUE(ZLDateFromReferenceSeconds(1e12).has_value());
    EXPECT_FALSE(ZLDateFromReferenceSeconds(1.1e12).has_value());
    EXPECT_FALSE(ZLDateFromReferenceSeconds(std::nan("")).has_value());
    EXPECT_FALSE(ZLReferenceSecondsFromDate(QDateTime()).has_value());
    const QDateTime last = *ZLDateFromReferenceSeconds(-1e12 + 0.001);
    EXPECT_EQ(ZLReferenceSecondsFromDate(last), -1e12 + 0.001);
}
