#include "model/ZLChapter.h"

#include "support/ZLChapterBuilders.h"

#include <QRegularExpression>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;
using ZLTestChapters::chapterAt;

namespace {

QVariantMap completeDictionary()
{
    return {
        { u"TimeStamp"_s, 12.5 },
        { u"Enabled"_s, true },
        { u"Title"_s, u"News"_s },
        { u"Link"_s, u"https://example.org"_s },
        { u"Tags"_s, u"a, b"_s },
        { u"Date"_s, QDateTime(QDate(2024, 5, 1), QTime(14, 3, 7, 250), QTimeZone::utc()) },
        { u"UUID"_s, u"not really a uuid"_s },
    };
}

QStringList keysWithout(const QString& missing)
{
    QVariantMap dictionary = completeDictionary();
    dictionary.remove(missing);
    return ZLChapter(dictionary).dictionaryRepresentation().keys();
}

}

TEST(ZLChapterTest, AFreshChapterIsEnabledAndEmptyAtTheStart)
{
    const ZLChapter chapter;
    EXPECT_EQ(chapter.timeStamp(), 0.0);
    EXPECT_EQ(chapter.timeString(), u"00:00:00.000"_s);
    EXPECT_TRUE(chapter.isEnabled());
    for (const QString& text : { chapter.title(), chapter.link(), chapter.tags() }) {
        EXPECT_TRUE(text.isEmpty());
        EXPECT_FALSE(text.isNull());
    }
    EXPECT_EQ(chapter.realDate(), ZLChapter::distantPast());
    const QDateTime referenceDate(QDate(2001, 1, 1), QTime(0, 0), QTimeZone::utc());
    EXPECT_EQ(chapter.realDate().secsTo(referenceDate), 63'114'076'800);
}

TEST(ZLChapterTest, EveryFreshChapterHasAUUIDOfItsOwnInUpperCase)
{
    static const QRegularExpression form(u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s);
    const ZLChapter first;
    const ZLChapter second;
    EXPECT_TRUE(form.match(first.uuid()).hasMatch()) << qPrintable(first.uuid());
    EXPECT_EQ(first.uuid().size(), 36);
    EXPECT_NE(first.uuid(), second.uuid());
}

TEST(ZLChapterTest, ACompleteDictionaryComesBackUnchanged)
{
    EXPECT_EQ(ZLChapter(completeDictionary()).dictionaryRepresentation(), completeDictionary());
}

TEST(ZLChapterTest, TheArchivedFormSaysWhatTheMapSays)
{
    for (const QString& missing : { u""_s, u"Title"_s, u"Link"_s, u"Tags"_s, u"Date"_s }) {
        QVariantMap dictionary = completeDictionary();
        dictionary.remove(missing);
        const ZLChapter chapter(dictionary);
        const QVariantMap map = chapter.dictionaryRepresentation();
        const ZLArchivedDictionary archived = chapter.archivedRepresentation();
        EXPECT_EQ(archived.keys, map.keys()) << qPrintable(missing);
        EXPECT_EQ(archived.values, map.values()) << qPrintable(missing);
        EXPECT_EQ(ZLChapter(archived).dictionaryRepresentation(), ZLChapter(map).dictionaryRepresentation());
    }
}

TEST(ZLChapterTest, AMissingUUIDIsReplacedByANewOne)
{
    QVariantMap dictionary = completeDictionary();
    dictionary.remove(u"UUID"_s);
    const ZLChapter first(dictionary);
    EXPECT_EQ(first.uuid().size(), 36);
    EXPECT_NE(first.uuid(), ZLChapter(dictionary).uuid());
    EXPECT_EQ(first.dictionaryRepresentation().value(u"UUID"_s).toString(), first.uuid());
}

TEST(ZLChapterTest, AGivenUUIDIsKeptVerbatimEvenWhenItIsEmpty)
{
    QVariantMap dictionary = completeDictionary();
    EXPECT_EQ(ZLChapter(dictionary).uuid(), u"not really a uuid"_s);
    dictionary[u"UUID"_s] = u""_s;
    EXPECT_EQ(ZLChapter(dictionary).uuid(), QString());
    EXPECT_TRUE(ZLChapter(dictionary).dictionaryRepresentation().contains(u"UUID"_s));
}

TEST(ZLChapterTest, WithoutEnabledAChapterReadsAsDisabled)
{
    QVariantMap dictionary = completeDictionary();
    dictionary.remove(u"Enabled"_s);
    EXPECT_FALSE(ZLChapter(dictionary).isEnabled());
}

TEST(ZLChapterTest, AMissingTimeStampReadsAsTheStart)
{
    QVariantMap dictionary = completeDictionary();
    dictionary.remove(u"TimeStamp"_s);
    EXPECT_EQ(ZLChapter(dictionary).timeStamp(), 0.0);
}

TEST(ZLChapterTest, AMissingDateIsAbsentAndNotTheDistantPast)
{
    QVariantMap dictionary = completeDictionary();
    dictionary.remove(u"Date"_s);
    EXPECT_TRUE(ZLChapter(dictionary).realDate().isNull());
}

TEST(ZLChapterTest, AnAbsentValueEndsTheDictionary)
{
    const QStringList numbers { u"Enabled"_s, u"TimeStamp"_s };
    EXPECT_EQ(keysWithout(u"Title"_s), numbers);
    EXPECT_EQ(keysWithout(u"Link"_s), QStringList({ u"Enabled"_s, u"TimeStamp"_s, u"Title"_s }));
    EXPECT_EQ(keysWithout(u"Tags"_s), QStringList({ u"Enabled"_s, u"Link"_s, u"TimeStamp"_s, u"Title"_s }));
    EXPECT_EQ(keysWithout(u"Date"_s), QStringList({ u"Enabled"_s, u"Link"_s, u"Tags"_s, u"TimeStamp"_s, u"Title"_s }));
    EXPECT_TRUE(ZLChapter(QVariantMap { { u"Link"_s, u"x"_s } }).title().isNull());
}

TEST(ZLChapterTest, AnEmptyTextDoesNotEndTheDictionary)
{
    EXPECT_EQ(ZLChapter().dictionaryRepresentation().size(), 7);
}

TEST(ZLChapterTest, ValuesOfAnotherTypeAreReadAsWhatTheySay)
{
    const ZLChapter chapter(QVariantMap {
        { u"TimeStamp"_s, u"12.5 s"_s }, { u"Enabled"_s, u"yes"_s }, { u"Title"_s, 7 }, { u"Date"_s, 3.5 } });
    EXPECT_EQ(chapter.timeStamp(), 12.5);
    EXPECT_TRUE(chapter.isEnabled());
    EXPECT_EQ(chapter.title(), u"7"_s);
    EXPECT_FALSE(chapter.realDate().isValid());
}

TEST(ZLChapterTest, TimeStringsAreTruncatedAndNeverRounded)
{
    const QList<std::pair<double, QString>> cases {
        { 0.0005, u"00:00:00.000"_s },
        { 0.9999, u"00:00:00.999"_s },
        { 1.2345, u"00:00:01.234"_s },
        { 59.9999, u"00:00:59.999"_s },
        { 3725.5, u"01:02:05.500"_s },
        { 86400.0, u"24:00:00.000"_s },
        { 360000.0, u"100:00:00.000"_s },
        { -0.25, u"-00:00:00.250"_s },
        { -1.5, u"-00:00:01.500"_s },
        { -0.0, u"00:00:00.000"_s },
    };
    for (const auto& [seconds, text] : cases)
        EXPECT_EQ(chapterAt(seconds)->timeString(), text) << seconds;
}

TEST(ZLChapterTest, DurationsAreWholeSeconds)
{
    EXPECT_EQ(chapterAt(10.0)->durationToTimestamp(75.9), u"00:01:05"_s);
    EXPECT_EQ(chapterAt(0.0)->durationToTimestamp(3600.0), u"01:00:00"_s);
    EXPECT_EQ(chapterAt(0.0)->durationToTimestamp(0.999), u"00:00:00"_s);
    EXPECT_EQ(chapterAt(10.0)->durationToNextChapter(*chapterAt(75.9)), u"00:01:05"_s);
    EXPECT_EQ(chapterAt(0.0)->durationToTimestamp(360000.0), u"100:00:00"_s);
}

TEST(ZLChapterTest, TimesThatNoIntegerHoldsStillHaveATextThatEndsLikeATime)
{
    static const QRegularExpression timeForm(u"^-?\\d{2,}:[0-5]\\d:[0-5]\\d\\.\\d{3}$"_s);
    static const QRegularExpression durationForm(u"^\\d{2,}:[0-5]\\d:[0-5]\\d$"_s);
    using Limits = std::numeric_limits<double>;
    for (const double seconds : { 1e300, -1e300, 1.9e16, -1.9e16, Limits::infinity(), -Limits::infinity(),
             Limits::quiet_NaN(), Limits::max(), Limits::lowest(), Limits::denorm_min() }) {
        const auto chapter = chapterAt(seconds);
        EXPECT_TRUE(timeForm.match(chapter->timeString()).hasMatch()) << seconds;
        EXPECT_TRUE(durationForm.match(chapter->durationToTimestamp(0.0)).hasMatch()) << seconds;
        EXPECT_TRUE(durationForm.match(chapterAt(0.0)->durationToTimestamp(seconds)).hasMatch()) << seconds;
    }
}

TEST(ZLChapterTest, ADateThatNoQDateTimeSaysIsKeptAsItIs)
{
    for (const double seconds : { 700'000'000.123'456, 2e12, -2e12, std::numeric_limits<double>::infinity() }) {
        QVariantMap dictionary = completeDictionary();
        dictionary.insert(ZLChapterKey::Date, QVariant::fromValue(ZLArchivedDate { seconds }));
        ZLChapter chapter(dictionary);
        chapter.setTitle(u"Edited"_s);
        dictionary.insert(ZLChapterKey::Title, u"Edited"_s);
        EXPECT_EQ(chapter.dictionaryRepresentation(), dictionary) << seconds;
        EXPECT_TRUE(chapter.realDate().isValid()) << seconds;
    }
}

TEST(ZLChapterTest, ADateThatIsMovedKeepsItsMicroseconds)
{
    QVariantMap dictionary = completeDictionary();
    dictionary.insert(ZLChapterKey::Date, QVariant::fromValue(ZLArchivedDate { 700'000'000.123'456 }));
    ZLChapter chapter(dictionary);
    const QDateTime before = chapter.realDate();
    chapter.moveDate(1.5);
    EXPECT_EQ(before.msecsTo(chapter.realDate()), 1500);
    ASSERT_TRUE(chapter.dateAsRead());
    EXPECT_NEAR(chapter.dateAsRead()->referenceSeconds, 700'000'001.623'456, 1e-6);
    chapter.setRealDate(before);
    EXPECT_FALSE(chapter.dateAsRead()) << "a new date takes its place";
    EXPECT_EQ(chapter.dictionaryRepresentation().value(ZLChapterKey::Date), QVariant(before));
}
