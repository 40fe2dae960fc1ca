#include "document/editing/ZLTimeEntry.h"

#include "model/ZLChapter.h"
#include "support/ZLTimeZone.h"

#include <QTimeZone>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QDateTime utc(QDate date, QTime time)
{
    return QDateTime(date, time, QTimeZone::utc());
}

const QDateTime referenceDate = utc(QDate(2001, 1, 1), QTime(0, 0));

}

TEST(ZLTimeEntryTest, TimesAreReadAsThePersonMeantThem)
{
    const QList<std::pair<QString, double>> cases {
        { u"01:02:03.004"_s, 3600.0 + 123.0 + double(4.0F / 1000.0F) },
        { u"-00:00:02.500"_s, -2.5 },
        { u"-01:00:00.000"_s, -3600.0 },
        { u"-0:1:0.0"_s, -60.0 },
        { u"00:75:00.0"_s, 4500.0 },
        { u"00:00:90.0"_s, 90.0 },
        { u"100:00:00.000"_s, 360000.0 },
        { u"00:00:01.500"_s, 1.5 },
        { u"0:0:0.0"_s, 0.0 },
    };
    for (const auto& [text, seconds] : cases)
        EXPECT_EQ(ZLTimeEntry::secondsFromText(text), seconds) << qPrintable(text);
}

TEST(ZLTimeEntryTest, DigitsAfterThePointCountMilliseconds)
{
    EXPECT_EQ(ZLTimeEntry::secondsFromText(u"00:00:01.5"_s), 1.0 + double(5.0F / 1000.0F));
    EXPECT_EQ(ZLTimeEntry::secondsFromText(u"00:00:01.1500"_s), 2.5);
}

TEST(ZLTimeEntryTest, UnreadableDigitsCountAsZero)
{
    EXPECT_EQ(ZLTimeEntry::secondsFromText(u"::."_s), 0.0);
    EXPECT_EQ(ZLTimeEntry::secondsFromText(u"a:b:c.d"_s), 0.0);
    EXPECT_EQ(ZLTimeEntry::secondsFromText(u"00:1x:02y.0z"_s), 62.0);
    EXPECT_EQ(ZLTimeEntry::secondsFromText(u" 1: 2: 3.0"_s), 3723.0);
    EXPECT_EQ(ZLTimeEntry::secondsFromText(u"00:-1:10.0"_s), -50.0);
    EXPECT_EQ(ZLTimeEntry::secondsFromText(u"-x:00:05.000"_s), -5.0);
}

TEST(ZLTimeEntryTest, ATextOfAnotherShapeIsNoTime)
{
    for (const QString& text : { u""_s, u"1:2"_s, u"1:2:3"_s, u"1:2:3:4.5"_s, u"1:2:3.4.5"_s, u"12.5"_s, u"1:2.5:3"_s })
        EXPECT_EQ(ZLTimeEntry::secondsFromText(text), std::nullopt) << qPrintable(text);
}

TEST(ZLTimeEntryTest, EndlessDigitsStayFinite)
{
    const auto seconds = ZLTimeEntry::secondsFromText(QString(2000, u'9') + u":00:00."_s + QString(2000, u'9'));
    ASSERT_TRUE(seconds.has_value());
    EXPECT_GT(*seconds, 1e15);
    EXPECT_LT(*seconds, 1e20);
}

TEST(ZLTimeEntryTest, DatesAreShownInTheLocalTimeZone)
{
    const QDateTime moment = utc(QDate(2024, 5, 1), QTime(14, 3, 7, 250));
    {
        const ZLTimeZone zone("UTC");
        EXPECT_EQ(ZLTimeEntry::textFromDate(moment), u"14:03:07.250 2024-05-01"_s);
    }
    {
        const ZLTimeZone zone("Asia/Tokyo");
        EXPECT_EQ(ZLTimeEntry::textFromDate(moment), u"23:03:07.250 2024-05-01"_s);
    }
    const ZLTimeZone zone("Pacific/Kiritimati");
    EXPECT_EQ(ZLTimeEntry::textFromDate(moment), u"04:03:07.250 2024-05-02"_s);
}

TEST(ZLTimeEntryTest, TheDistantPastHasAText)
{
    {
        const ZLTimeZone zone("UTC");
        EXPECT_EQ(ZLTimeEntry::textFromDate(ZLChapter::distantPast()), u"00:00:00.000 001-01-01"_s);
    }
    const ZLTimeZone zone("America/New_York");
    const QString text = ZLTimeEntry::textFromDate(ZLChapter::distantPast());
    EXPECT_TRUE(text.endsWith(u" 001-12-31"_s)) << qPrintable(text);
}

TEST(ZLTimeEntryTest, DaysHaveTheNamesThatTheyHadWhenTheyCame)
{
    const ZLTimeZone zone("UTC");
    const QDateTime lastJulian = utc(QDate(1582, 10, 14), QTime(0, 0));
    const QDateTime firstGregorian = lastJulian.addDays(1);
    const QDateTime julianLeapDay = utc(QDate(1500, 3, 10), QTime(0, 0));
    for (const auto& [moment, text] :
        { std::pair(lastJulian, u"00:00:00.000 1582-10-04"_s), std::pair(firstGregorian, u"00:00:00.000 1582-10-15"_s),
            std::pair(julianLeapDay, u"00:00:00.000 1500-02-29"_s),
            std::pair(ZLChapter::distantPast(), u"00:00:00.000 001-01-01"_s) }) {
        EXPECT_EQ(ZLTimeEntry::textFromDate(moment), text);
        EXPECT_EQ(ZLTimeEntry::dateFromText(text), moment) << qPrintable(text);
    }
    // Days that neither calendar had in its time.
    for (const QString& text : { u"00:00:00.000 1582-10-05"_s, u"00:00:00.000 1582-10-14"_s,
             u"00:00:00.000 1900-02-29"_s, u"00:00:00.000 2023-02-29"_s })
        EXPECT_EQ(ZLTimeEntry::dateFromText(text), referenceDate) << qPrintable(text);
}

TEST(ZLTimeEntryTest, AnAbsentDateHasNoText)
{
    EXPECT_TRUE(ZLTimeEntry::textFromDate(QDateTime()).isEmpty());
}

TEST(ZLTimeEntryTest, TypedDatesAreReadInTheLocalTimeZone)
{
    const ZLTimeZone zone("Asia/Tokyo");
    EXPECT_EQ(ZLTimeEntry::dateFromText(u"23:03:07.250 2024-05-01"_s), utc(QDate(2024, 5, 1), QTime(14, 3, 7, 250)));
    EXPECT_EQ(ZLTimeEntry::dateFromText(u" 3:4:5.5 2024-5-1 "_s), utc(QDate(2024, 4, 30), QTime(18, 4, 5, 500)));
    EXPECT_EQ(ZLTimeEntry::dateFromText(u"00:00:00.000 1987-01-02"_s).toLocalTime().date(), QDate(1987, 1, 2));
}

TEST(ZLTimeEntryTest, ShownDatesAreReadBack)
{
    for (const char* name : { "UTC", "Asia/Tokyo", "America/New_York" }) {
        const ZLTimeZone zone(name);
        const QDateTime moment = utc(QDate(2023, 12, 31), QTime(23, 59, 59, 999));
        EXPECT_EQ(ZLTimeEntry::dateFromText(ZLTimeEntry::textFromDate(moment)), moment) << name;
    }
}

TEST(ZLTimeEntryTest, ATextThatIsNoDateReadsAsTheReferenceDate)
{
    const ZLTimeZone zone("Asia/Tokyo");
    for (const QString& text : { u""_s, u"nonsense"_s, u"14:03:07.250"_s, u"2024-05-01"_s, u"25:03:07.250 2024-05-01"_s,
             u"14:03:07.250 2024-13-01"_s, u"14:03:07 2024-05-01"_s, u"14:03:07.250 2024-05-01 x"_s })
        EXPECT_EQ(ZLTimeEntry::dateFromText(text), referenceDate) << qPrintable(text);
}

TEST(ZLTimeEntryTest, AnHourThatTheClocksSkipIsNoDate)
{
    const ZLTimeZone zone("Europe/Berlin");
    EXPECT_EQ(ZLTimeEntry::dateFromText(u"02:30:00.000 2024-03-31"_s), referenceDate);
}

TEST(ZLTimeEntryTest, AnOffsetThatIsNoNumberMovesNothing)
{
    EXPECT_EQ(ZLTimeEntry::millisecondsFromText(u"-5000"_s), -5000.0F);
    EXPECT_EQ(ZLTimeEntry::millisecondsFromText(u" 1500.5 ms"_s), 1500.5F);
    EXPECT_EQ(ZLTimeEntry::millisecondsFromText(u""_s), 0.0F);
    EXPECT_EQ(ZLTimeEntry::millisecondsFromText(u"half a second"_s), 0.0F);
}
