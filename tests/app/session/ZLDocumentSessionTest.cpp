#include "app/ZLDocumentControllerFixture.h"
#include "support/ZLScarceDescriptors.h"

using namespace Qt::StringLiterals;

class ZLDocumentSessionTest : public ZLDocumentControllerFixture { };

TEST_F(ZLDocumentSessionTest, EverythingIsBackAfterAKill)
{
    open(storedFile("show.zelta"));
    ZLChapterDocument* untitled = controller->newDocument();
    addChapter(*untitled, "News");
    write(untitled);
    ZLChapterDocument* second = open(storedFile("other.zelta", "Before"));
    second->updateChapterToTitle(second->chapterManager().lastChapter(), u"After"_s);
    write(second);

    start();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_EQ(openDocuments(), (QStringList { u"show.zelta:Stored"_s, u"Untitled:News"_s, u"other.zelta:After"_s }));
    EXPECT_TRUE(controller->documents().at(1)->isDocumentEdited());
    EXPECT_FALSE(controller->documents().at(2)->isDocumentEdited());

    start();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_EQ(controller->documents().size(), 3) << "and once more";
}

TEST_F(ZLDocumentSessionTest, ARunningClockIsBackPausedAtItsReading)
{
    ZLChapterDocument* document = controller->newDocument();
    document->startRecordingWithTime(clock->seconds);
    clock->seconds += 65.5;
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    start().restoreSession();
    EXPECT_EQ(controller->documents().first()->currentDuration(), 65.5);
    EXPECT_FALSE(controller->documents().first()->isRecording());
}

TEST_F(ZLDocumentSessionTest, WithNothingToRestoreThereIsANewDocument)
{
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_EQ(openDocuments(), QStringList { u"Untitled:"_s });
    start();
    EXPECT_EQ(recoveryFiles(), QStringList()) << "an empty document leaves nothing";
}

TEST_F(ZLDocumentSessionTest, WhereDescriptorsAreScarceDocumentsWaitUntouched)
{
    const QString path = storedFile("show.zelta");
    ZLChapterDocument* untitled = controller->newDocument();
    addChapter(*untitled, "News");
    write(untitled);
    controller.reset();
    {
        const ZLScarceDescriptors scarce;
        EXPECT_EQ(start().restoreSession().size(), 1);
        EXPECT_FALSE(controller->openDocument(path));
        EXPECT_EQ(openDocuments(), QStringList { u"Untitled:"_s }) << "a show can be recorded all the same";
        controller.reset();
    }
    EXPECT_EQ(start().restoreSession(), QStringList());
    EXPECT_EQ(openDocuments(), QStringList { u"Untitled:News"_s });
}

TEST_F(ZLDocumentSessionTest, AMissingFileIsSkippedWithAMessage)
{
    open(storedFile("gone.zelta"));
    open(storedFile("here.zelta"));
    ASSERT_TRUE(QFile::remove(filePath("gone.zelta")));
    const QStringList failures = start().restoreSession();
    ASSERT_EQ(failures.size(), 1);
    EXPECT_TRUE(failures.first().startsWith(filePath("gone.zelta")));
    EXPECT_EQ(openDocuments(), QStringList { u"here.zelta:Stored"_s });
}

TEST_F(ZLDocumentSessionTest, ADamagedListOfOpenDocumentsLosesNoUntitledOne)
{
    ZLChapterDocument* untitled = controller->newDocument();
    addChapter(*untitled, "News");
    write(untitled);
    controller.reset();
    for (const char* damage : { "", "{", "[1]", "{\"documents\":[{},7,{\"recovery\":\"../../show.zelta\"}]}" }) {
        ASSERT_TRUE(ZLAtomicFile::write(filePath("state/session.json"), damage));
        start().restoreSession();
        EXPECT_EQ(openDocuments(), QStringList { u"Untitled:News"_s }) << damage;
        controller.reset();
    }
}

TEST_F(ZLDocumentSessionTest, EmptyRecoveryFilesAreTidiedAndUnreadableOnesKept)
{
    ASSERT_TRUE(QDir().mkpath(filePath("state/recovery")));
    ASSERT_TRUE(ZLAtomicFile::write(filePath("state/recovery/empty.zelta"), ""));
    ASSERT_TRUE(ZLAtomicFile::write(filePath("state/recovery/torn.zelta"), "bplist00 torn"));
    ZLChapterDocument document(setup().environment);
    ASSERT_TRUE(ZLAtomicFile::write(filePath("state/recovery/blank.zelta"), document.dataOfType()));
    const QStringList failures = controller->restoreSession();
    ASSERT_EQ(failures.size(), 1);
    EXPECT_TRUE(failures.first().startsWith(filePath("state/recovery/torn.zelta")));
    EXPECT_EQ(recoveryFiles(), QStringList { filePath("state/recovery/torn.zelta") });
    EXPECT_EQ(openDocuments(), QStringList { u"Untitled:"_s });
}

TEST_F(ZLDocumentSessionTest, AStartWithAFileLeavesUntitledDocumentsForTheNextOneWithout)
{
    ZLChapterDocument* untitled = controller->newDocument();
    addChapter(*untitled, "News");
    write(untitled);
    start();
    open(storedFile("show.zelta"));
    EXPECT_EQ(openDocuments(), QStringList { u"show.zelta:Stored"_s });
    start().restoreSession();
    EXPECT_EQ(openDocuments(), (QStringList { u"show.zelta:Stored"_s, u"Untitled:News"_s }));
}

TEST_F(ZLDocumentSessionTest, AnUntitledDocumentIsKeptOrForgottenAsItsUserWants)
{
    ZLChapterDocument* kept = controller->newDocument();
    addChapter(*kept, "Kept");
    ZLChapterDocument* forgotten = controller->newDocument();
    addChapter(*forgotten, "Forgotten");
    write(forgotten);
    open(storedFile("show.zelta"));
    EXPECT_TRUE(controller->closeDocument(kept, ZLClosing::Keep));
    EXPECT_TRUE(controller->closeDocument(forgotten, ZLClosing::Discard));
    EXPECT_EQ(recoveryFiles().size(), 1);
    start().restoreSession();
    EXPECT_EQ(openDocuments(), (QStringList { u"show.zelta:Stored"_s, u"Untitled:Kept"_s }));
}

TEST_F(ZLDocumentSessionTest, ClosingTheLastDocumentEndsTheProgramAndItIsBackAtTheNextStart)
{
    ZLChapterDocument* first = open(storedFile("first.zelta"));
    ZLChapterDocument* last = open(storedFile("last.zelta"));
    EXPECT_TRUE(controller->closeDocument(first, ZLClosing::Keep));
    EXPECT_TRUE(controller->closeDocument(last, ZLClosing::Keep));
    start().restoreSession();
    EXPECT_EQ(openDocuments(), QStringList { u"last.zelta:Stored"_s });
}

TEST_F(ZLDocumentSessionTest, QuittingWithSeveralDocumentsBringsAllOfThemBack)
{
    ZLChapterDocument* first = open(storedFile("first.zelta"));
    ZLChapterDocument* second = open(storedFile("second.zelta"));
    controller->keepSessionAsItIs();
    EXPECT_TRUE(controller->closeDocument(first, ZLClosing::Keep));
    EXPECT_TRUE(controller->closeDocument(second, ZLClosing::Keep));
    start().restoreSession();
    EXPECT_EQ(openDocuments(), (QStringList { u"first.zelta:Stored"_s, u"second.zelta:Stored"_s }));
}

TEST_F(ZLDocumentSessionTest, TwoProcessesAtOnceDoNotTakeEachOthersDocuments)
{
    ZLChapterDocument* document = controller->newDocument();
    addChapter(*document, "News");
    write(document);
    open(storedFile("show.zelta"));
    {
        ZLDocumentController other(setup());
        EXPECT_EQ(other.restoreSession(), QStringList());
        ASSERT_EQ(other.documents().size(), 1);
        EXPECT_EQ(other.documents().first()->chapterManager().count(), 0);
        addChapter(*other.documents().first(), "Other");
        EXPECT_EQ(other.saveAllNow(), QStringList());
    }
    EXPECT_EQ(recoveryFiles().size(), 2);
    start().restoreSession();
    EXPECT_EQ(openDocuments(), (QStringList { u"Untitled:News"_s, u"show.zelta:Stored"_s, u"Untitled 2:Other"_s }));
}

TEST_F(ZLDocumentSessionTest, EachDocumentThatWasKeptTakesNoMoreThanTwoDescriptors)
{
    constexpr int documentCount = 50;
    const auto descriptors = [] { return QDir(u"/proc/self/fd"_s).entryList(QDir::NoFilter).size(); };
    ASSERT_TRUE(ZLRecoveryFolder(filePath("state/recovery")).prepare());
    ZLChapterDocument kept(setup().environment);
    addChapter(kept, "Kept");
    for (int number = 0; number < documentCount; ++number) {
        const QString path = filePath("state/recovery") + u"/20261101-000000-%1.zelta"_s.arg(number);
        ASSERT_TRUE(ZLAtomicFile::write(path, kept.dataOfType()));
    }
    const auto before = descriptors();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_EQ(controller->documents().size(), documentCount);
    EXPECT_LE(descriptors() - before, 2 * documentCount);
    EXPECT_EQ(ZLRecoveryFolder(filePath("state/recovery")).journaledFiles(), QStringList()) << "nothing changed";
}

TEST_F(ZLDocumentSessionTest, WhatIsBroughtBackComesAfterWhatIsAskedForInThisRun)
{
    open(storedFile("last week.zelta"));
    open(storedFile("older.zelta"));
    start().restoreSession();
    EXPECT_EQ(controller->currentOrLastDocument()->displayName(), u"last week.zelta"_s) << "there is no other";
    const ZLChapterDocument* today = open(storedFile("today.zelta"));
    EXPECT_EQ(controller->currentOrLastDocument(), today);
    ZLChapterDocument* made = controller->newDocument();
    EXPECT_EQ(controller->currentOrLastDocument(), today) << "the first of this run";
    open(filePath("older.zelta"));
    ASSERT_TRUE(controller->closeDocument(open(filePath("today.zelta")), ZLClosing::Keep));
    EXPECT_EQ(controller->currentOrLastDocument(), made);
    ASSERT_TRUE(controller->closeDocument(made, ZLClosing::Discard));
    EXPECT_EQ(controller->currentOrLastDocument()->displayName(), u"older.zelta"_s) << "it was asked for, too";
    controller->setCurrentDocument(controller->documents().constFirst());
    EXPECT_EQ(controller->currentOrLastDocument()->displayName(), u"last week.zelta"_s) << "it is in front";
}

TEST_F(ZLDocumentSessionTest, AFileThatIsAskedForComesBeforeWhatWasKeptAside)
{
    ZLChapterDocument* untitled = controller->newDocument();
    addChapter(*untitled, "News");
    write(untitled);
    const QString path = storedFile("today.zelta");
    start();
    controller->restoreKeptDocuments();
    const ZLChapterDocument* today = open(path);
    ASSERT_EQ(controller->documents().size(), 2);
    EXPECT_EQ(controller->currentOrLastDocument(), today);
}
