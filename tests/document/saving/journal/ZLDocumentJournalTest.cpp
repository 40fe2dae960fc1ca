#include "document/ZLChapterImport.h"
#include "document/saving/SavingFixture.h"
#include "support/ZLRuntimeFolderInMemory.h"

#include <QDeadlineTimer>
#include <QScopeGuard>

#include <atomic>
#include <semaphore>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

class ZLDocumentJournalTest : public SavingFixture {
protected:
    mode_t modeOf(const QString& path) const
    {
        struct stat status {};
        EXPECT_EQ(stat(QFile::encodeName(path).constData(), &status), 0) << qPrintable(path);
        return status.st_mode & 07777;
    }

    /// To be called before a saver is made. The next record hangs until `disk` is released.
    void hangAtNextRecord(std::chrono::milliseconds longestHandOver)
    {
        isHanging = true;
        machinery.journalDisk.longestHandOver = longestHandOver;
        machinery.journalDisk.write = [this](int descriptor, const void* bytes, size_t count) {
            if (isHanging.exchange(false))
                disk.acquire();
            return ::write(descriptor, bytes, count);
        };
    }

    /// A document whose first chapter is in the journal. The next record hangs until `disk` is released.
    std::unique_ptr<ZLDocumentSaver> saverWithJournalThatHangs(std::chrono::milliseconds longestHandOver)
    {
        hangAtNextRecord(longestHandOver);
        isHanging = false;
        auto saver = titledSaver(filePath("show.zelta"));
        addChapter("One");
        EXPECT_TRUE(saver->saveNow()) << "which ends when the journal has everything";
        isHanging = true;
        return saver;
    }

    QString journalPath() const { return recoveryFolder.journaledFiles().value(0) + ZLRecoveryFile::JournalSuffix; }

    std::binary_semaphore disk { 0 };
    std::atomic<bool> isHanging = false;
};

TEST_F(ZLDocumentJournalTest, EveryChangeIsInTheJournalWhenItsCommandReturns)
{
    // No automatic save is carried out here: the journal alone counts.
    const auto saver = titledSaver(filePath("show.zelta"));
    addChapter("One");
    EXPECT_EQ(journaledTitles(), QStringList { u"One"_s });
    addChapter("Two");
    document.updateChapterToTitle(document.chapterManager().chapterAtIndex(0), u"First"_s);
    EXPECT_EQ(journaledTitles(), (QStringList { u"First"_s, u"Two"_s }));
    document.undoManager().undo();
    EXPECT_EQ(journaledTitles(), (QStringList { u"One"_s, u"Two"_s }));
    document.removeChapter(document.chapterManager().chapterAtIndex(0));
    EXPECT_EQ(journaledTitles(), QStringList { u"Two"_s });
    document.moveChaptersByMilliseconds(500.0F);
    EXPECT_EQ(journaled().contents.chapters.at(0).toMap().value(ZLChapterKey::TimeStamp).toDouble(), 2.5);
    document.templateViewController().addChapterButtonPressed();
    EXPECT_EQ(journaled().contents.templates.size(), 1);
    EXPECT_EQ(titlesIn(filePath("show.zelta")), QStringList());
}

TEST_F(ZLDocumentJournalTest, StartAndStopAreInTheJournalWhenTheirCommandReturns)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    document.startRecordingWithTime(clock->seconds);
    EXPECT_TRUE(journaled().interruption);
    clock->seconds += 12.5;
    document.recordButtonPressed();
    EXPECT_FALSE(journaled().interruption);
    EXPECT_EQ(journaled().contents.duration, 12.5);
}

TEST_F(ZLDocumentJournalTest, NobodyIsToldOfAMarkThatAKillCouldLose)
{
    const auto saver = untitledSaver();
    document.startRecordingWithTime(clock->seconds);
    int tellings = 0;
    QObject::connect(&document, &ZLChapterDocument::changed, saver.get(), [&] {
        ++tellings;
        EXPECT_EQ(journaled().contents.chapters.size(), document.chapterManager().count());
    });
    addChapter("One");
    addChapter("Two");
    document.undoManager().undo();
    EXPECT_GE(tellings, 3);
}

TEST_F(ZLDocumentJournalTest, ADiskThatHangsDelaysAMarkOnceAndBriefly)
{
    auto saver = saverWithJournalThatHangs(ZLJournalDisk().longestHandOver);
    // Were one of these marks to wait for the disk, the test would stand here for ever.
    for (int mark = 0; mark < 100; ++mark)
        addChapter("More");
    EXPECT_EQ(journaledTitles().size(), 1);
    disk.release();
    document.undoManager().undo();
    saver.reset();
    EXPECT_EQ(journaledTitles().size(), 100);
}

TEST_F(ZLDocumentJournalTest, AKillWhileTheDiskHangsLosesNoMark)
{
    const ZLRuntimeFolderInMemory memory;
    if (!ZLRuntimeFolderInMemory::isInMemory())
        GTEST_SKIP() << "this system has no file system in memory";
    const auto saver = saverWithJournalThatHangs(std::chrono::milliseconds(1));
    for (int mark = 0; mark < 100; ++mark)
        addChapter("More");
    document.updateChapterToTitle(document.chapterManager().chapterAtIndex(0), u"First"_s);
    document.undoManager().undo();
    document.undoManager().undo();
    const QByteArray journal = ZLBoundedFile::read(journalPath(), ZLFileBound::Document).value();
    EXPECT_EQ(ZLJournalReader::read(journal).value().contents.chapters.size(), 1);
    const auto read = ZLJournalReader::read(journal, ZLJournalTail::read(journalPath()));
    EXPECT_EQ(read.value().contents.chapters.size(), 100);
    EXPECT_EQ(read.value().contents.chapters.first().toMap().value(ZLChapterKey::Title).toString(), u"One"_s);
    EXPECT_TRUE(read.value().hasChangesSinceFile);
    disk.release();
}

TEST_F(ZLDocumentJournalTest, ALongChangeHoldsNobodyUpAndIsToldWhenAKillCannotTakeItBack)
{
    const auto saver = saverWithJournalThatHangs(std::chrono::minutes(1));
    QStringList told;
    const auto tellLater = [&](const char* what) {
        saver->whenHandedOver([&told, what, this] {
            told.append(QLatin1StringView(what));
            EXPECT_EQ(journaledTitles().size(), 502) << what << "can be lost";
        });
    };
    // Were one of both to wait for the disk, the test would stand here for a minute.
    ZLChapterImport::importChapters(document, QList<ZLListedChapter>(500), ZLChapterImport::Way::Add);
    tellLater("the import");
    addChapter("Mark");
    tellLater("the mark behind it");
    EXPECT_EQ(journaledTitles().size(), 1);
    EXPECT_TRUE(told.isEmpty());
    disk.release();
    const QDeadlineTimer patience(std::chrono::minutes(1));
    while (told.size() < 2 && !patience.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(told, (QStringList { u"the import"_s, u"the mark behind it"_s }));
    addChapter("Later");
    saver->whenHandedOver([&told] { told.append(u"at once"_s); });
    EXPECT_EQ(told.size(), 3);
}

TEST_F(ZLDocumentJournalTest, TheJournalOfALongDocumentBeginsWithoutHoldingAnybodyUp)
{
    hangAtNextRecord(std::chrono::minutes(1));
    ZLChapterImport::importChapters(document, QList<ZLListedChapter>(500), ZLChapterImport::Way::Add);
    const auto saver = titledSaver(filePath("show.zelta"));
    bool isTold = false;
    // Were one of these to wait for the disk, the test would stand here for a minute.
    addChapter("First");
    addChapter("Second");
    saver->whenHandedOver([&] {
        isTold = true;
        EXPECT_EQ(journaledTitles().size(), 502);
    });
    EXPECT_FALSE(isTold);
    disk.release();
    const QDeadlineTimer patience(std::chrono::minutes(1));
    while (!isTold && !patience.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_TRUE(isTold);
}

TEST_F(ZLDocumentJournalTest, ADocumentThatClosesTellsWhatWaitsBehindALongChange)
{
    auto saver = saverWithJournalThatHangs(std::chrono::minutes(1));
    ZLChapterImport::importChapters(document, QList<ZLListedChapter>(500), ZLChapterImport::Way::Add);
    int told = 0;
    saver->whenHandedOver([&told] { ++told; });
    disk.release();
    saver.reset();
    EXPECT_EQ(told, 1);
}

TEST_F(ZLDocumentJournalTest, ASyncThatHangsDelaysNoMarkAtAll)
{
    std::atomic<int> syncs = 0;
    machinery.journalDisk.sync = [&](int descriptor) {
        // Not even the first mark, with which the journal begins, waits for it.
        if (++syncs == 1)
            disk.acquire();
        return ::fdatasync(descriptor);
    };
    const auto saver = titledSaver(filePath("show.zelta"));
    const auto letItGo = qScopeGuard([this] { disk.release(); });
    for (int mark = 1; mark <= 50; ++mark) {
        addChapter("More");
        ASSERT_EQ(journaledTitles().size(), mark) << "the kernel has it although nothing is synced";
    }
}

TEST_F(ZLDocumentJournalTest, AJournalBeginsWithTheBytesThatWereOpenedAndTheFirstChangeFollows)
{
    addChapter("Opened");
    document.undoManager().removeAllActions();
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    addChapter("First");
    const auto records =
        ZLJournalRecords::decoded(ZLBoundedFile::read(journalPath(), ZLFileBound::Document).value()).records;
    ASSERT_GE(records.size(), 2);
    EXPECT_EQ(records.at(1).payload, ZLBoundedFile::read(path, ZLFileBound::Document).value())
        << "no bytes of a long document are made for the first mark";
    EXPECT_EQ(journaledTitles(), (QStringList { u"Opened"_s, u"First"_s }));
    EXPECT_TRUE(journaled().hasChangesSinceFile);
    addChapter("Second");
    EXPECT_EQ(journaledTitles(), (QStringList { u"Opened"_s, u"First"_s, u"Second"_s }));
}

TEST_F(ZLDocumentJournalTest, AJournalThatCouldNotBeginAtTheFirstChangeBeginsWithAllOfThem)
{
    QFile obstacle(temporary.filePath(u"state"_s));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    const auto saver = titledSaver(filePath("show.zelta"));
    addChapter("First");
    addChapter("Second");
    EXPECT_FALSE(saver->recoveryFailureText().isEmpty());
    ASSERT_TRUE(obstacle.remove());
    saver->retryJournal();
    EXPECT_EQ(journaledTitles(), (QStringList { u"First"_s, u"Second"_s }));
}

TEST_F(ZLDocumentJournalTest, AfterSaveAsTheJournalBeginsWithTheBytesThatWereSaved)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    addChapter("First");
    ASSERT_TRUE(savedAs(*saver, filePath("other.zelta")));
    addChapter("Second");
    EXPECT_EQ(journaledTitles(), (QStringList { u"First"_s, u"Second"_s }));
    EXPECT_EQ(journaled().filePath, filePath("other.zelta"));
}

TEST_F(ZLDocumentJournalTest, RecoveryDataAreForTheirUserAlone)
{
    const mode_t formerMask = umask(0);
    const auto saver = untitledSaver();
    addChapter("One");
    writeAndSettle(*saver);
    umask(formerMask);
    EXPECT_EQ(modeOf(recoveryFolder.path()), 0700U);
    EXPECT_EQ(modeOf(journalPath()), 0600U);
    EXPECT_EQ(modeOf(saver->recoveryPath()), 0600U);
}

TEST_F(ZLDocumentJournalTest, ARecordThatFailedIsMadeGoodByANewJournal)
{
    std::atomic<bool> isFull = false;
    machinery.journalDisk.write = [&](int descriptor, const void* bytes, size_t count) -> ssize_t {
        if (!isFull)
            return ::write(descriptor, bytes, count);
        if (count > 10)
            return ::write(descriptor, bytes, 10);
        errno = ENOSPC;
        return -1;
    };
    const auto saver = titledSaver(filePath("show.zelta"));
    addChapter("One");
    isFull = true;
    addChapter("Two");
    EXPECT_EQ(journaledTitles(), QStringList { u"One"_s });
    isFull = false;
    addChapter("Three");
    // On a busy machine the failure may come to light only after a save.
    const QStringList everything { u"One"_s, u"Two"_s, u"Three"_s };
    for (int attempt = 0; attempt < 1000 && journaledTitles() != everything; ++attempt)
        EXPECT_TRUE(saver->saveNow());
    EXPECT_EQ(journaledTitles(), everything);
}

TEST_F(ZLDocumentJournalTest, AJournalThatGrewIsBegunAnewWithoutLosingAnything)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    addChapter("One");
    const QString longTitle(400'000, u'x');
    qint64 largest = 0;
    for (int edit = 0; edit < 12; ++edit) {
        document.updateChapterToTitle(document.chapterManager().chapterAtIndex(0), longTitle + QString::number(edit));
        addChapter("More");
        ASSERT_EQ(journaledTitles().value(0), longTitle + QString::number(edit));
        ASSERT_EQ(journaledTitles().size(), edit + 2);
        largest = std::max(largest, QFileInfo(journalPath()).size());
        writeAndSettle(*saver);
    }
    EXPECT_LT(largest, 8'000'000);
}
