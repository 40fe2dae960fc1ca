#include "document/saving/ZLDocumentHistory.h"

#include "SavingFixture.h"

#include <QTimeZone>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

class ZLDocumentHistoryTest : public SavingFixture {
protected:
    ZLDocumentHistoryTest() { document.undoManager().removeAllActions(); }

    /// A document with so many chapters.
    static QByteArray bytesWith(int chapterCount)
    {
        ZLDocumentContents contents;
        for (int number = 1; number <= chapterCount; ++number)
            contents.chapters.append(QVariantMap { { ZLChapterKey::Title, QString::number(number) } });
        return ZLDocumentFile::encode(contents);
    }

    ZLStateKeeping keep(int chapterCount, const QDateTime& time) const
    {
        return history.keep(bytesWith(chapterCount), time, bytesWith(chapterCount + 1));
    }

    QList<qsizetype> countsOfStates() const
    {
        QList<qsizetype> counts;
        const auto states = history.states();
        for (const ZLDocumentState& state : states)
            counts.append(state.chapterCount);
        return counts;
    }

    static mode_t permissionsOf(const QString& path)
    {
        struct stat status {};
        EXPECT_EQ(stat(QFile::encodeName(path).constData(), &status), 0) << qPrintable(path);
        return status.st_mode & 0777;
    }

    const QDateTime start = QDateTime(QDate(2024, 5, 3), QTime(14, 3), QTimeZone::utc());
    ZLDocumentHistory history = ZLDocumentHistory::ofFile(recoveryFolder, filePath("show.zelta"));
};

TEST_F(ZLDocumentHistoryTest, StatesAreListedNewestFirstAndReadBack)
{
    EXPECT_TRUE(history.states().isEmpty());
    EXPECT_EQ(keep(1, start), ZLStateKeeping::Kept);
    EXPECT_EQ(keep(2, start.addSecs(60)), ZLStateKeeping::Kept);
    const auto states = history.states();
    ASSERT_EQ(states.size(), 2);
    EXPECT_EQ(states.at(0).chapterCount, 2);
    EXPECT_EQ(states.at(0).time, start.addSecs(60));
    EXPECT_EQ(states.at(1).time, start);
    const auto contents = ZLDocumentHistory::contentsOf(states.at(0));
    ASSERT_TRUE(contents);
    EXPECT_EQ(ZLDocumentFile::encode(contents.value()), bytesWith(2));
}

TEST_F(ZLDocumentHistoryTest, OnlyItsUserCanReadThem)
{
    const mode_t mask = umask(0);
    keep(1, start);
    umask(mask);
    EXPECT_EQ(permissionsOf(history.folderPath()), mode_t(0700));
    EXPECT_EQ(permissionsOf(QFileInfo(history.folderPath()).path()), mode_t(0700));
    const auto files = QDir(history.folderPath()).entryInfoList(QDir::Files);
    EXPECT_EQ(files.size(), 2) << "the state, and the path of the document";
    for (const QFileInfo& file : files)
        EXPECT_EQ(permissionsOf(file.filePath()), mode_t(0600)) << qPrintable(file.fileName());
}

TEST_F(ZLDocumentHistoryTest, NothingNewIsNotKept)
{
    EXPECT_EQ(keep(0, start), ZLStateKeeping::NothingNew) << "empty";
    EXPECT_EQ(history.keep("no document", start, bytesWith(1)), ZLStateKeeping::NothingNew);
    ZLDocumentContents later = ZLDocumentFile::decode(bytesWith(3)).value();
    later.duration = 65.0;
    EXPECT_EQ(history.keep(bytesWith(3), start, ZLDocumentFile::encode(later)), ZLStateKeeping::NothingNew)
        << "only the clock went on";
    EXPECT_TRUE(history.states().isEmpty());
    EXPECT_EQ(keep(3, start), ZLStateKeeping::Kept);
    EXPECT_EQ(keep(3, start.addSecs(90)), ZLStateKeeping::NothingNew) << "kept already";
    EXPECT_EQ(history.states().size(), 1);
}

TEST_F(ZLDocumentHistoryTest, TemplatesAloneAreWorthAState)
{
    ZLDocumentContents contents;
    contents.templates.append(QVariantMap { { ZLChapterKey::Title, u"Prepared"_s } });
    EXPECT_EQ(history.keep(ZLDocumentFile::encode(contents), start, bytesWith(0)), ZLStateKeeping::Kept);
}

TEST_F(ZLDocumentHistoryTest, TenStatesSpanALongShow)
{
    constexpr int minutes = 240;
    for (int minute = 0; minute <= minutes; ++minute) {
        ASSERT_EQ(keep(minute + 1, start.addSecs(60 * minute)), ZLStateKeeping::Kept);
        EXPECT_LE(history.states().size(), ZLDocumentHistory::MostStates);
    }
    const auto states = history.states();
    ASSERT_EQ(states.size(), ZLDocumentHistory::MostStates);
    EXPECT_EQ(states.last().time, start) << "how it began";
    EXPECT_EQ(states.first().time, start.addSecs(60 * minutes)) << "how it is";
    const auto isThereOneBetween = [&](int oldest, int newest) {
        return std::any_of(states.begin(), states.end(), [&](const ZLDocumentState& state) {
            const qint64 age = state.time.secsTo(states.first().time) / 60;
            return age >= newest && age <= oldest;
        });
    };
    EXPECT_TRUE(isThereOneBetween(3, 1));
    EXPECT_TRUE(isThereOneBetween(15, 4));
    EXPECT_TRUE(isThereOneBetween(60, 16));
    EXPECT_TRUE(isThereOneBetween(180, 61));
}

TEST_F(ZLDocumentHistoryTest, TheBeginningOfAShowLongAgoGivesWay)
{
    keep(1, start.addDays(-ZLDocumentHistory::DaysKept - 1));
    for (int minute = 0; minute < 10; ++minute)
        keep(minute + 2, start.addSecs(60 * minute));
    EXPECT_EQ(history.states().size(), 10);
    EXPECT_EQ(history.states().last().time, start);
}

TEST_F(ZLDocumentHistoryTest, WhatIsTornOrHostileIsLeftOut)
{
    keep(1, start);
    keep(2, start.addSecs(60));
    const QString newest = history.states().first().path;
    ASSERT_TRUE(QFile::resize(newest, QFileInfo(newest).size() - 1));
    EXPECT_EQ(countsOfStates(), QList<qsizetype> { 1 });

    const QString folder = history.folderPath() + u'/';
    for (const char* name : { "x.zelta", "20240503-140300000-5-0123456789abcdef.zelta",
             "20240503-140300000--5-0123456789abcdef.zelta", "99999999-999999999-5-0123456789abcdef.zelta", ".zelta",
             "20240503-140300000-99999999999999999999-0.zelta", "----.zelta" })
        ASSERT_TRUE(ZLAtomicFile::write(folder + QString::fromLatin1(name), "not ours"));
    ASSERT_TRUE(QFile::link(history.states().first().path, folder + u"20240503-150000000-1-0.zelta"_s));
    ASSERT_EQ(mkfifo(QFile::encodeName(folder + u"20240503-160000000-1-0.zelta"_s).constData(), 0600), 0);
    EXPECT_EQ(countsOfStates(), QList<qsizetype> { 1 });
    EXPECT_EQ(keep(3, start.addSecs(120)), ZLStateKeeping::Kept) << "and hinders nothing";
    EXPECT_EQ(countsOfStates(), (QList<qsizetype> { 3, 1 }));
}

TEST_F(ZLDocumentHistoryTest, AStateWithoutRoomIsAFailureAndNothingElse)
{
    ASSERT_TRUE(recoveryFolder.prepare());
    ASSERT_TRUE(ZLAtomicFile::write(recoveryFolder.path() + u"/states"_s, "in the way"));
    EXPECT_EQ(keep(1, start), ZLStateKeeping::Failed);
    EXPECT_TRUE(history.states().isEmpty());
}

TEST_F(ZLDocumentHistoryTest, APathIsTheSameDocumentByWhicheverLink)
{
    ASSERT_TRUE(ZLAtomicFile::write(filePath("show.zelta"), bytesWith(1)));
    ASSERT_TRUE(QFile::link(filePath("show.zelta"), filePath("link.zelta")));
    EXPECT_EQ(ZLDocumentHistory::ofFile(recoveryFolder, filePath("link.zelta")),
        ZLDocumentHistory::ofFile(recoveryFolder, filePath("show.zelta")));
    EXPECT_NE(ZLDocumentHistory::ofFile(recoveryFolder, filePath("other.zelta")),
        ZLDocumentHistory::ofFile(recoveryFolder, filePath("show.zelta")));
}

TEST_F(ZLDocumentHistoryTest, SharedStatesLiveOnTheirOwn)
{
    keep(1, start);
    const auto other = ZLDocumentHistory::ofFile(recoveryFolder, filePath("other.zelta"));
    history.shareWith(other);
    history.remove();
    EXPECT_TRUE(history.states().isEmpty());
    ASSERT_EQ(other.states().size(), 1);
    EXPECT_TRUE(ZLDocumentHistory::contentsOf(other.states().first()));
}

TEST_F(ZLDocumentHistoryTest, StatesOfDocumentsThatAreGoneAreForgottenInTime)
{
    keep(1, start);
    const auto present = ZLDocumentHistory::ofFile(recoveryFolder, filePath("present.zelta"));
    ASSERT_TRUE(ZLAtomicFile::write(filePath("present.zelta"), bytesWith(1)));
    (void)present.keep(bytesWith(1), start, bytesWith(2));

    ZLDocumentHistory::removeForgotten(recoveryFolder, start.addDays(ZLDocumentHistory::DaysKept));
    EXPECT_EQ(history.states().size(), 1) << "not yet";
    ZLDocumentHistory::removeForgotten(recoveryFolder, start.addDays(ZLDocumentHistory::DaysKept + 1));
    EXPECT_FALSE(QFile::exists(history.folderPath()));
    EXPECT_EQ(present.states().size(), 1) << "its document is there";
}

TEST_F(ZLDocumentHistoryTest, ChangesKeepWhatTheyReplaceOnceAMinute)
{
    addChapter("One");
    auto saver = titledSaver(filePath("show.zelta"));
    addChapter("Two");
    writeAndSettle(*saver);
    EXPECT_EQ(countsOfStates(), QList<qsizetype> { 1 }) << "as it was opened";
    clock->seconds += 59.0;
    addChapter("Three");
    writeAndSettle(*saver);
    EXPECT_EQ(countsOfStates(), QList<qsizetype> { 1 });
    clock->seconds += 1.0;
    addChapter("Four");
    writeAndSettle(*saver);
    EXPECT_EQ(countsOfStates(), (QList<qsizetype> { 3, 1 })) << "what stood until now";
}

TEST_F(ZLDocumentHistoryTest, TheRunningClockAloneKeepsNothingAndUsesNoMinuteUp)
{
    addChapter("One");
    auto saver = titledSaver(filePath("show.zelta"));
    document.startRecordingWithTime(clock->seconds);
    writeAndSettle(*saver);
    clock->seconds += 5.0;
    writeAndSettle(*saver);
    EXPECT_EQ(countsOfStates(), QList<qsizetype>());
    addChapter("Two");
    writeAndSettle(*saver);
    EXPECT_EQ(countsOfStates(), QList<qsizetype> { 1 });
}

TEST_F(ZLDocumentHistoryTest, GoingBackIsOneUndoableStepAndLosesNothing)
{
    addChapter("One");
    auto saver = titledSaver(filePath("show.zelta"));
    addChapter("Two");
    writeAndSettle(*saver);
    document.undoManager().removeAllActions();
    ASSERT_EQ(saver->history()->states().size(), 1);

    ASSERT_TRUE(revertedTo(*saver, saver->history()->states().first()));
    writeAndSettle(*saver);
    EXPECT_EQ(titlesIn(filePath("show.zelta")), QStringList { u"One"_s });
    EXPECT_EQ(countsOfStates(), (QList<qsizetype> { 2, 1 })) << "what was left, within the minute too";
    EXPECT_EQ(document.undoManager().undoActionName(), u"Revert"_s);
    document.undoManager().undo();
    EXPECT_EQ(document.chapterManager().count(), 2);
    EXPECT_FALSE(document.undoManager().canUndo());
    document.undoManager().redo();
    EXPECT_EQ(document.chapterManager().count(), 1);
}

TEST_F(ZLDocumentHistoryTest, GoingToWhereItIsLeavesNoStep)
{
    addChapter("One");
    auto saver = titledSaver(filePath("show.zelta"));
    addChapter("Two");
    writeAndSettle(*saver);
    ASSERT_TRUE(revertedTo(*saver, saver->history()->states().first()));
    document.undoManager().removeAllActions();
    ASSERT_TRUE(revertedTo(*saver, saver->history()->states().first()));
    EXPECT_FALSE(document.undoManager().canUndo());
}

TEST_F(ZLDocumentHistoryTest, NobodyGoesBackWhileTheClockRunsOrToWhatIsGone)
{
    addChapter("One");
    auto saver = titledSaver(filePath("show.zelta"));
    addChapter("Two");
    writeAndSettle(*saver);
    const ZLDocumentState state = saver->history()->states().value(0);
    document.startRecordingWithTime(clock->seconds);
    EXPECT_FALSE(revertedTo(*saver, state));
    document.recordButtonPressed();
    ASSERT_TRUE(ZLAtomicFile::write(state.path, "no document"));
    EXPECT_FALSE(revertedTo(*saver, state));
    ASSERT_TRUE(QFile::remove(state.path));
    EXPECT_FALSE(revertedTo(*saver, state));
    EXPECT_EQ(document.chapterManager().count(), 2);
}

TEST_F(ZLDocumentHistoryTest, AFullDiskForStatesKeepsTheFileAndTellsNobody)
{
    addChapter("One");
    auto saver = titledSaver(filePath("show.zelta"));
    ASSERT_TRUE(recoveryFolder.prepare());
    ASSERT_TRUE(ZLAtomicFile::write(recoveryFolder.path() + u"/states"_s, "in the way"));
    addChapter("Two");
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(titlesIn(filePath("show.zelta")), (QStringList { u"One"_s, u"Two"_s }));
}

TEST_F(ZLDocumentHistoryTest, AnUntitledDocumentTakesItsStatesAlong)
{
    auto saver = untitledSaver();
    addChapter("One");
    writeAndSettle(*saver);
    addChapter("Two");
    writeAndSettle(*saver);
    ASSERT_EQ(saver->history()->states().size(), 1);
    document.deleteLastChapter();
    document.deleteLastChapter();
    writeAndSettle(*saver);
    EXPECT_EQ(saver->recoveryPath(), QString()) << "empty: nothing is kept";
    addChapter("Three");
    writeAndSettle(*saver);
    saver->settle(QDeadlineTimer(QDeadlineTimer::Forever));
    EXPECT_EQ(saver->history()->states().size(), 1) << "beside the new recovery file";
    ASSERT_TRUE(savedAs(*saver, filePath("show.zelta")));
    saver->settle(QDeadlineTimer(QDeadlineTimer::Forever));
    EXPECT_EQ(countsOfStates(), QList<qsizetype> { 1 });
    EXPECT_EQ(QDir(recoveryFolder.path() + u"/states"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
}

TEST_F(ZLDocumentHistoryTest, AForgottenUntitledDocumentLeavesNoStates)
{
    const auto historyCount = [&] {
        return QDir(recoveryFolder.path() + u"/states"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
    };
    auto saver = untitledSaver();
    addChapter("One");
    writeAndSettle(*saver);
    addChapter("Two");
    writeAndSettle(*saver);
    EXPECT_EQ(historyCount(), 1);
    saver->discard();
    EXPECT_EQ(historyCount(), 0);
}

TEST_F(ZLDocumentHistoryTest, WhatADecisionOverwritesIsKept)
{
    addChapter("One");
    auto saver = titledSaver(filePath("show.zelta"));
    addChapter("Mine");
    ASSERT_TRUE(ZLAtomicFile::write(filePath("show.zelta"), bytesWith(5)));
    writeAndSettle(*saver);
    ASSERT_EQ(saver->state(), ZLSavingState::Conflict);
    ASSERT_TRUE(keptMine(*saver));
    EXPECT_EQ(countsOfStates(), QList<qsizetype> { 5 }) << "theirs";

    ASSERT_TRUE(ZLAtomicFile::write(filePath("show.zelta"), bytesWith(7)));
    addChapter("Mine again");
    writeAndSettle(*saver);
    ASSERT_EQ(saver->state(), ZLSavingState::Conflict);
    ASSERT_TRUE(tookTheirs(*saver));
    EXPECT_TRUE(countsOfStates().contains(3)) << "mine";
}
