#include "document/ZLChapterDocument.h"
#include "platform/archive/ZLKeyedArchiver.h"

#include <QTimeZone>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

class ZLHostileDocumentTest : public testing::Test {
protected:
    static QVariantMap chapter(const QVariant& time, const QVariant& title = u"x"_s)
    {
        return { { ZLChapterKey::TimeStamp, time }, { ZLChapterKey::Title, title }, { ZLChapterKey::Link, u""_s },
            { ZLChapterKey::Tags, u""_s },
            { ZLChapterKey::Date, QDateTime::fromMSecsSinceEpoch(0, QTimeZone::utc()) } };
    }

    void read(const QVariantList& chapters, const QVariant& duration = 0.0)
    {
        ASSERT_TRUE(document.readFromData(
            ZLKeyedArchiver::archivedData(QVariantMap { { u"Chapters"_s, chapters }, { u"Duration"_s, duration } })));
    }

    /// Everything that a window would show, and what the file would hold.
    void useEverything()
    {
        (void)document.clockText();
        (void)document.lastChapterAgeText();
        for (int row = 0; row < document.tableModel().rowCount(); ++row) {
            for (int column = 0; column < document.tableModel().columnCount(); ++column)
                (void)document.tableModel().index(row, column).data();
        }
        ZLChapterDocument again({});
        EXPECT_TRUE(again.readFromData(document.dataOfType()));
        EXPECT_EQ(again.chapterManager().count(), document.chapterManager().count());
    }

    ZLChapterDocument document { {} };
};

TEST_F(ZLHostileDocumentTest, TimesThatAreNoTimesAreReadShownMovedAndWritten)
{
    using Limits = std::numeric_limits<double>;
    const QList<double> times { Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::max(),
        Limits::lowest(), Limits::denorm_min(), 1e300, -1e300, 9.3e18, -0.0 };
    QVariantList chapters;
    for (const double time : times)
        chapters.append(chapter(time));
    for (const double duration : times) {
        read(chapters, duration);
        useEverything();
    }
    document.moveChaptersByMilliseconds(-1000.0F);
    document.updateChapterToTime(document.chapterManager().chapterAtIndex(0), Limits::infinity());
    document.updateChapterToTime(document.chapterManager().chapterAtIndex(0), 5.0);
    document.startRecordingWithTime(1.0);
    document.addNewBlankChapter();
    useEverything();
    while (document.undoManager().canUndo())
        document.undoManager().undo();
    useEverything();
}

TEST_F(ZLHostileDocumentTest, TextsThatAreNoTextsAreReadAndWrittenUnchanged)
{
    const QString withNull = u"a\0b"_s;
    const QString loneSurrogates = QString(QChar(0xD800)) + u'x' + QChar(0xDC00);
    read({ chapter(0.0, withNull), chapter(1.0, loneSurrogates), chapter(2.0, u"\u202E\uFFFE\uFEFF"_s) });
    ASSERT_EQ(withNull.size(), 3);
    EXPECT_EQ(document.chapterManager().chapterAtIndex(0)->title(), withNull);
    EXPECT_EQ(document.chapterManager().chapterAtIndex(1)->title(), loneSurrogates);
    ZLChapterDocument again({});
    ASSERT_TRUE(again.readFromData(document.dataOfType()));
    EXPECT_EQ(again.chapterManager().chapterAtIndex(0)->title(), withNull);
    EXPECT_EQ(again.chapterManager().chapterAtIndex(1)->title(), loneSurrogates);
}

TEST_F(ZLHostileDocumentTest, ATitleOfTenMegabytesIsKept)
{
    const QString title(10'000'000, u'x');
    read({ chapter(0.0, title) });
    EXPECT_EQ(document.chapterManager().chapterAtIndex(0)->title(), title);
    useEverything();
}

TEST_F(ZLHostileDocumentTest, AHundredThousandChaptersOpenAndTakeAMark)
{
    QVariantList chapters;
    for (int index = 100'000; index > 0; --index)
        chapters.append(chapter(index * 0.5));
    read(chapters);
    EXPECT_EQ(document.chapterManager().count(), 100'000);
    EXPECT_EQ(document.chapterManager().chapterAtIndex(0)->timeStamp(), 0.5);
    document.startRecordingWithTime(1.0);
    document.addNewBlankChapter();
    EXPECT_EQ(document.chapterManager().count(), 100'001);
}

TEST_F(ZLHostileDocumentTest, ValuesOfOtherKindsNeverHurt)
{
    const QVariantList anything { QVariant(), u"text"_s, 7, QByteArray("data"), QVariantList { 1 }, QVariantMap {},
        true };
    for (const QVariant& value : anything) {
        read({ value, chapter(value, value) }, value);
        useEverything();
    }
}
