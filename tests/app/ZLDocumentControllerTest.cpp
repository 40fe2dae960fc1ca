#include "app/ZLDocumentController.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class ZLDocumentControllerTest : public testing::Test {
protected:
    struct SettableClock final : ZLHostClock {
        double seconds = 1000.0;
        double now() const override { return seconds; }
    };

    ZLDocumentControllerTest() { start(); }

    /// Begins a process's life on the state folder; the one before ends as if it had been killed.
    ZLDocumentController& start()
    {
        controller.reset();
        controller = std::make_unique<ZLDocumentController>(setup());
        return *controller;
    }

    ZLDocumentControllerSetup setup()
    {
        ZLDocumentControllerSetup result;
        result.environment.hostClock = clock;
        result.environment.wallClock = [this] { return wallClock; };
        result.machinery.clock = clock;
        result.machinery.executor = [](const std::function<void()>& task) { task(); };
        result.stateFolder = filePath("state");
        result.sessionExecutor = [](const std::function<void()>& task) { task(); };
        return result;
    }

    QString filePath(const char* name) const { return temporary.filePath(QString::fromLatin1(name)); }

    QString storedFile(const char* name, const char* title = "Stored")
    {
        ZLChapterDocument document(setup().environment);
        addChapter(document, title);
        EXPECT_TRUE(ZLAtomicFile::write(filePath(name), document.dataOfType()));
        return filePath(name);
    }

    static void addChapter(ZLChapterDocument& document, const char* title)
    {
        const auto chapter = std::make_shared<ZLChapter>();
        chapter->setTitle(QString::fromLatin1(title));
        document.addChapter(chapter);
    }

    ZLChapterDocument* open(const QString& path)
    {
        const auto opened = controller->openDocument(path);
        EXPECT_TRUE(opened) << qPrintable(opened.error().message);
        return opened ? opened.value() : nullptr;
    }

    /// What the timer of the document's saver does.
    void write(const ZLChapterDocument* document)
    {
        controller->saverOf(document)->writeNewestState();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }

    /// Name and first chapter's title of each open document.
    QStringList openDocuments() const
    {
        QStringList names;
        for (ZLChapterDocument* document : controller->documents()) {
            const auto chapter = document->chapterManager().chapterAtIndex(0);
            names.append(document->displayName() + u":"_s + (chapter ? chapter->title() : QString()));
        }
        return names;
    }

    QStringList recoveryFiles() const { return ZLRecoveryFolder(filePath("state/recovery")).files(); }

    QTemporaryDir temporary;
    std::shared_ptr<SettableClock> clock = std::make_shared<SettableClock>();
    QDateTime wallClock = QDateTime::fromMSecsSinceEpoch(1'700'000'000'000, Qt::UTC);
    std::unique_ptr<ZLDocumentController> controller;
};

TEST_F(ZLDocumentControllerTest, WithoutDocumentsThereIsNoneToActOn)
{
    EXPECT_EQ(controller->currentOrLastDocument(), nullptr);
    EXPECT_TRUE(controller->canTerminate());
}

TEST_F(ZLDocumentControllerTest, WithoutACurrentDocumentTheOneOpenedFirstIsActedOn)
{
    ZLChapterDocument* first = open(storedFile("first.zelta"));
    ZLChapterDocument* second = open(storedFile("second.zelta"));
    EXPECT_EQ(controller->documents(), (QList<ZLChapterDocument*> { first, second }));

    controller->setCurrentDocument(second);
    EXPECT_EQ(controller->currentOrLastDocument(), second);
    controller->setCurrentDocument(nullptr);
    EXPECT_EQ(controller->currentOrLastDocument(), first) << "not the one used last";

    EXPECT_TRUE(controller->closeDocument(first, ZLClosing::Keep));
    EXPECT_EQ(controller->currentOrLastDocument(), second);
}

TEST_F(ZLDocumentControllerTest, OpeningAndClosingAreTold)
{
    QStringList events;
    QObject::connect(
        controller.get(), &ZLDocumentController::didOpenDocument, controller.get(), [&](ZLChapterDocument* document) {
            EXPECT_TRUE(controller->documents().contains(document));
            QObject::connect(document, &ZLChapterDocument::controllersShouldBeInformed, controller.get(),
                [&] { events.append(u"informed"_s); });
            events.append(u"opened"_s);
        });
    QObject::connect(
        controller.get(), &ZLDocumentController::willCloseDocument, controller.get(), [&](ZLChapterDocument* document) {
            EXPECT_TRUE(controller->documents().contains(document));
            events.append(u"closing"_s);
        });
    QObject::connect(
        controller.get(), &ZLDocumentController::didCloseDocument, controller.get(), [&](ZLChapterDocument* document) {
            EXPECT_FALSE(controller->documents().contains(document));
            events.append(u"closed"_s);
        });
    QObject::connect(controller.get(), &ZLDocumentController::currentDocumentDidChange, controller.get(),
        [&] { events.append(u"current"_s); });
    ZLChapterDocument* document = controller->newDocument();
    EXPECT_EQ(events, (QStringList { u"opened"_s, u"informed"_s }));
    controller->setCurrentDocument(document);
    controller->setCurrentDocument(document);
    EXPECT_TRUE(controller->closeDocument(document, ZLClosing::Keep));
    EXPECT_EQ(
        events, (QStringList { u"opened"_s, u"informed"_s, u"current"_s, u"closing"_s, u"current"_s, u"closed"_s }));
    EXPECT_EQ(controller->currentDocument(), nullptr);
}

TEST_F(ZLDocumentControllerTest, UntitledDocumentsTakeTheFirstFreeName)
{
    controller->newDocument();
    ZLChapterDocument* second = controller->newDocument();
    controller->newDocument();
    EXPECT_EQ(openDocuments(), (QStringList { u"Untitled:"_s, u"Untitled 2:"_s, u"Untitled 3:"_s }));
    EXPECT_TRUE(controller->closeDocument(second, ZLClosing::Keep));
    controller->newDocument();
    EXPECT_EQ(openDocuments(), (QStringList { u"Untitled:"_s, u"Untitled 3:"_s, u"Untitled 2:"_s }));
}

TEST_F(ZLDocumentControllerTest, AnOpenFileIsFoundByEveryPathThatLeadsToIt)
{
    const QString path = storedFile("show.zelta");
    ASSERT_TRUE(QFile::link(path, filePath("link.zelta")));
    ZLChapterDocument* document = open(path);
    EXPECT_EQ(document->displayName(), u"show.zelta"_s);
    EXPECT_EQ(open(path), document);
    EXPECT_EQ(open(filePath("link.zelta")), document);
    EXPECT_EQ(open(filePath("state/../show.zelta")), document);
    EXPECT_EQ(controller->documents().size(), 1);
}

TEST_F(ZLDocumentControllerTest, AFileThatCannotBeReadIsToldAndMakesNoDocument)
{
    ZLChapterDocument* untitled = controller->newDocument();
    ASSERT_TRUE(ZLAtomicFile::write(filePath("letter.txt"), "Dear all"));
    ASSERT_EQ(mkfifo(QFile::encodeName(filePath("pipe")).constData(), 0600), 0);
    ASSERT_TRUE(QDir().mkpath(filePath("folder")));
    for (const char* name : { "missing.zelta", "letter.txt", "pipe", "folder" }) {
        const auto opened = controller->openDocument(filePath(name));
        ASSERT_FALSE(opened) << name;
        EXPECT_TRUE(opened.error().message.startsWith(filePath(name) + u": "_s)) << qPrintable(opened.error().message);
        EXPECT_GT(opened.error().message.size(), filePath(name).size() + 5) << "no reason";
    }
    EXPECT_EQ(controller->documents(), QList<ZLChapterDocument*> { untitled });
    EXPECT_EQ(controller->recentDocuments().paths(), QStringList());
}

TEST_F(ZLDocumentControllerTest, AMissingFileIsMadeWhereThatIsWanted)
{
    const auto made = controller->openDocument(filePath("new.zelta"), ZLMissingFile::Create);
    ASSERT_TRUE(made);
    EXPECT_TRUE(QFile::exists(filePath("new.zelta")));
    EXPECT_EQ(made.value()->displayName(), u"new.zelta"_s);
    EXPECT_FALSE(made.value()->isDocumentEdited());
    EXPECT_FALSE(controller->openDocument(filePath("no/folder/new.zelta"), ZLMissingFile::Create));
    EXPECT_EQ(controller->documents().size(), 1);
}

TEST_F(ZLDocumentControllerTest, OpeningReplacesADocumentThatNobodyWouldMiss)
{
    controller->newDocument();
    ZLChapterDocument* opened = open(storedFile("show.zelta"));
    EXPECT_EQ(controller->documents(), QList<ZLChapterDocument*> { opened });

    ZLChapterDocument* touched = controller->newDocument();
    controller->setCurrentDocument(touched);
    addChapter(*touched, "News");
    touched->undoManager().undo();
    open(storedFile("other.zelta"));
    EXPECT_EQ(controller->documents().size(), 3);
    EXPECT_TRUE(controller->documents().contains(touched));
}

TEST_F(ZLDocumentControllerTest, ADocumentIsSavedAtOnceWhenItIsClosed)
{
    const QString path = storedFile("show.zelta", "Before");
    ZLChapterDocument* document = open(path);
    document->updateChapterToTitle(document->chapterManager().lastChapter(), u"After"_s);
    EXPECT_TRUE(controller->closeDocument(document, ZLClosing::Keep));
    EXPECT_TRUE(controller->documents().isEmpty());
    open(path);
    EXPECT_EQ(openDocuments(), QStringList { u"show.zelta:After"_s });
}

TEST_F(ZLDocumentControllerTest, ARunningClockRefusesClosingAndTerminating)
{
    ZLChapterDocument* document = open(storedFile("show.zelta"));
    document->startRecordingWithTime(clock->seconds);
    EXPECT_FALSE(controller->canTerminate());
    EXPECT_FALSE(controller->closeDocument(document, ZLClosing::Keep));
    EXPECT_FALSE(controller->closeDocument(document, ZLClosing::Discard));
    EXPECT_EQ(controller->documents().size(), 1);

    document->recordButtonPressed();
    EXPECT_TRUE(controller->canTerminate());
    EXPECT_TRUE(controller->closeDocument(document, ZLClosing::Keep));
}

TEST_F(ZLDocumentControllerTest, ADocumentThatCannotBeSavedIsClosedOnlyWhenThatIsWanted)
{
    ASSERT_TRUE(QDir().mkpath(filePath("stick")));
    ZLChapterDocument* document = open(storedFile("stick/show.zelta"));
    ASSERT_TRUE(QDir(filePath("stick")).removeRecursively());
    addChapter(*document, "News");
    const ZLStatus closed = controller->closeDocument(document, ZLClosing::Keep);
    ASSERT_FALSE(closed);
    EXPECT_TRUE(closed.error().message.startsWith(filePath("stick/show.zelta")));
    EXPECT_EQ(controller->saveAllNow(), QStringList { closed.error().message });
    EXPECT_EQ(controller->documents().size(), 1);
    EXPECT_TRUE(controller->closeDocument(document, ZLClosing::Discard));
    EXPECT_TRUE(controller->documents().isEmpty());
    EXPECT_EQ(recoveryFiles(), QStringList());
}

TEST_F(ZLDocumentControllerTest, TwoDocumentsNeverShareAFile)
{
    const QString path = storedFile("show.zelta", "Mine");
    open(path);
    ZLChapterDocument* untitled = controller->newDocument();
    addChapter(*untitled, "Other");
    EXPECT_FALSE(controller->saveDocumentAs(untitled, filePath("show")));
    EXPECT_TRUE(controller->saverOf(untitled)->isUntitled());
    EXPECT_TRUE(controller->saveDocumentAs(untitled, filePath("other")));
    EXPECT_EQ(controller->recentDocuments().paths(), (QStringList { filePath("other.zelta"), path }));
}

TEST_F(ZLDocumentControllerTest, EverythingIsBackAfterAKill)
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

TEST_F(ZLDocumentControllerTest, ARunningClockIsBackPausedAtItsReading)
{
    ZLChapterDocument* document = controller->newDocument();
    document->startRecordingWithTime(clock->seconds);
    clock->seconds += 65.5;
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    start().restoreSession();
    EXPECT_EQ(controller->documents().first()->currentDuration(), 65.5);
    EXPECT_FALSE(controller->documents().first()->isRecording());
}

TEST_F(ZLDocumentControllerTest, WithNothingToRestoreThereIsANewDocument)
{
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_EQ(openDocuments(), QStringList { u"Untitled:"_s });
    start();
    EXPECT_EQ(recoveryFiles(), QStringList()) << "an empty document leaves nothing";
}

TEST_F(ZLDocumentControllerTest, AMissingFileIsSkippedWithAMessage)
{
    open(storedFile("gone.zelta"));
    open(storedFile("here.zelta"));
    ASSERT_TRUE(QFile::remove(filePath("gone.zelta")));
    const QStringList failures = start().restoreSession();
    ASSERT_EQ(failures.size(), 1);
    EXPECT_TRUE(failures.first().startsWith(filePath("gone.zelta")));
    EXPECT_EQ(openDocuments(), QStringList { u"here.zelta:Stored"_s });
}

TEST_F(ZLDocumentControllerTest, ADamagedListOfOpenDocumentsLosesNoUntitledOne)
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

TEST_F(ZLDocumentControllerTest, EmptyRecoveryFilesAreTidiedAndUnreadableOnesKept)
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

TEST_F(ZLDocumentControllerTest, AStartWithAFileLeavesUntitledDocumentsForTheNextOneWithout)
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

TEST_F(ZLDocumentControllerTest, AnUntitledDocumentIsKeptOrForgottenAsItsUserWants)
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

TEST_F(ZLDocumentControllerTest, ClosingTheLastDocumentEndsTheProgramAndItIsBackAtTheNextStart)
{
    ZLChapterDocument* first = open(storedFile("first.zelta"));
    ZLChapterDocument* last = open(storedFile("last.zelta"));
    EXPECT_TRUE(controller->closeDocument(first, ZLClosing::Keep));
    EXPECT_TRUE(controller->closeDocument(last, ZLClosing::Keep));
    start().restoreSession();
    EXPECT_EQ(openDocuments(), QStringList { u"last.zelta:Stored"_s });
}

TEST_F(ZLDocumentControllerTest, QuittingWithSeveralDocumentsBringsAllOfThemBack)
{
    ZLChapterDocument* first = open(storedFile("first.zelta"));
    ZLChapterDocument* second = open(storedFile("second.zelta"));
    controller->keepSessionAsItIs();
    EXPECT_TRUE(controller->closeDocument(first, ZLClosing::Keep));
    EXPECT_TRUE(controller->closeDocument(second, ZLClosing::Keep));
    start().restoreSession();
    EXPECT_EQ(openDocuments(), (QStringList { u"first.zelta:Stored"_s, u"second.zelta:Stored"_s }));
}

TEST_F(ZLDocumentControllerTest, TwoProcessesAtOnceDoNotTakeEachOthersDocuments)
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

TEST_F(ZLDocumentControllerTest, TenRecentDocumentsAreRememberedNewestFirst)
{
    ZLRecentDocuments& recent = controller->recentDocuments();
    for (int number = 1; number <= 12; ++number)
        open(storedFile(qPrintable(u"%1.zelta"_s.arg(number))));
    EXPECT_EQ(recent.paths().size(), 10);
    EXPECT_EQ(recent.paths().first(), filePath("12.zelta"));
    EXPECT_EQ(recent.paths().last(), filePath("3.zelta"));

    recent.add(filePath("5.zelta"));
    ASSERT_TRUE(QFile::remove(filePath("12.zelta")));
    EXPECT_EQ(start().recentDocuments().paths().first(), filePath("5.zelta"));
    EXPECT_EQ(controller->recentDocuments().paths().size(), 9) << "what is not there is not offered";

    int tellings = 0;
    QObject::connect(
        &controller->recentDocuments(), &ZLRecentDocuments::didChange, controller.get(), [&] { ++tellings; });
    controller->recentDocuments().clear();
    EXPECT_EQ(controller->recentDocuments().paths(), QStringList());
    EXPECT_EQ(tellings, 1);
}

TEST_F(ZLDocumentControllerTest, AfterAKillTheNewestStateOfAFileIsBackAndThenInTheFile)
{
    const QString path = storedFile("show.zelta");
    addChapter(*open(path), "Marked live");
    start();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    ASSERT_EQ(controller->documents().size(), 1);
    ZLChapterDocument* document = controller->documents().first();
    EXPECT_EQ(document->chapterManager().count(), 2);
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    start();
    EXPECT_EQ(open(path)->chapterManager().count(), 2);
    controller.reset();
    EXPECT_EQ(ZLRecoveryFolder(filePath("state/recovery")).journaledFiles(), QStringList());
}

TEST_F(ZLDocumentControllerTest, AfterAKillAnUntitledDocumentThatWasNeverSavedIsBack)
{
    addChapter(*controller->newDocument(), "Marked live");
    EXPECT_EQ(recoveryFiles(), QStringList()) << "there was no time for an automatic save";
    start();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_EQ(openDocuments(), QStringList { u"Untitled:Marked live"_s });
    EXPECT_TRUE(controller->saverOf(controller->documents().first())->isUntitled());
}

TEST_F(ZLDocumentControllerTest, AKilledRecordingIsBackPausedAndCanGoOnAsIfItHadNeverStopped)
{
    const QString path = storedFile("show.zelta");
    ZLChapterDocument* document = open(path);
    document->startRecordingWithTime(clock->seconds);
    clock->seconds += 30.0;
    addChapter(*document, "Marked live");
    start();
    document = open(path);
    EXPECT_FALSE(document->isRecording());
    EXPECT_EQ(document->currentDuration(), 30.0);
    ASSERT_TRUE(document->interruptedRecording());

    // The host clock may have begun anew; only the wall clock tells how long the program was away.
    clock->seconds = 20.0;
    wallClock = document->interruptedRecording()->lastSeen.addMSecs(125'400);
    document->continueInterruptedRecording();
    EXPECT_TRUE(document->isRecording());
    EXPECT_NEAR(document->currentDuration(), 155.4, 0.1);
    EXPECT_EQ(document->undoManager().undoActionName(), u"Continue Recording"_s);
    clock->seconds += 10.0;
    EXPECT_NEAR(document->currentDuration(), 165.4, 0.1);

    document->undoManager().undo();
    EXPECT_FALSE(document->isRecording());
    EXPECT_EQ(document->currentDuration(), 30.0);
    EXPECT_TRUE(document->interruptedRecording()) << "the choice is back";
    document->undoManager().redo();
    EXPECT_NEAR(document->currentDuration(), 165.4, 0.1);
}

TEST_F(ZLDocumentControllerTest, AKilledRecordingCanStayPausedAndTheChoiceCanBeUndone)
{
    ZLChapterDocument* document = controller->newDocument();
    document->startRecordingWithTime(clock->seconds);
    clock->seconds += 30.0;
    addChapter(*document, "Marked live");
    start();
    controller->restoreSession();
    document = controller->documents().first();
    document->keepInterruptedRecordingPaused();
    EXPECT_FALSE(document->interruptedRecording());
    EXPECT_EQ(document->currentDuration(), 30.0);
    document->undoManager().undo();
    EXPECT_TRUE(document->interruptedRecording());
    document->undoManager().redo();
    EXPECT_FALSE(document->interruptedRecording());
}

TEST_F(ZLDocumentControllerTest, AnUndecidedInterruptionSurvivesTheNextKillAndTheNextEnd)
{
    const QString path = storedFile("show.zelta");
    ZLChapterDocument* document = open(path);
    document->startRecordingWithTime(clock->seconds);
    clock->seconds += 30.0;
    addChapter(*document, "Marked live");
    start();
    const auto interruption = open(path)->interruptedRecording();
    ASSERT_TRUE(interruption);
    start();
    EXPECT_EQ(open(path)->interruptedRecording(), interruption);
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    start();
    EXPECT_EQ(open(path)->interruptedRecording(), interruption);
}

TEST_F(ZLDocumentControllerTest, StartingTheClockDecidesForThePause)
{
    ZLChapterDocument* document = controller->newDocument();
    document->startRecordingWithTime(clock->seconds);
    clock->seconds += 30.0;
    addChapter(*document, "Marked live");
    start();
    controller->restoreSession();
    document = controller->documents().first();
    document->startRecordingWithTime(clock->seconds);
    EXPECT_FALSE(document->interruptedRecording());
    EXPECT_EQ(document->currentDuration(), 30.0);
    document->undoManager().undo();
    EXPECT_TRUE(document->interruptedRecording());
}

TEST_F(ZLDocumentControllerTest, RecoveryDataOfAFileThatChangedSinceAreSetAside)
{
    const QString path = storedFile("show.zelta");
    addChapter(*open(path), "Mine");
    start();
    storedFile("show.zelta", "Theirs");
    ZLChapterDocument* document = open(path);
    ASSERT_EQ(document->chapterManager().count(), 1);
    EXPECT_EQ(document->chapterManager().chapterAtIndex(0)->title(), u"Theirs"_s);
    EXPECT_TRUE(openDocuments().contains(u"show.zelta (recovered):Stored"_s)) << "what was set aside is to be seen";
    EXPECT_EQ(recoveryFiles().size(), 1);
    start();
    EXPECT_EQ(open(path)->chapterManager().count(), 1) << "and is not applied later";
}

TEST_F(ZLDocumentControllerTest, AFileThatIsOutOfReachAtTheStartIsBackFromTheJournalAndWrittenLater)
{
    ASSERT_TRUE(QDir().mkpath(filePath("stick")));
    const QString path = storedFile("stick/show.zelta");
    addChapter(*open(path), "Marked live");
    ASSERT_TRUE(QDir(filePath("stick")).removeRecursively());
    start();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    ASSERT_EQ(controller->documents().size(), 1);
    EXPECT_EQ(controller->documents().first()->chapterManager().count(), 2);
    EXPECT_EQ(controller->saveAllNow().size(), 1);
    ASSERT_TRUE(QDir().mkpath(filePath("stick")));
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    start();
    EXPECT_EQ(open(path)->chapterManager().count(), 2);
}

TEST_F(ZLDocumentControllerTest, ATornJournalGivesTheStateBefore)
{
    const QString path = storedFile("show.zelta");
    ZLChapterDocument* document = open(path);
    addChapter(*document, "One");
    addChapter(*document, "Two");
    controller.reset();
    const QStringList journals = ZLRecoveryFolder(filePath("state/recovery")).journaledFiles();
    ASSERT_EQ(journals.size(), 1);
    QFile journal(journals.first() + ZLRecoveryFile::JournalSuffix);
    ASSERT_TRUE(journal.resize(journal.size() - 3));
    start();
    EXPECT_EQ(open(path)->chapterManager().count(), 2);
}

TEST_F(ZLDocumentControllerTest, AJournalThatIsNoneStandsInNobodysWay)
{
    ASSERT_TRUE(ZLRecoveryFolder(filePath("state/recovery")).prepare());
    const QString journal = filePath("state/recovery/a.zelta.journal");
    ASSERT_TRUE(ZLAtomicFile::write(journal, "zelta journal 1\nnonsense"));
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_EQ(openDocuments(), QStringList { u"Untitled:"_s });
    EXPECT_TRUE(QFile::exists(journal + u".unreadable"_s));
}

}
