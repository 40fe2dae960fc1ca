#include "platform/archive/ZLKeyedArchiver.h"

#include "platform/archive/ZLKeyedUnarchiver.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QPoint>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

QVariant archivedAndBack(const QVariant& value)
{
    const ZLResult<QVariant> back = ZLKeyedUnarchiver::unarchivedRoot(ZLKeyedArchiver::archivedData(value));
    EXPECT_TRUE(back.isOk()) << qPrintable(back.error().message);
    return back.isOk() ? back.value() : QVariant(u"no value"_s);
}

void expectRoundTrip(const QVariant& value)
{
    const QVariant back = archivedAndBack(value);
    EXPECT_EQ(back.typeId(), value.typeId());
    EXPECT_EQ(back, value);
    // The same inside collections.
    const QVariantMap nested { { u"list"_s, QVariantList { value, value } }, { u"value"_s, value } };
    EXPECT_EQ(archivedAndBack(nested), QVariant(nested));
}

QDateTime utcDate(int year, int month, int day)
{
    return QDateTime(QDate(year, month, day), QTime(0, 0), QTimeZone::utc());
}

QVariant nestedLists(int levels)
{
    QVariant value = u"core"_s;
    for (int level = 0; level < levels; ++level)
        value = QVariantList { value };
    return value;
}

}

TEST(ZLKeyedArchiver, KeepsIntegersOfEverySize)
{
    for (const qlonglong value :
        { 0LL, 1LL, 127LL, 128LL, 255LL, 256LL, 65'535LL, 65'536LL, 0xFFFF'FFFFLL, 0x1'0000'0000LL,
            std::numeric_limits<qlonglong>::max(), -1LL, -5LL, -129LL, std::numeric_limits<qlonglong>::min() })
        expectRoundTrip(QVariant(value));
    expectRoundTrip(QVariant(qulonglong(1) << 63));
    expectRoundTrip(QVariant(std::numeric_limits<qulonglong>::max()));
    EXPECT_EQ(archivedAndBack(QVariant(int(-7))), QVariant(-7LL));
    EXPECT_EQ(archivedAndBack(QVariant(qulonglong(7))), QVariant(7LL));
}

TEST(ZLKeyedArchiver, KeepsBooleansAndRealsApart)
{
    expectRoundTrip(QVariant(true));
    expectRoundTrip(QVariant(false));
    for (const double value : { 0.0, 0.1, -1.5, 1e300, 4.9e-324, std::numeric_limits<double>::infinity(),
             -std::numeric_limits<double>::infinity() })
        expectRoundTrip(QVariant(value));
    expectRoundTrip(QVariant(0.1F));
    EXPECT_TRUE(std::signbit(archivedAndBack(QVariant(-0.0)).toDouble()));
    EXPECT_TRUE(std::isnan(archivedAndBack(QVariant(std::nan(""))).toDouble()));
}

TEST(ZLKeyedArchiver, KeepsTexts)
{
    const QList<QString> texts { u""_s, u"Intro"_s, u"Grüße"_s, u"日本"_s, u"🎙 live"_s, QString(QChar(0)),
        u"a"_s + QChar(0) + u"b"_s, QString(QChar(0xD83C)), QString(QChar(0xDF99)) + u"x"_s, u"$null"_s,
        QString(14, u'a'), QString(15, u'a'), QString(300, u'ß'), QString(70'000, u'z') };
    for (const QString& text : texts) {
        expectRoundTrip(QVariant(text));
        expectRoundTrip(QVariantMap { { text, 1.0 } });
    }
}

TEST(ZLKeyedArchiver, KeepsData)
{
    for (const QByteArray& data : { QByteArray(""), QByteArray("\0\xFF", 2), QByteArray(70'000, '\x7F') })
        expectRoundTrip(QVariant(data));
}

TEST(ZLKeyedArchiver, KeepsDatesToTheMillisecond)
{
    for (const QDateTime& date : { utcDate(1, 1, 1), utcDate(-1, 12, 30), utcDate(1582, 10, 15), utcDate(2001, 1, 1),
             utcDate(9999, 12, 31), utcDate(2026, 2, 28).addMSecs(86'399'999), utcDate(1, 1, 1).addMSecs(1) }) {
        expectRoundTrip(QVariant(date));
        EXPECT_EQ(archivedAndBack(date).toDateTime().timeSpec(), Qt::UTC);
    }
    const QDateTime elsewhere(QDate(2026, 7, 1), QTime(12, 0), QTimeZone(7200));
    EXPECT_EQ(archivedAndBack(elsewhere).toDateTime(), elsewhere);
}

TEST(ZLKeyedArchiver, WritesDatesThatAreNoneAsNull)
{
    EXPECT_EQ(archivedAndBack(QDateTime()), QVariant());
    const QDateTime farAway = QDateTime::fromMSecsSinceEpoch(std::numeric_limits<qint64>::min(), QTimeZone::utc());
    EXPECT_EQ(archivedAndBack(farAway), QVariant());
    EXPECT_EQ(archivedAndBack(QVariantList { farAway, 1.0 }), QVariant(QVariantList { QVariant(), 1.0 }));
}

TEST(ZLKeyedArchiver, WritesNothingAndTheUnknownAsNull)
{
    EXPECT_EQ(archivedAndBack(QVariant()), QVariant());
    EXPECT_EQ(archivedAndBack(QVariant::fromValue(nullptr)), QVariant());
    EXPECT_EQ(archivedAndBack(QVariant(QPoint(1, 2))), QVariant());
    const QVariantMap map { { u"a"_s, QVariant() }, { u"b"_s, QVariant::fromValue(nullptr) }, { u"c"_s, true } };
    const QVariantMap expected { { u"a"_s, QVariant() }, { u"b"_s, QVariant() }, { u"c"_s, true } };
    EXPECT_EQ(archivedAndBack(map), QVariant(expected));
}

TEST(ZLKeyedArchiver, KeepsEmptyCollections)
{
    expectRoundTrip(QVariantList());
    expectRoundTrip(QVariantMap());
    expectRoundTrip(QVariantMap { { u"Chapters"_s, QVariantList() }, { u"Duration"_s, 0.0 } });
}

TEST(ZLKeyedArchiver, NestsAsDeeplyAsTheUnarchiverReads)
{
    const int limit = ZLKeyedUnarchiver::kDepthLimit;
    EXPECT_EQ(archivedAndBack(nestedLists(limit)), nestedLists(limit));
    // One list more is cut off rather than making the file unreadable.
    QVariant innermost = archivedAndBack(nestedLists(limit + 1));
    for (int level = 0; level < limit; ++level) {
        ASSERT_EQ(innermost.toList().size(), 1);
        innermost = innermost.toList().constFirst();
    }
    EXPECT_EQ(innermost, QVariant());
}

TEST(ZLKeyedArchiver, StoresEqualTextsAndKeysOnce)
{
    QVariantList list;
    for (int index = 0; index < 100; ++index)
        list.append(QVariantMap { { u"key"_s, QString(500, u'x') } });
    const QByteArray data = ZLKeyedArchiver::archivedData(list);
    EXPECT_EQ(data.count(QByteArray(500, 'x')), 1);
    EXPECT_LT(data.size(), 5000);
}

TEST(ZLKeyedArchiver, WritesDictionariesOfBothFormsAlike)
{
    const QVariantMap inner { { u"n"_s, 5 } };
    QVariantList maps;
    for (int index = 0; index < 6; ++index) {
        const QVariantMap first { { u"a"_s, index }, { u"b"_s, inner }, { u"c"_s, u"text"_s } };
        const QVariantMap second { { u"a"_s, u"c"_s }, { u"z"_s, index } };
        maps.append(index % 3 == 0 ? first : second);
    }
    const QByteArray bytes = ZLKeyedArchiver::archivedData(maps);
    const auto read = ZLKeyedUnarchiver::unarchivedRoot(bytes, ZLDictionaryForm::Archived);
    ASSERT_TRUE(read.isOk());
    const QVariantList archived = read.value().toList();
    ASSERT_EQ(archived.size(), maps.size());
    for (const QVariant& each : archived)
        EXPECT_TRUE(ZLArchivedDictionary::in(each));
    EXPECT_EQ(ZLKeyedArchiver::archivedData(archived), bytes);
}

TEST(ZLKeyedArchiver, TheLastOfEqualKeysCounts)
{
    const ZLArchivedDictionary dictionary { { u"a"_s, u"b"_s, u"a"_s }, { 1LL, 2LL, 3LL } };
    EXPECT_EQ(dictionary.value(u"a"_s), QVariant(3LL));
    EXPECT_FALSE(dictionary.value(u"c"_s).isValid());
    const QVariant value = QVariant::fromValue(dictionary);
    EXPECT_EQ(archivedAndBack(value), QVariant(QVariantMap { { u"a"_s, 3LL }, { u"b"_s, 2LL } }));
    const auto back =
        ZLKeyedUnarchiver::unarchivedRoot(ZLKeyedArchiver::archivedData(value), ZLDictionaryForm::Archived);
    ASSERT_TRUE(back.isOk());
    EXPECT_EQ(back.value(), value);
}

TEST(ZLKeyedArchiver, CrossesEveryReferenceAndOffsetSize)
{
    for (const int count : { 10, 60, 100, 300, 20'000, 40'000 }) {
        QVariantList list;
        for (int number = 0; number < count; ++number)
            list.append(number * 0.5);
        EXPECT_EQ(archivedAndBack(list), QVariant(list)) << count;
    }
}

// The bound is generous: it is to catch work that grows with the square of the chapters, on a slow machine too.
TEST(ZLKeyedArchiver, ManyChaptersTakeNoTime)
{
    QVariantList chapters;
    for (int index = 0; index < 100'000; ++index)
        chapters.append(QVariantMap { { u"Title"_s, QString::number(index) }, { u"TimeStamp"_s, index * 0.25 },
            { u"Date"_s, utcDate(2026, 1, 1).addMSecs(index) }, { u"Enabled"_s, index % 2 == 0 } });
    QElapsedTimer timer;
    timer.start();
    const QVariant back = archivedAndBack(chapters);
    EXPECT_LT(timer.elapsed(), 20'000);
    EXPECT_EQ(back, QVariant(chapters));
}
