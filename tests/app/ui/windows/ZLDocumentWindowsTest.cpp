#include "app/ui/windows/ZLDocumentWindows.h"

#include "app/ui/ZLDesktopFixture.h"
#include "document/ui/menus/ZLViewMenu.h"

using namespace Qt::StringLiterals;

class ZLDocumentWindowsTest : public ZLDesktopFixture {
protected:
    int quit()
    {
        return ZLProgramRun::run({ [this] { m_windows->quit(); } });
    }
    /// A run of the program that is quit while one document with a file and one without are open.
    void quitWithTwoDocuments(const ZLDocumentControllerSetup& setup)
    {
        const auto controller = std::make_unique<ZLDocumentController>(setup);
        const auto windows = std::make_unique<ZLDocumentWindows>(*controller);
        const auto opened = controller->openDocument(storedFile(u"show.zelta"_s, u"Titled"_s));
        addChapter(controller->newDocument(), u"Untitled"_s);
        const int status = ZLProgramRun::run({ [&windows] { windows->quit(); } });
        EXPECT_TRUE(opened);
        EXPECT_EQ(status, 0);
    }
};

TEST_F(ZLDocumentWindowsTest, ALogOutSavesWhatThereIsAndIsHeldBackOnlyByARunningClock)
{
    ZLChapterDocument* document = openFile(storedFile(u"log-out.zelta"_s));
    document->recordButtonPressed();
    addChapter(document, u"Mine"_s);
    EXPECT_FALSE(m_windows->prepareForLogOut());
    EXPECT_EQ(passingMessage(document), u"Pause the recording before quitting."_s);
    EXPECT_EQ(titlesInFile(filePath(u"log-out.zelta"_s)), (QStringList { u"Stored"_s, u"Mine"_s }));
    document->recordButtonPressed();
    m_diskError = u"The disk is full."_s;
    EXPECT_TRUE(m_windows->prepareForLogOut()) << "what cannot be written is kept aside";
}

TEST_F(ZLDocumentWindowsTest, QuittingIsRefusedSilentlyWhileAnyClockRuns)
{
    ZLChapterDocument* idle = newDocument();
    ZLChapterDocument* recording = newDocument();
    recording->recordButtonPressed();
    EXPECT_EQ(quit(), ZLProgramRun::StillRunning);
    for (ZLChapterDocument* document : { idle, recording }) {
        EXPECT_EQ(passingMessage(document), QString());
        EXPECT_EQ(barText(document), QString());
    }
    EXPECT_TRUE(recording->isRecording());
    recording->recordButtonPressed();
    EXPECT_EQ(quit(), 0);
}

TEST_F(ZLDocumentWindowsTest, AFileThatOpensAfterAllClearsItsOlderFailureAndNoOther)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    const QString broken = filePath(u"broken.zelta"_s);
    const QString other = filePath(u"other.zelta"_s);
    for (const QString& path : { broken, other })
        ASSERT_TRUE(ZLAtomicFile::write(path, "no document"));
    EXPECT_EQ(openLater({ .files = { broken, other } }).size(), 2);
    EXPECT_TRUE(barText(document).contains(broken) && barText(document).contains(other));
    storedFile(u"broken.zelta"_s);
    EXPECT_EQ(openLater({ .files = { broken } }), QStringList());
    EXPECT_FALSE(barText(document).contains(broken)) << qPrintable(barText(document));
    EXPECT_TRUE(barText(document).contains(other));
    storedFile(u"other.zelta"_s);
    EXPECT_EQ(openLater({ .files = { other } }), QStringList());
    EXPECT_EQ(barText(document), QString());
}

TEST_F(ZLDocumentWindowsTest, QuittingSavesEverything)
{
    const QString path = storedFile(u"show.zelta"_s);
    ZLChapterDocument* titled = openFile(path);
    addChapter(titled, u"Mine"_s);
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(titlesInFile(path), (QStringList { u"Stored"_s, u"Mine"_s }));
}

TEST_F(ZLDocumentWindowsTest, QuittingUnsavedNeedsAYes)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    addChapter(document, u"Mine"_s);
    m_diskError = u"show.zelta: The disk is full."_s;
    EXPECT_EQ(quit(), ZLProgramRun::StillRunning);
    EXPECT_TRUE(barText(document).contains("The disk is full."_L1));
    EXPECT_EQ(barButtons(document), (QStringList { u"Quit Anyway"_s, u"Cancel"_s }));
    EXPECT_EQ(ZLProgramRun::run({ [&] { pressInBar(document, u"Quit Anyway"_s); } }), 0);
}

TEST_F(ZLDocumentWindowsTest, QuittingUnsavedCanBeCancelled)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    addChapter(document, u"Mine"_s);
    m_diskError = u"show.zelta: The disk is full."_s;
    EXPECT_EQ(quit(), ZLProgramRun::StillRunning);
    EXPECT_EQ(ZLProgramRun::run({ [&] { pressInBar(document, u"Cancel"_s); } }), ZLProgramRun::StillRunning);
    EXPECT_EQ(m_controller.documents(), QList<ZLChapterDocument*> { document });
}

TEST_F(ZLDocumentWindowsTest, TheCurrentDocumentFollowsTheActiveWindow)
{
    ZLChapterDocument* first = newDocument();
    ZLChapterDocument* second = newDocument();
    makeCurrent(second);
    EXPECT_EQ(m_controller.currentDocument(), second);
    makeCurrent(first);
    EXPECT_EQ(m_controller.currentDocument(), first);
}

TEST_F(ZLDocumentWindowsTest, InTheBackgroundNoDocumentIsCurrent)
{
    ZLChapterDocument* first = newDocument();
    ZLChapterDocument* second = newDocument();
    makeCurrent(second);
    m_windows->applicationDidComeOrGo(false);
    EXPECT_EQ(m_controller.currentDocument(), nullptr);
    EXPECT_EQ(m_controller.currentOrLastDocument(), first);
    m_windows->applicationDidComeOrGo(true);
    EXPECT_EQ(m_controller.currentDocument(), second);
}

TEST_F(ZLDocumentWindowsTest, TheAbsoluteTimeItemsOfAllWindowsFlipTogether)
{
    ZLChapterDocument* first = newDocument();
    ZLChapterDocument* second = newDocument();
    for (ZLChapterDocument* document : { first, second }) {
        EXPECT_FALSE(action(document, u"absoluteTimeItem"_s)->isChecked());
        EXPECT_EQ(action(document, u"absoluteTimeItem"_s)->text(), u"Show Absolute Time"_s);
    }
    trigger(first, u"absoluteTimeItem"_s);
    for (ZLChapterDocument* document : { first, second }) {
        EXPECT_TRUE(action(document, u"absoluteTimeItem"_s)->isChecked());
        EXPECT_EQ(action(document, u"absoluteTimeItem"_s)->text(), u"Show Relative Time"_s);
    }
    trigger(second, u"absoluteTimeItem"_s);
    for (ZLChapterDocument* document : { first, second }) {
        EXPECT_FALSE(action(document, u"absoluteTimeItem"_s)->isChecked());
        EXPECT_EQ(action(document, u"absoluteTimeItem"_s)->text(), u"Show Absolute Time"_s);
    }
}

TEST_F(ZLDocumentWindowsTest, WindowsDoNotCoverEachOther)
{
    QList<QPoint> places;
    for (int i = 0; i < 5; ++i) {
        const QPoint place = windowOf(newDocument()).pos();
        EXPECT_FALSE(places.contains(place));
        places.append(place);
    }
}

TEST_F(ZLDocumentWindowsTest, WindowsStayOnTheScreen)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (int i = 0; i < 40; ++i) {
        const QPoint place = windowOf(newDocument()).pos();
        EXPECT_TRUE(screen.contains(place + QPoint(100, 30))) << i;
    }
}

TEST_F(ZLDocumentWindowsTest, AWindowOpenedLaterShowsTheSameKindOfTime)
{
    trigger(newDocument(), u"absoluteTimeItem"_s);
    ZLChapterDocument* second = newDocument();
    EXPECT_TRUE(action(second, u"absoluteTimeItem"_s)->isChecked());
    EXPECT_EQ(action(second, u"absoluteTimeItem"_s)->text(), u"Show Relative Time"_s);
}

TEST_F(ZLDocumentWindowsTest, WhatWasOpenIsBackAtTheNextStart)
{
    ZLDocumentControllerSetup other = setup();
    other.stateFolder = filePath(u"other"_s);
    quitWithTwoDocuments(other);
    QStringList all;
    ZLDocumentController next(other);
    ZLDocumentWindows windows(next);
    windows.openAtLaunch({});
    for (ZLChapterDocument* document : next.documents()) {
        all += titles(document);
        EXPECT_TRUE(windows.windowOf(document)->isVisible());
    }
    EXPECT_EQ(all, (QStringList { u"Titled"_s, u"Untitled"_s }));
}

TEST_F(ZLDocumentWindowsTest, AStartWithAFileAlsoBringsBackWhatWasKeptAsideBehindIt)
{
    ZLDocumentControllerSetup other = setup();
    other.stateFolder = filePath(u"other"_s);
    const QString path = storedFile(u"show.zelta"_s, u"Titled"_s);
    {
        ZLDocumentController life(other);
        addChapter(life.newDocument(), u"Untitled"_s);
        EXPECT_EQ(life.saveAllNow(), QStringList());
        life.keepSessionAsItIs();
    }
    ZLDocumentController next(other);
    ZLDocumentWindows windows(next);
    windows.openAtLaunch({ .files = { path }, .wantsNewDocument = false });
    ASSERT_EQ(next.documents().size(), 2);
    EXPECT_EQ(titles(next.documents().constFirst()), QStringList { u"Titled"_s });
    EXPECT_EQ(titles(next.documents().constLast()), QStringList { u"Untitled"_s });
    EXPECT_TRUE(QTest::qWaitForWindowActive(windows.windowOf(next.documents().constFirst())));
}

TEST_F(ZLDocumentWindowsTest, QuittingBringsTheRecordingWindowToTheFront)
{
    ZLChapterDocument* recording = newDocument();
    ZLChapterDocument* idle = newDocument();
    recording->recordButtonPressed();
    windowOf(recording).showMinimized();
    makeCurrent(idle);
    m_windows->quit();
    EXPECT_FALSE(windowOf(recording).windowHandle()->windowStates() & Qt::WindowMinimized);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&windowOf(recording)));
    EXPECT_EQ(passingMessage(recording), QString());
    recording->recordButtonPressed();
}

TEST_F(ZLDocumentWindowsTest, ATaskBarSeesWhichWindowRecords)
{
    ZLChapterDocument* document = newDocument();
    const QString name = document->displayName();
    const QString title = windowOf(document).windowTitle();
    document->recordButtonPressed();
    EXPECT_EQ(windowOf(document).windowTitle(), u"Recording: "_s + title);
    EXPECT_EQ(document->displayName(), name);
    document->recordButtonPressed();
    EXPECT_EQ(windowOf(document).windowTitle(), title);
}

TEST_F(ZLDocumentWindowsTest, ASavedSizeAndPlaceComesOntoTheScreenAsAWhole)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    {
        QMainWindow lost;
        lost.setGeometry(-4000, 3000, 5000, 4000);
        ZLWindowStateStore().save({ .geometry = lost.saveGeometry(), .panels = {}, .titleShare = 0.5 });
    }
    EXPECT_TRUE(screen.contains(windowOf(newDocument()).geometry()));
}
