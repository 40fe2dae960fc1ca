#include "platform/archive/ZLKeyedUnarchiver.h"

#include "platform/archive/KeyedArchiveBuilder.h"
#include "platform/archive/ZLArchivedDate.h"
#include "platform/archive/ZLKeyedArchiver.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QTimeZone>
#include <QtEndian>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

using Reference = KeyedArchiveBuilder::Reference;

void expectRefusal(const QByteArray& data, QLatin1StringView reason)
{
    const ZLResult<QVariant> result = ZLKeyedUnarchiver::unarchivedRoot(data);
    ASSERT_FALSE(result.isOk());
    EXPECT_TRUE(result.error().message.contains(reason)) << qPrintable(result.error().message);
}

void expectValue(const QByteArray& data, const QVariant& expected)
{
    const ZLResult<QVariant> result = ZLKeyedUnarchiver::unarchivedRoot(data);
    ASSERT_TRUE(result.isOk()) << qPrintable(result.error().message);
    EXPECT_EQ(result.value(), expected);
}

QByteArray smallArchive()
{
    const QVariantMap chapter { { u"Title"_s, u"Grüße 🎙"_s }, { u"TimeStamp"_s, 1.5 }, { u"Enabled"_s, true },
        { u"Date"_s, QDateTime(QDate(2026, 1, 1), QTime(0, 0), QTimeZone::utc()) }, { u"Blob"_s, QByteArray("xy") } };
    return ZLKeyedArchiver::archivedData(
        QVariantMap { { u"Chapters"_s, QVariantList { chapter, chapter } }, { u"Duration"_s, -70'000 } });
}

/// Counts every value of a tree as a walk through it would meet it.
quint64 walkedSize(const QVariant& value)
{
    quint64 size = 1;
    if (value.typeId() == QMetaType::QVariantList) {
        for (const QVariant& element : value.toList())
            size += walkedSize(element);
    } else if (value.typeId() == QMetaType::QVariantMap) {
        for (const QVariant& element : value.toMap())
            size += walkedSize(element);
    }
    return size;
}

/// Levels of lists, each with the next one several times.
QByteArray listsOfSharedLists(int levels, int copies)
{
    KeyedArchiveBuilder builder;
    const quint32 arrayClass = builder.addClass("NSArray"_L1);
    quint32 inner = builder.addArray(arrayClass, {});
    for (int level = 1; level < levels; ++level)
        inner = builder.addArray(arrayClass, std::vector<quint32>(std::size_t(copies), inner));
    return builder.finish(inner);
}

/// An archive whose root is one object with a field and a class.
QByteArray archiveOfRecord(
    QLatin1StringView className, QLatin1StringView field, const std::function<Reference(KeyedArchiveBuilder&)>& value)
{
    KeyedArchiveBuilder builder;
    const quint32 recordClass = builder.addClass(className);
    const Reference inner = value(builder);
    return builder.finish(
        builder.add(builder.dictionary({ { field, inner }, { "$class"_L1, builder.uid(recordClass) } })));
}

}

TEST(ZLKeyedUnarchiver, RefusesWhatIsNoArchive)
{
    expectRefusal({}, "not a binary property list"_L1);
    expectRefusal("{\"Chapters\": []}", "not a binary property list"_L1);
    ZLBinaryPropertyListWriter plain;
    expectRefusal(plain.finish(plain.addText(u"text")), "not a keyed archive"_L1);
    KeyedArchiveBuilder noDictionary;
    expectRefusal(noDictionary.finishWith(noDictionary.list.addInteger(1), 100'000), "not a keyed archive"_L1);
    KeyedArchiveBuilder otherVersion;
    expectRefusal(otherVersion.finishWith(otherVersion.dictionary({}), 100'001), "not a keyed archive"_L1);
}

TEST(ZLKeyedUnarchiver, RefusesAnArchiveWithoutRoot)
{
    KeyedArchiveBuilder without;
    expectRefusal(without.finishWith(without.dictionary({}), 100'000), "no root"_L1);
    KeyedArchiveBuilder other;
    expectRefusal(
        other.finishWith(other.dictionary({ { "root"_L1, other.list.addInteger(1) } }), 100'000), "no root"_L1);
}

TEST(ZLKeyedUnarchiver, RefusesPlacesBeyondTheTable)
{
    KeyedArchiveBuilder root;
    expectRefusal(root.finish(1), "damaged"_L1);
    KeyedArchiveBuilder element;
    const quint32 arrayClass = element.addClass("NSArray"_L1);
    expectRefusal(element.finish(element.addArray(arrayClass, { 4'000'000'000U })), "damaged"_L1);
    KeyedArchiveBuilder classPlace;
    expectRefusal(classPlace.finish(classPlace.addArray(77, {})), "damaged"_L1);
}

TEST(ZLKeyedUnarchiver, RefusesElementsThatAreNoPlaces)
{
    expectRefusal(archiveOfRecord("NSArray"_L1, "NS.objects"_L1,
                      [](KeyedArchiveBuilder& builder) {
                          const std::array<Reference, 1> elements { builder.list.addInteger(1) };
                          return builder.list.addArray(elements);
                      }),
        "damaged"_L1);
    // A place that leads to a place, or to a bare collection.
    KeyedArchiveBuilder chain;
    expectRefusal(chain.finish(chain.add(chain.uid(0))), "damaged"_L1);
    KeyedArchiveBuilder bare;
    expectRefusal(bare.finish(bare.add(bare.list.addArray({}))), "damaged"_L1);
}

TEST(ZLKeyedUnarchiver, RefusesRecordsWithoutWhatTheirClassNeeds)
{
    const auto number = [](KeyedArchiveBuilder& builder) { return builder.list.addInteger(1); };
    for (const QLatin1StringView name : { "NSArray"_L1, "NSDictionary"_L1, "NSMutableString"_L1, "NSMutableData"_L1,
             "NSDate"_L1, "NSUUID"_L1, "NSURL"_L1 }) {
        expectRefusal(archiveOfRecord(name, "Other"_L1, number), "damaged"_L1);
        for (const QLatin1StringView field : { "NS.objects"_L1, "NS.string"_L1, "NS.data"_L1, "NS.uuidbytes"_L1 })
            expectRefusal(archiveOfRecord(name, field, number), "damaged"_L1);
    }
    KeyedArchiveBuilder noClass;
    expectRefusal(noClass.finish(noClass.add(noClass.dictionary({}))), "damaged"_L1);
}

TEST(ZLKeyedUnarchiver, RefusesDictionariesThatDoNotMatchUp)
{
    const auto dictionaryOf = [](KeyedArchiveBuilder& builder, std::initializer_list<Reference> keys,
                                  std::initializer_list<Reference> values) {
        const quint32 dictionaryClass = builder.addClass("NSDictionary"_L1);
        return builder.finish(builder.add(builder.dictionary({ { "NS.keys"_L1, builder.list.addArray(keys) },
            { "NS.objects"_L1, builder.list.addArray(values) }, { "$class"_L1, builder.uid(dictionaryClass) } })));
    };
    KeyedArchiveBuilder uneven;
    const Reference text = uneven.uid(uneven.add(uneven.list.addText(u"key")));
    expectRefusal(dictionaryOf(uneven, { text }, { text, text }), "damaged"_L1);
    KeyedArchiveBuilder numbered;
    const Reference number = numbered.uid(numbered.add(numbered.list.addInteger(1)));
    expectRefusal(dictionaryOf(numbered, { number }, { number }), "key that is not text"_L1);
    KeyedArchiveBuilder twice;
    const Reference key = twice.uid(twice.add(twice.list.addText(u"key")));
    const Reference first = twice.uid(twice.add(twice.list.addInteger(1)));
    const Reference second = twice.uid(twice.add(twice.list.addInteger(2)));
    expectValue(dictionaryOf(twice, { key, key }, { first, second }), QVariantMap { { u"key"_s, 2LL } });
}

TEST(ZLKeyedUnarchiver, ReadsByAnyKnownClassOfTheChain)
{
    KeyedArchiveBuilder builder;
    const std::array<Reference, 3> names { builder.list.addText("Mine"_L1), builder.list.addText("NSArray"_L1),
        builder.list.addText("NSObject"_L1) };
    const quint32 mine = builder.addClass("Mine"_L1, builder.list.addArray(names));
    expectValue(builder.finish(builder.addArray(mine, { 0 })), QVariantList { QVariant() });
}

TEST(ZLKeyedUnarchiver, ReadsAnUnknownClassAsNull)
{
    const auto number = [](KeyedArchiveBuilder& builder) { return builder.list.addInteger(1); };
    expectValue(archiveOfRecord("MyThing"_L1, "Field"_L1, number), QVariant());
    expectValue(archiveOfRecord("NSNull"_L1, "Field"_L1, number), QVariant());
}

TEST(ZLKeyedUnarchiver, KeepsDatesAsTheyAreThatNoQDateTimeSays)
{
    for (const double seconds : { std::nan(""), 1e300, -1e13, double(INFINITY), 700'000'000.123'456 }) {
        const QByteArray archive = archiveOfRecord("NSDate"_L1, "NS.time"_L1,
            [seconds](KeyedArchiveBuilder& builder) { return builder.list.addReal(seconds); });
        expectValue(archive, QVariant::fromValue(ZLArchivedDate { seconds }));
        const ZLResult<QVariant> date = ZLKeyedUnarchiver::unarchivedRoot(archive);
        ASSERT_TRUE(date.isOk());
        expectValue(ZLKeyedArchiver::archivedData(date.value()), date.value());
    }
}

TEST(ZLKeyedUnarchiver, RefusesCycles)
{
    KeyedArchiveBuilder itself;
    const quint32 arrayClass = itself.addClass("NSArray"_L1);
    expectRefusal(itself.finish(itself.addArray(arrayClass, { 2 })), "contains itself"_L1);
    KeyedArchiveBuilder mutual;
    mutual.addClass("NSArray"_L1);
    mutual.addArray(1, { 3 });
    expectRefusal(mutual.finish(mutual.addArray(1, { 0, 2 })), "contains itself"_L1);
}

TEST(ZLKeyedUnarchiver, RefusesDeepNesting)
{
    expectRefusal(listsOfSharedLists(ZLKeyedUnarchiver::kDepthLimit + 1, 1), "nested too deeply"_L1);
    expectRefusal(listsOfSharedLists(200'000, 1), "nested too deeply"_L1);
    const auto deepest = ZLKeyedUnarchiver::unarchivedRoot(listsOfSharedLists(ZLKeyedUnarchiver::kDepthLimit, 1));
    ASSERT_TRUE(deepest.isOk());
    EXPECT_EQ(walkedSize(deepest.value()), quint64(ZLKeyedUnarchiver::kDepthLimit));
}

// Each list is met first on a shallow path, and the root then ties them into a chain of their whole number.
TEST(ZLKeyedUnarchiver, RefusesDeepNestingOfWhatIsKnownAlready)
{
    KeyedArchiveBuilder builder;
    const quint32 arrayClass = builder.addClass("NSArray"_L1);
    std::vector<quint32> chain { builder.addArray(arrayClass, {}) };
    for (int level = 0; level < 1000; ++level)
        chain.push_back(builder.addArray(arrayClass, { chain.back() }));
    expectRefusal(builder.finish(builder.addArray(arrayClass, chain)), "nested too deeply"_L1);
}

TEST(ZLKeyedUnarchiver, SharesWhatTheFileShares)
{
    // 2^19 lists to walk, twenty in the file.
    const auto shared = ZLKeyedUnarchiver::unarchivedRoot(listsOfSharedLists(19, 2));
    ASSERT_TRUE(shared.isOk());
    EXPECT_EQ(walkedSize(shared.value()), (1U << 19) - 1U);
}

TEST(ZLKeyedUnarchiver, RefusesWhatUnfoldsIntoTooMuch)
{
    QElapsedTimer timer;
    timer.start();
    expectRefusal(listsOfSharedLists(7, 20), "too much"_L1);
    expectRefusal(listsOfSharedLists(60, 2), "too much"_L1);
    expectRefusal(listsOfSharedLists(60, 1000), "too much"_L1);
    EXPECT_LT(timer.elapsed(), 10'000);
}

TEST(ZLKeyedUnarchiver, CountsSharedTextByItsLength)
{
    KeyedArchiveBuilder builder;
    const quint32 arrayClass = builder.addClass("NSArray"_L1);
    const quint32 text = builder.add(builder.list.addText(QString(1'000'000, u'x')));
    expectRefusal(builder.finish(builder.addArray(arrayClass, std::vector<quint32>(20'000, text))), "too much"_L1);
}

// Many objects of the table begin at the same bytes: the file is small, its text is claimed ten thousand times.
TEST(ZLKeyedUnarchiver, RefusesObjectsThatOverlap)
{
    KeyedArchiveBuilder builder;
    const quint32 arrayClass = builder.addClass("NSArray"_L1);
    const QString text(30'000, u'x');
    builder.add(builder.list.addText(text));
    const Reference first = builder.list.addInteger(2);
    std::vector<quint32> places;
    for (int copy = 0; copy < 10'000; ++copy)
        places.push_back(builder.add(builder.list.addBoolean(true)));
    QByteArray data = builder.finish(builder.addArray(arrayClass, places));
    expectValue(data, QVariantList(10'000, QVariant(true)));

    const qsizetype textAt = data.indexOf(text.toLatin1()) - 4;
    const auto table = qsizetype(qFromBigEndian<quint64>(data.constData() + data.size() - 8));
    const int offsetSize = quint8(data.at(data.size() - 26));
    ASSERT_EQ(offsetSize, 3);
    // The truth values and the places that lead to them follow each other.
    for (qsizetype object = first + 1; object < qsizetype(first) + 1 + 10'000; ++object) {
        char* entry = data.data() + table + object * offsetSize;
        entry[0] = char(textAt >> 16);
        entry[1] = char(textAt >> 8);
        entry[2] = char(textAt);
    }
    expectRefusal(data, "overlap"_L1);
}

TEST(ZLKeyedUnarchiver, RefusesAMillionElementsOfASmallFile)
{
    QByteArray data = ZLKeyedArchiver::archivedData(QVariantList { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15 });
    const qsizetype at = data.indexOf("\xAF\x10\x0F");
    ASSERT_GT(at, 0);
    data.replace(at + 1, 5, QByteArray("\x12\x00\x0F\x42\x40", 5));
    expectRefusal(data, "damaged"_L1);
}

TEST(ZLKeyedUnarchiver, DoesNotSearchEndlessChainsOfClasses)
{
    KeyedArchiveBuilder builder;
    const std::vector<Reference> names(1000, builder.list.addText("Mine"_L1));
    const quint32 mine = builder.addClass("Mine"_L1, builder.list.addArray(names));
    expectValue(builder.finish(builder.addArray(mine, {})), QVariant());
}

TEST(ZLKeyedUnarchiver, RefusesEveryTruncation)
{
    const QByteArray whole = smallArchive();
    ASSERT_TRUE(ZLKeyedUnarchiver::unarchivedRoot(whole).isOk());
    for (qsizetype size = 0; size < whole.size(); ++size) {
        // A copy of exactly that size lets the sanitizers see one byte too many.
        const std::vector<char> part(whole.cbegin(), whole.cbegin() + size);
        EXPECT_FALSE(ZLKeyedUnarchiver::unarchivedRoot(QByteArrayView(part.data(), size)).isOk()) << size;
    }
}

TEST(ZLKeyedUnarchiver, SurvivesEveryChangeOfOneByte)
{
    const QByteArray whole = smallArchive();
    int refused = 0;
    for (qsizetype at = 0; at < whole.size(); ++at) {
        for (int value = 0; value < 256; ++value) {
            QByteArray changed = whole;
            changed[at] = char(value);
            const auto result = ZLKeyedUnarchiver::unarchivedRoot(changed);
            if (result)
                EXPECT_LT(walkedSize(result.value()), 1000U);
            else
                ++refused;
            EXPECT_EQ(result.isOk(), result.error().message.isEmpty());
        }
    }
    EXPECT_GT(refused, 1000);
}
