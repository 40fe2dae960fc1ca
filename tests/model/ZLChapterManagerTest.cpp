#include "model/ZLChapterManager.h"

#include "support/ZLChapterBuilders.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <future>
#include <limits>
#include <memory>
#include <random>
#include <thread>

using namespace Qt::StringLiterals;
using ZLTestChapters::chapterAt;
using ZLTestChapters::times;
using ZLTestChapters::titles;

class ZLChapterManagerTest : public testing::Test {
protected:
    void add(std::initializer_list<double> seconds)
    {
        for (const double time : seconds)
            m_list.addChapter(chapterAt(time));
    }

    /// How often the outside was told during `operation`.
    template <typename Operation>
    qsizetype announcementsOf(Operation operation)
    {
        const QSignalSpy spy(&m_list, &ZLChapterManager::chaptersDidChange);
        operation();
        return spy.size();
    }

    ZLChapterManager m_list;
};

TEST_F(ZLChapterManagerTest, AddedChaptersStandInTimeOrder)
{
    add({ 30.0, 10.0, 20.0 });
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 10.0, 20.0, 30.0 }));
}

TEST_F(ZLChapterManagerTest, WithoutSortingTheOrderIsTheUsersOwn)
{
    m_list.setWantsSortedChapters(false);
    add({ 30.0, 10.0, 20.0 });
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 30.0, 10.0, 20.0 }));
    const auto second = m_list.chapterAtIndex(1);
    EXPECT_EQ(m_list.indexOfChapter(second), 1);
    second->setTimeStamp(99.0);
    EXPECT_EQ(m_list.indexOfChapter(second), 1);
}

TEST_F(ZLChapterManagerTest, SwitchingSortingOnRestoresTheOrderAtTheNextRead)
{
    m_list.setWantsSortedChapters(false);
    add({ 30.0, 10.0 });
    m_list.setWantsSortedChapters(true);
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 10.0, 30.0 }));
}

TEST_F(ZLChapterManagerTest, AnIndexOutsideOfTheListHoldsNoChapter)
{
    EXPECT_EQ(m_list.chapterAtIndex(0), nullptr);
    EXPECT_EQ(m_list.chapterAtIndex(-1), nullptr);
    EXPECT_EQ(m_list.lastChapter(), nullptr);
    add({ 1.0, 2.0 });
    EXPECT_EQ(m_list.chapterAtIndex(-1), nullptr);
    EXPECT_EQ(m_list.chapterAtIndex(2), nullptr);
    EXPECT_EQ(m_list.lastChapter()->timeStamp(), 2.0);
}

TEST_F(ZLChapterManagerTest, AnInsertedChapterEndsWhereItsTimeBelongs)
{
    add({ 10.0, 30.0 });
    m_list.insertChapterAtIndex(chapterAt(20.0), 0);
    m_list.insertChapterAtIndex(chapterAt(5.0), 3);
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 5.0, 10.0, 20.0, 30.0 }));
}

TEST_F(ZLChapterManagerTest, AmongEqualTimesTheInsertionIndexDecides)
{
    m_list.addChapter(chapterAt(10.0, u"first"_s));
    m_list.addChapter(chapterAt(10.0, u"last"_s));
    m_list.insertChapterAtIndex(chapterAt(10.0, u"middle"_s), 1);
    EXPECT_EQ(titles(m_list.allChapters()), QStringList({ u"first"_s, u"middle"_s, u"last"_s }));
}

TEST_F(ZLChapterManagerTest, ChaptersOfEqualTimeKeepTheOrderInWhichTheyCame)
{
    for (const QString& title : { u"a"_s, u"b"_s, u"c"_s })
        m_list.addChapter(chapterAt(10.0, title));
    const auto last = m_list.lastChapter();
    last->setTimeStamp(1.0);
    EXPECT_EQ(titles(m_list.allChapters()), QStringList({ u"c"_s, u"a"_s, u"b"_s }));
    for (const auto& chapter : m_list.allChapters())
        chapter->setTimeStamp(50.0);
    EXPECT_EQ(titles(m_list.allChapters()), QStringList({ u"c"_s, u"a"_s, u"b"_s }));
}

TEST_F(ZLChapterManagerTest, IndexesOutsideOfTheListAreRefusedAndNotAnnounced)
{
    add({ 10.0 });
    EXPECT_EQ(announcementsOf([this] {
        m_list.insertChapterAtIndex(chapterAt(1.0), -1);
        m_list.insertChapterAtIndex(chapterAt(1.0), 2);
        m_list.removeChapterAtIndex(-1);
        m_list.removeChapterAtIndex(1);
    }),
        0);
    EXPECT_EQ(m_list.count(), 1);
}

TEST_F(ZLChapterManagerTest, RemovingTheLastChapterOfAnEmptyListIsRefused)
{
    EXPECT_EQ(announcementsOf([this] { m_list.removeLastChapter(); }), 0);
    add({ 30.0, 10.0 });
    m_list.removeLastChapter();
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 10.0 }));
}

TEST_F(ZLChapterManagerTest, RemovalGoesByIdentity)
{
    const auto first = chapterAt(10.0);
    const auto twin = std::make_shared<ZLChapter>(first->dictionaryRepresentation());
    m_list.addChapter(first);
    m_list.addChapter(twin);
    m_list.removeChapter(twin);
    EXPECT_EQ(m_list.allChapters(), ZLChapterSequence({ first }));
    m_list.removeChapter(twin);
    EXPECT_EQ(m_list.count(), 1);
}

TEST_F(ZLChapterManagerTest, RemovalTakesEveryEntryOfTheSameChapter)
{
    const auto twice = chapterAt(10.0);
    m_list.addChapter(twice);
    add({ 5.0 });
    m_list.addChapter(twice);
    // The pointer lies in the list itself, which must not disturb the removal.
    m_list.removeChapter(m_list.chapters().at(1));
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 5.0 }));
}

TEST_F(ZLChapterManagerTest, EveryChangeThroughTheListIsAnnouncedOnce)
{
    EXPECT_EQ(announcementsOf([this] { m_list.addChapter(chapterAt(2.0)); }), 1);
    EXPECT_EQ(announcementsOf([this] { m_list.insertChapterAtIndex(chapterAt(1.0), 0); }), 1);
    EXPECT_EQ(announcementsOf([this] { m_list.removeChapterAtIndex(0); }), 1);
    EXPECT_EQ(announcementsOf([this] { m_list.removeChapter(chapterAt(7.0)); }), 1);
    EXPECT_EQ(announcementsOf([this] { m_list.removeLastChapter(); }), 1);
}

TEST_F(ZLChapterManagerTest, ReadingLoadingAndEditingAChapterAreNotAnnounced)
{
    add({ 2.0, 1.0 });
    EXPECT_EQ(announcementsOf([this] {
        m_list.lastChapter()->setTimeStamp(0.5);
        m_list.lastChapter()->setTitle(u"x"_s);
        m_list.sortChapters();
        const auto saved = m_list.chaptersForSaving();
        m_list.loadChapters(saved);
        m_list.setChapters({ chapterAt(3.0) });
    }),
        0);
}

TEST_F(ZLChapterManagerTest, AChapterThatIsNotInTheListHasNoIndex)
{
    add({ 10.0 });
    EXPECT_EQ(m_list.indexOfChapter(chapterAt(10.0)), std::nullopt);
    EXPECT_EQ(m_list.indexOfChapter(nullptr), std::nullopt);
}

TEST_F(ZLChapterManagerTest, AChangedTimeTakesEffectAtTheNextOrderedRead)
{
    add({ 10.0, 20.0 });
    const auto first = m_list.chapterAtIndex(0);
    first->setTimeStamp(30.0);
    EXPECT_EQ(m_list.chapters().first(), first);
    EXPECT_EQ(m_list.lastChapter(), first);
    first->setTimeStamp(5.0);
    EXPECT_EQ(m_list.indexOfChapter(first), 0);
    first->setTimeStamp(40.0);
    EXPECT_EQ(m_list.chapterAtIndex(1), first);
    first->setTimeStamp(1.0);
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 1.0, 20.0 }));
}

TEST_F(ZLChapterManagerTest, AChapterOfTwoListsIsSortedInBoth)
{
    ZLChapterManager other;
    add({ 10.0 });
    const auto shared = chapterAt(20.0);
    m_list.addChapter(shared);
    other.addChapter(shared);
    other.addChapter(chapterAt(15.0));
    shared->setTimeStamp(1.0);
    EXPECT_EQ(other.chapterAtIndex(0), shared);
    EXPECT_EQ(m_list.chapterAtIndex(0), shared);
}

TEST_F(ZLChapterManagerTest, AChangeIsCountedByTheListsInWhichTheChapterStands)
{
    ZLChapterManager other;
    add({ 10.0 });
    other.addChapter(chapterAt(15.0));
    const auto chapter = m_list.chapterAtIndex(0);
    const quint64 before = m_list.changeCount();
    const quint64 otherBefore = other.changeCount();
    chapter->setTitle(u"x"_s);
    EXPECT_GT(m_list.changeCount(), before);
    EXPECT_EQ(other.changeCount(), otherBefore);
    other.addChapter(chapter);
    m_list.removeChapter(chapter);
    const quint64 afterRemoval = m_list.changeCount();
    chapter->setTimeStamp(1.0);
    EXPECT_EQ(m_list.changeCount(), afterRemoval);
    EXPECT_GT(other.changeCount(), otherBefore);
}

TEST_F(ZLChapterManagerTest, AChapterOutlivesTheListThatItStoodIn)
{
    const auto chapter = chapterAt(10.0);
    {
        ZLChapterManager other;
        other.addChapter(chapter);
        other.addChapter(chapter);
    }
    chapter->setTimeStamp(20.0);
    m_list.addChapter(chapter);
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 20.0 }));
}

TEST_F(ZLChapterManagerTest, OneChangedTimeMovesOneChapterAndSeveralReorderTheList)
{
    add({ 10.0, 20.0, 30.0, 40.0 });
    QSignalSpy moves(&m_list, &ZLChapterManager::didMoveChapter);
    const QSignalSpy reorders(&m_list, &ZLChapterManager::didReorderChapters);
    const auto chapter = m_list.chapterAtIndex(0);
    chapter->setTimeStamp(50.0);
    chapter->setTimeStamp(35.0);
    EXPECT_EQ(m_list.indexOfChapter(chapter), 2);
    ASSERT_EQ(moves.size(), 1);
    EXPECT_EQ(moves.first(), QVariantList({ QVariant::fromValue(qsizetype(0)), QVariant::fromValue(qsizetype(2)) }));
    EXPECT_EQ(reorders.size(), 0);
    chapter->setTimeStamp(99.0);
    m_list.chapters().first()->setTimeStamp(98.0);
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 30.0, 40.0, 98.0, 99.0 }));
    EXPECT_EQ(moves.size(), 1);
    EXPECT_EQ(reorders.size(), 1);
}

TEST_F(ZLChapterManagerTest, AChapterThatLeavesWhileItsPlaceIsDoubtfulLeavesTheOthersInOrder)
{
    add({ 10.0, 20.0, 30.0 });
    const auto chapter = m_list.chapterAtIndex(0);
    chapter->setTimeStamp(25.0);
    m_list.removeChapter(chapter);
    m_list.chapters().first()->setTimeStamp(40.0);
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 30.0, 40.0 }));
}

TEST_F(ZLChapterManagerTest, AChapterThatStandsTwiceIsSortedTwice)
{
    const auto twice = chapterAt(10.0);
    m_list.addChapter(twice);
    m_list.addChapter(twice);
    add({ 20.0 });
    twice->setTimeStamp(30.0);
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 20.0, 30.0, 30.0 }));
}

TEST_F(ZLChapterManagerTest, ChangedTimesEndWhereAStableSortWouldPutThem)
{
    std::mt19937 random(5);
    const auto anyTime = [&random] { return random() % 30 == 0 ? std::nan("") : double(random() % 8); };
    for (int number = 0; number < 30; ++number)
        m_list.addChapter(chapterAt(anyTime()));
    for (int step = 0; step < 3000; ++step) {
        ZLChapterSequence expected = m_list.allChapters();
        const int changes = random() % 4 == 0 ? 2 : 1;
        for (int change = 0; change < changes; ++change)
            expected.at(qsizetype(random() % 30))->setTimeStamp(anyTime());
        std::stable_sort(expected.begin(), expected.end(), ZLChapterOrder::comesBefore);
        ASSERT_EQ(m_list.allChapters(), expected) << "after step " << step;
    }
}

TEST_F(ZLChapterManagerTest, UUIDsAreFoundExactlyAndFirstInTheCurrentOrder)
{
    const auto later = chapterAt(20.0, u"later"_s);
    const auto earlier = chapterAt(10.0, u"earlier"_s);
    for (const auto& chapter : { later, earlier }) {
        chapter->setUuid(u"Same"_s);
        m_list.addChapter(chapter);
    }
    EXPECT_EQ(m_list.chapterWithUUID(u"Same"_s), earlier);
    // No read has restored the order yet.
    earlier->setTimeStamp(30.0);
    EXPECT_EQ(m_list.chapterWithUUID(u"Same"_s), earlier);
    EXPECT_EQ(m_list.chapterWithUUID(u"same"_s), nullptr);
    EXPECT_EQ(m_list.chapterWithUUID(u"unknown"_s), nullptr);
}

TEST_F(ZLChapterManagerTest, AnEmptyListIsSavedAsAnEmptyList)
{
    EXPECT_TRUE(m_list.chaptersForSaving().isEmpty());
}

TEST_F(ZLChapterManagerTest, SavingSortsFirst)
{
    add({ 10.0, 20.0 });
    m_list.chapterAtIndex(0)->setTimeStamp(30.0);
    const QVariantList saved = m_list.chaptersForSaving();
    ASSERT_EQ(saved.size(), 2);
    EXPECT_EQ(saved.at(0).toMap().value(u"TimeStamp"_s).toDouble(), 20.0);
    EXPECT_EQ(saved.at(1).toMap().value(u"TimeStamp"_s).toDouble(), 30.0);
}

TEST_F(ZLChapterManagerTest, SavedChaptersAreReadInTimeOrderOrInTheirOwn)
{
    const QVariantList saved { chapterAt(30.0)->dictionaryRepresentation(), chapterAt(10.0)->dictionaryRepresentation(),
        u"no dictionary"_s };
    EXPECT_EQ(times(ZLChapterManager(saved).allChapters()), QList<double>({ 0.0, 10.0, 30.0 }));
    m_list.setWantsSortedChapters(false);
    m_list.loadChapters(saved);
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 30.0, 10.0, 0.0 }));
    EXPECT_TRUE(m_list.lastChapter()->title().isNull());
}

TEST_F(ZLChapterManagerTest, AReplacedSequenceStandsAsItIsUntilTheNextRead)
{
    m_list.setChapters({ chapterAt(2.0), chapterAt(1.0) });
    EXPECT_EQ(times(m_list.chapters()), QList<double>({ 2.0, 1.0 }));
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 1.0, 2.0 }));
}

TEST_F(ZLChapterManagerTest, ManyChaptersComeInBehindThoseOfTheirTimeAndGoAgain)
{
    add({ 10.0, 20.0, 30.0, 40.0 });
    const ZLChapterSequence before = m_list.allChapters();
    const ZLChapterSequence added { chapterAt(30.0, u"b"_s), chapterAt(15.0, u"a"_s), chapterAt(30.0, u"c"_s) };
    const QSignalSpy replaced(&m_list, &ZLChapterManager::didReplaceChapters);
    EXPECT_EQ(announcementsOf([&] { m_list.exchangeChapters({}, added); }), 0);
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 10.0, 15.0, 20.0, 30.0, 30.0, 30.0, 40.0 }));
    EXPECT_EQ(titles(m_list.allChapters().sliced(3, 3)).sliced(1), (QStringList { u"b"_s, u"c"_s }));
    EXPECT_EQ(replaced.last(), (QVariantList { qsizetype(1), qsizetype(1) }));
    added.first()->setTimeStamp(5.0);
    EXPECT_EQ(m_list.indexOfChapter(added.first()), 0) << "the list hears of its changes";
    EXPECT_EQ(announcementsOf([&] { m_list.exchangeChapters(added, {}); }), 0);
    EXPECT_EQ(m_list.allChapters(), before);
    EXPECT_EQ(replaced.last(), (QVariantList { qsizetype(0), qsizetype(1) }));
    const quint64 changes = m_list.changeCount();
    added.first()->setTitle(u"x"_s);
    EXPECT_EQ(m_list.changeCount(), changes);
}

TEST_F(ZLChapterManagerTest, ChaptersComeInAtTheEndOfAListInItsUsersOrder)
{
    m_list.setWantsSortedChapters(false);
    add({ 30.0, 10.0 });
    m_list.exchangeChapters({}, { chapterAt(20.0), chapterAt(5.0) });
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 30.0, 10.0, 20.0, 5.0 }));
}

TEST_F(ZLChapterManagerTest, MovedTimesLeaveTheChaptersWhereTheyStand)
{
    add({ 10.0, 20.0, 20.0 });
    const ZLChapterSequence before = m_list.allChapters();
    const QSignalSpy reordered(&m_list, &ZLChapterManager::didReorderChapters);
    const quint64 changes = m_list.changeCount();
    m_list.moveTimes(-15.0);
    EXPECT_EQ(m_list.allChapters(), before);
    EXPECT_EQ(times(before), QList<double>({ -5.0, 5.0, 5.0 }));
    EXPECT_GT(m_list.changeCount(), changes);
    EXPECT_EQ(reordered.size(), 0);
    m_list.insertChapterAtIndex(before.first(), 1);
    m_list.moveTimes(15.0);
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 20.0, 20.0, 25.0, 25.0 })) << "one that stands twice";
}

TEST_F(ZLChapterManagerTest, AChapterThatStaysInAReplacedListIsStillHeardAndOneThatLeavesNoMore)
{
    add({ 10.0, 20.0, 30.0, 40.0 });
    const ZLChapterSequence before = m_list.allChapters();
    ZLChapterSequence after = before;
    after[1] = chapterAt(25.0);
    const QSignalSpy replaced(&m_list, &ZLChapterManager::didReplaceChapters);
    m_list.setChapters(after);
    EXPECT_EQ(replaced.last(), (QVariantList { qsizetype(1), qsizetype(2) }));
    for (const ZLChapterPointer& chapter : std::as_const(after)) {
        const quint64 changes = m_list.changeCount();
        chapter->setTitle(u"x"_s);
        EXPECT_EQ(m_list.changeCount(), changes + 1);
    }
    const quint64 changes = m_list.changeCount();
    before.at(1)->setTitle(u"x"_s);
    EXPECT_EQ(m_list.changeCount(), changes);
    after.swapItemsAt(2, 3);
    m_list.setChapters(after);
    EXPECT_EQ(times(m_list.allChapters()), QList<double>({ 10.0, 25.0, 30.0, 40.0 }));
    EXPECT_EQ(replaced.last(), (QVariantList { qsizetype(2), qsizetype(0) }));
}

TEST_F(ZLChapterManagerTest, TheChaptersOfALongListAreFreedOnAnotherThread)
{
    std::promise<std::thread::id> freedOn;
    auto list = std::make_unique<ZLChapterManager>();
    ZLChapterSequence chapters;
    for (int number = 0; number < 2000; ++number)
        chapters.append(chapterAt(number));
    const auto remove = [&freedOn](const ZLChapter* chapter) {
        freedOn.set_value(std::this_thread::get_id());
        delete chapter;
    };
    chapters.append(ZLChapterPointer(new ZLChapter, remove));
    list->setChapters(chapters);
    chapters = {};
    list.reset();
    EXPECT_NE(freedOn.get_future().get(), std::this_thread::get_id());
}

TEST_F(ZLChapterManagerTest, SnapshotsShareTheListsStorage)
{
    add({ 1.0, 2.0, 3.0 });
    const ZLChapterSequence first = m_list.allChapters();
    const ZLChapterSequence second = m_list.allChapters();
    EXPECT_EQ(first.constData(), second.constData());
    EXPECT_EQ(first.constData(), m_list.chapters().constData());
}

TEST_F(ZLChapterManagerTest, ASnapshotDoesNotChangeWithTheList)
{
    add({ 1.0, 2.0 });
    const ZLChapterSequence snapshot = m_list.allChapters();
    m_list.removeLastChapter();
    EXPECT_EQ(snapshot.size(), 2);
}

TEST_F(ZLChapterManagerTest, OrderedReadsOfAnOrderedListMoveNothing)
{
    add({ 3.0, 1.0, 2.0 });
    const QSignalSpy reorders(&m_list, &ZLChapterManager::willReorderChapters);
    const auto* const storage = m_list.chapters().constData();
    for (qsizetype index = 0; index < m_list.count(); ++index)
        EXPECT_EQ(m_list.indexOfChapter(m_list.chapterAtIndex(index)), index);
    // A time that breaks no order moves nothing either.
    m_list.chapterAtIndex(1)->setTimeStamp(2.5);
    EXPECT_EQ(m_list.lastChapter()->timeStamp(), 3.0);
    EXPECT_EQ(reorders.size(), 0);
    EXPECT_EQ(m_list.chapters().constData(), storage);
}

TEST_F(ZLChapterManagerTest, ATimeThatIsNoNumberComesLastAndBreaksNothing)
{
    add({ std::nan(""), 3.0, std::nan(""), 1.0, std::numeric_limits<double>::infinity(), 2.0 });
    const auto ordered = times(m_list.allChapters());
    EXPECT_EQ(ordered.first(3), QList<double>({ 1.0, 2.0, 3.0 }));
    EXPECT_TRUE(std::isinf(ordered.at(3)));
    EXPECT_TRUE(std::isnan(ordered.at(4)));
    EXPECT_TRUE(std::isnan(ordered.at(5)));
    for (qsizetype index = 0; index < m_list.count(); ++index)
        EXPECT_EQ(m_list.indexOfChapter(m_list.chapterAtIndex(index)), index);
    m_list.chapterAtIndex(0)->setTimeStamp(std::nan(""));
    m_list.removeChapter(m_list.lastChapter());
    EXPECT_EQ(m_list.count(), 5);
    EXPECT_EQ(m_list.chapterAtIndex(0)->timeStamp(), 2.0);
}

TEST_F(ZLChapterManagerTest, AnyMixtureOfOperationsKeepsTheOrder)
{
    std::mt19937 random(7);
    const auto below = [&random](qsizetype bound) { return qsizetype(random() % quint32(bound)); };
    for (int step = 0; step < 2000; ++step) {
        const qsizetype count = m_list.count();
        switch (count == 0 ? 0 : below(5)) {
        case 0:
            m_list.addChapter(chapterAt(double(below(20))));
            break;
        case 1:
            m_list.insertChapterAtIndex(chapterAt(double(below(20))), below(count + 1));
            break;
        case 2:
            m_list.removeChapterAtIndex(below(count));
            break;
        default:
            m_list.chapterAtIndex(below(count))->setTimeStamp(double(below(20)) - 5.0);
            break;
        }
        const auto ordered = times(m_list.allChapters());
        ASSERT_TRUE(std::is_sorted(ordered.cbegin(), ordered.cend())) << "after step " << step;
    }
}
