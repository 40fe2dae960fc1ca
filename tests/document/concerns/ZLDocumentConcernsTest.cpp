#include "document/concerns/ZLDocumentConcerns.h"

#include "document/saving/SavingFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

using Action = ZLConcernAction;

class ZLDocumentConcernsTest : public SavingFixture {
protected:
    static ZLConcern only(const ZLDocumentConcerns& concerns)
    {
        const auto all = concerns.all();
        EXPECT_EQ(all.size(), 1);
        return all.value(0);
    }
    static QStringList namesOf(const ZLDocumentConcerns& concerns)
    {
        QStringList names;
        const auto all = concerns.all();
        for (const ZLConcern& concern : all)
            names.append(concern.name);
        return names;
    }

    std::unique_ptr<ZLDocumentSaver> saverInConflict()
    {
        auto saver = titledSaver(path);
        addChapter("Mine");
        EXPECT_TRUE(ZLAtomicFile::write(path, "theirs"));
        writeAndSettle(*saver);
        return saver;
    }

    const QString path = filePath("show.zelta");

    static ZLStatus chosen(
        ZLDocumentSaver& saver, ZLDocumentConcerns& concerns, const ZLConcern& concern, Action action)
    {
        return outcomeOf(saver, [&](const ZLWhenDone& whenDone) { concerns.choose(concern, action, whenDone); });
    }
};

TEST_F(ZLDocumentConcernsTest, ADocumentThatIsWellHasNone)
{
    const auto saver = titledSaver(path);
    const ZLDocumentConcerns concerns(document, *saver, ZLConcernReader::Window);
    EXPECT_EQ(concerns.all(), QList<ZLConcern>());
}

TEST_F(ZLDocumentConcernsTest, AConflictIsOneQuestionThatCallsTheFileAsItsReaderDoes)
{
    const auto saver = saverInConflict();
    const ZLConcern shown = only(ZLDocumentConcerns(document, *saver, ZLConcernReader::Window));
    EXPECT_EQ(shown.sentence, u"Another program changed “show.zelta”."_s);
    EXPECT_EQ(shown.choices, (QList { Action::KeepMine, Action::TakeTheirs, Action::KeepBoth }));
    EXPECT_FALSE(shown.isError);
    const ZLConcern printed = only(ZLDocumentConcerns(document, *saver, ZLConcernReader::Terminal));
    EXPECT_EQ(printed.sentence, u"Another program changed %1."_s.arg(path));
    EXPECT_EQ(printed.choices, shown.choices);
}

TEST_F(ZLDocumentConcernsTest, ARefusedDecisionIsToldInTheWindowUntilTheNextOne)
{
    const auto saver = saverInConflict();
    ZLDocumentConcerns concerns(document, *saver, ZLConcernReader::Window);
    const QString question = only(concerns).sentence;
    const ZLStatus taken = chosen(*saver, concerns, only(concerns), Action::TakeTheirs);
    ASSERT_FALSE(taken) << "theirs is no document";
    EXPECT_EQ(only(concerns).sentence, question + u' ' + taken.error().message);
    EXPECT_TRUE(chosen(*saver, concerns, only(concerns), Action::KeepMine));
    EXPECT_EQ(namesOf(concerns), QStringList());
    EXPECT_EQ(titlesIn(path), QStringList { u"Mine"_s });
}

TEST_F(ZLDocumentConcernsTest, ARecorderThatDiffersIsToldWithItsSize)
{
    const auto saver = titledSaver(path);
    ZLDocumentConcerns concerns(document, *saver, ZLConcernReader::Window);
    const QSignalSpy changed(&concerns, &ZLDocumentConcerns::didChange);
    ZLRecorderDifference& difference = document.recording().recorderDifference();
    difference.setUndecided(ZLRecorderDifference::Undecided { .seconds = -2.34, .reading = 0.0 });
    EXPECT_GT(changed.size(), 0);
    EXPECT_EQ(only(concerns).sentence, u"The recorder's time is 2.3 s behind Zelta's clock."_s);
    EXPECT_EQ(only(concerns).choices, (QList { Action::TakeRecordersTime, Action::KeepZeltasTime }));
    EXPECT_TRUE(chosen(*saver, concerns, only(concerns), Action::KeepZeltasTime));
    EXPECT_EQ(namesOf(concerns), QStringList());
    EXPECT_DOUBLE_EQ(difference.kept(), -2.34);
    document.undoManager().undo();
    EXPECT_TRUE(chosen(*saver, concerns, only(concerns), Action::TakeRecordersTime));
    EXPECT_EQ(difference.kept(), 0.0);
}

TEST_F(ZLDocumentConcernsTest, AFailureStaysUntilTheDocumentIsWritten)
{
    ASSERT_TRUE(QDir().mkpath(filePath("stick")));
    const auto saver = titledSaver(filePath("stick/show.zelta"));
    ZLDocumentConcerns concerns(document, *saver, ZLConcernReader::Window);
    const QSignalSpy changes(&concerns, &ZLDocumentConcerns::didChange);
    ASSERT_TRUE(QDir(filePath("stick")).removeRecursively());
    addChapter("One");
    writeAndSettle(*saver);
    EXPECT_GT(changes.count(), 0);
    const ZLConcern failure = only(concerns);
    EXPECT_TRUE(failure.sentence.startsWith("The document is not saved: "_L1)) << qPrintable(failure.sentence);
    EXPECT_TRUE(failure.sentence.endsWith("No such file or directory. Zelta keeps trying."_L1));
    EXPECT_TRUE(failure.isError);
    EXPECT_EQ(failure.coveredNames, QStringList { ZLConcernName::ReadOnlyFile });
    const ZLDocumentConcerns printed(document, *saver, ZLConcernReader::Terminal);
    EXPECT_TRUE(only(printed).sentence.startsWith("Cannot save: "_L1));
    EXPECT_FALSE(chosen(*saver, concerns, failure, Action::TryNow));
    EXPECT_EQ(only(concerns), failure);
    ASSERT_TRUE(QDir().mkpath(filePath("stick")));
    EXPECT_TRUE(chosen(*saver, concerns, failure, Action::TryNow));
    EXPECT_EQ(namesOf(concerns), QStringList());
}

TEST_F(ZLDocumentConcernsTest, AFailureIsNotOverWhileANewerStateWaits)
{
    const auto saver = titledSaver(path);
    const ZLDocumentConcerns concerns(document, *saver, ZLConcernReader::Window);
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir().mkpath(path)) << "a folder in its place";
    addChapter("One");
    writeAndSettle(*saver);
    EXPECT_EQ(namesOf(concerns), QStringList { ZLConcernName::SavingFailure });
    ASSERT_TRUE(QDir().rmdir(path));
    saver->writeNewestState();
    addChapter("Two");
    runTasks();
    EXPECT_EQ(saver->state(), ZLSavingState::Waiting);
    EXPECT_EQ(namesOf(concerns), QStringList { ZLConcernName::SavingFailure });
    writeAndSettle(*saver);
    EXPECT_EQ(namesOf(concerns), QStringList());
}

TEST_F(ZLDocumentConcernsTest, AnInterruptedRecordingOffersBothWays)
{
    const auto saver = titledSaver(path);
    ZLDocumentConcerns concerns(document, *saver, ZLConcernReader::Window);
    document.setInterruptedRecording(ZLInterruptedRecording { 30.0, QDateTime::currentDateTimeUtc() });
    const ZLConcern interruption = only(concerns);
    EXPECT_EQ(interruption.choices, (QList { Action::ContinueRecording, Action::StayPaused }));
    EXPECT_TRUE(interruption.sentence.startsWith("The recording was interrupted on "_L1));
    EXPECT_TRUE(interruption.sentence.contains(document.clockText()));
    EXPECT_TRUE(chosen(*saver, concerns, interruption, Action::StayPaused));
    EXPECT_EQ(namesOf(concerns), QStringList());
    document.undoManager().undo();
    EXPECT_EQ(only(concerns), interruption);
    EXPECT_TRUE(chosen(*saver, concerns, interruption, Action::ContinueRecording));
    EXPECT_TRUE(document.isRecording());
    EXPECT_EQ(namesOf(concerns), QStringList());
}

TEST_F(ZLDocumentConcernsTest, WhoElseHasTheFileIsDismissedForGood)
{
    ASSERT_TRUE(ZLAtomicFile::write(ZLDocumentLock::lockPath(path), "studio-elsewhere\n77\n"));
    const auto saver = titledSaver(path);
    ZLDocumentConcerns concerns(document, *saver, ZLConcernReader::Terminal);
    EXPECT_EQ(only(concerns).sentence,
        u"%1 is also open elsewhere (studio-elsewhere, process 77). Changes made there are never overwritten without asking."_s
            .arg(path));
    EXPECT_TRUE(chosen(*saver, concerns, only(concerns), Action::Dismiss));
    addChapter("One");
    writeAndSettle(*saver);
    EXPECT_EQ(namesOf(concerns), QStringList());
}

TEST_F(ZLDocumentConcernsTest, ARecoveryFolderThatFailsIsAConcernOfAllDocuments)
{
    const auto saver = titledSaver(path);
    const ZLDocumentConcerns concerns(document, *saver, ZLConcernReader::Window);
    ASSERT_TRUE(QDir().mkpath(QFileInfo(recoveryFolder.path()).path()));
    ASSERT_TRUE(ZLAtomicFile::write(recoveryFolder.path(), "a file where the folder should be"));
    addChapter("One");
    const ZLConcern failure = only(concerns);
    EXPECT_EQ(failure.matter, ZLConcernMatter::RecoveryFolder);
    EXPECT_TRUE(failure.sentence.contains(recoveryFolder.path() + u": Not a directory."_s));
    EXPECT_TRUE(failure.choices.isEmpty());
}

}
