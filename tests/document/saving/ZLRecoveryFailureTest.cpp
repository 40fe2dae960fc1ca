#include "SavingFixture.h"

#include "document/ZLChapterImport.h"
#include "support/ZLFullDisk.h"

#include <QDeadlineTimer>
#include <QThread>

using namespace Qt::StringLiterals;

/// Recovery folders that do not take what changes.
class ZLRecoveryFailureTest : public SavingFixture {
protected:
    /// What the timer does, until the writing thread has carried it out.
    static void retryUntilItWorks(ZLDocumentSaver& saver)
    {
        for (int attempt = 0; attempt < 5000 && !saver.recoveryFailureText().isEmpty(); ++attempt) {
            saver.retryJournal();
            QThread::msleep(1);
        }
    }

    void putAFileInPlaceOfTheFolder()
    {
        ASSERT_TRUE(QDir(recoveryFolder.path()).removeRecursively());
        ASSERT_TRUE(QDir().mkpath(QFileInfo(recoveryFolder.path()).path()));
        QFile file(recoveryFolder.path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
};

TEST_F(ZLRecoveryFailureTest, AFullFolderIsToldWithItsReasonAsLongAsItIsFull)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    int tellings = 0;
    addChapter("One");
    EXPECT_EQ(saver->recoveryFailureText(), QString());
    QObject::connect(saver.get(), &ZLDocumentSaver::stateDidChange, saver.get(), [&] { ++tellings; });
    {
        const ZLFullDisk disk(100);
        addChapter("Two");
        EXPECT_EQ(saver->recoveryFailureText(), recoveryFolder.path() + u": File too large"_s);
        EXPECT_EQ(tellings, 1);
        addChapter("Three");
        saver->retryJournal();
        EXPECT_EQ(tellings, 1) << "told once";
    }
    retryUntilItWorks(*saver);
    EXPECT_EQ(saver->recoveryFailureText(), QString());
    EXPECT_EQ(tellings, 2);
    EXPECT_EQ(journaledTitles(), (QStringList { u"One"_s, u"Two"_s, u"Three"_s }));
}

TEST_F(ZLRecoveryFailureTest, AFolderThatIsFullFromTheStartIsTold)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    {
        const ZLFullDisk disk(100);
        addChapter("One");
        EXPECT_EQ(saver->recoveryFailureText(), recoveryFolder.path() + u": File too large"_s);
    }
    retryUntilItWorks(*saver);
    EXPECT_EQ(saver->recoveryFailureText(), QString());
    EXPECT_EQ(journaledTitles(), QStringList { u"One"_s });
}

TEST_F(ZLRecoveryFailureTest, AFolderThatIsFullIsToldOfALongDocumentToo)
{
    ZLChapterImport::importChapters(document, QList<ZLListedChapter>(500), ZLChapterImport::Way::Add);
    const auto saver = titledSaver(filePath("show.zelta"));
    {
        const ZLFullDisk disk(100);
        addChapter("One");
        const QDeadlineTimer patience(std::chrono::minutes(1));
        while (saver->recoveryFailureText().isEmpty() && !patience.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        EXPECT_EQ(saver->recoveryFailureText(), recoveryFolder.path() + u": File too large"_s);
    }
    retryUntilItWorks(*saver);
    EXPECT_EQ(saver->recoveryFailureText(), QString());
    EXPECT_EQ(journaledTitles().size(), 501);
}

TEST_F(ZLRecoveryFailureTest, AFolderThatIsGoneAndCannotBeMadeIsToldUntilItCan)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    addChapter("One");
    putAFileInPlaceOfTheFolder();
    addChapter("Two");
    EXPECT_EQ(saver->recoveryFailureText(), recoveryFolder.path() + u": Not a directory"_s);
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved) << "the file is all right";
    EXPECT_NE(saver->recoveryFailureText(), QString());
    ASSERT_TRUE(QFile::remove(recoveryFolder.path()));
    saver->retryJournal();
    EXPECT_EQ(saver->recoveryFailureText(), QString());
    EXPECT_EQ(journaledTitles(), (QStringList { u"One"_s, u"Two"_s }));
}

TEST_F(ZLRecoveryFailureTest, AFolderThatVanishesDuringARecordingIsThereAgainWithTheNextReading)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    addChapter("One");
    document.startRecordingWithTime(clock->seconds);
    ASSERT_TRUE(QDir(recoveryFolder.path()).removeRecursively());
    writeAndSettle(*saver);
    EXPECT_EQ(saver->recoveryFailureText(), QString());
    EXPECT_TRUE(journaledTitles().contains(u"One"_s));
    EXPECT_TRUE(journaled().interruption);
}

TEST_F(ZLRecoveryFailureTest, AnUntitledDocumentThatCannotBeKeptIsToldAndForgottenWithIt)
{
    putAFileInPlaceOfTheFolder();
    const auto saver = untitledSaver();
    saver->writeNewestState();
    EXPECT_EQ(saver->recoveryFailureText(), QString()) << "nothing to lose";
    addChapter("One");
    EXPECT_EQ(saver->recoveryFailureText(), recoveryFolder.path() + u": Not a directory"_s);
    saver->discard();
    EXPECT_EQ(saver->recoveryFailureText(), QString());
}

TEST_F(ZLRecoveryFailureTest, WhereNothingChangedThereIsNoJournal)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    document.informControllers();
    EXPECT_EQ(recoveryFolder.journaledFiles(), QStringList()) << "telling the state is no change";
    EXPECT_TRUE(saver->saveNow());
    writeAndSettle(*saver);
    EXPECT_EQ(recoveryFolder.journaledFiles(), QStringList());
}

TEST_F(ZLRecoveryFailureTest, ADocumentThatWasEmptyAndIsAsBeforeHasItsJournalAgain)
{
    const auto saver = untitledSaver();
    addChapter("One");
    writeAndSettle(*saver);
    document.undoManager().undo();
    writeAndSettle(*saver);
    EXPECT_EQ(recoveryFolder.journaledFiles(), QStringList()) << "nothing to lose";
    document.undoManager().redo();
    EXPECT_EQ(journaledTitles(), QStringList { u"One"_s });
}

TEST_F(ZLRecoveryFailureTest, ADocumentThatWasSavedUnderAnotherNameHasAJournalAsSoonAsItChanges)
{
    const auto saver = untitledSaver();
    addChapter("One");
    ASSERT_TRUE(savedAs(*saver, filePath("show.zelta")));
    EXPECT_EQ(recoveryFolder.journaledFiles(), QStringList());
    addChapter("Two");
    EXPECT_EQ(journaledTitles(), (QStringList { u"One"_s, u"Two"_s }));
    document.startRecordingWithTime(clock->seconds);
    ASSERT_TRUE(savedAs(*saver, filePath("other.zelta")));
    EXPECT_TRUE(journaled().interruption) << "a running clock changes at any time";
}
