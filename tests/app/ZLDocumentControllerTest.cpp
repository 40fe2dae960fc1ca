#include "app/ZLDocumentControllerFixture.h"

#include <unistd.h>

using namespace Qt::StringLiterals;

class ZLDocumentControllerTest : public ZLDocumentControllerFixture { };

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
            QObject::connect(
                document, &ZLChapterDocument::changed, controller.get(), [&](const ZLDocumentChange& change) {
                    if (change.concerns(ZLDocumentChange::concerningControllers))
                        events.append(u"informed"_s);
                });
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
    ASSERT_EQ(link(QFile::encodeName(path).constData(), QFile::encodeName(filePath("twin.zelta")).constData()), 0);
    ZLChapterDocument* document = open(path);
    EXPECT_EQ(document->displayName(), u"show.zelta"_s);
    EXPECT_EQ(open(path), document);
    EXPECT_EQ(open(filePath("link.zelta")), document);
    EXPECT_EQ(open(filePath("twin.zelta")), document) << "a second name of the same file";
    EXPECT_EQ(open(filePath("state/../show.zelta")), document);
    EXPECT_EQ(controller->documents().size(), 1);
}

TEST_F(ZLDocumentControllerTest, AFileThatCannotBeReadIsToldAndMakesNoDocument)
{
    ZLChapterDocument* untitled = controller->newDocument();
    ASSERT_TRUE(ZLAtomicFile::write(filePath("letter.txt"), "Dear all"));
    ASSERT_EQ(mkfifo(QFile::encodeName(filePath("pipe")).constData(), 0600), 0);
    ASSERT_TRUE(QDir().mkpath(filePath("folder")));
    const auto letter = controller->openDocument(filePath("letter.txt"));
    ASSERT_FALSE(letter);
    EXPECT_EQ(letter.error().message, filePath("letter.txt") + u" is not a Zelta document."_s);
    for (const char* name : { "missing.zelta", "pipe", "folder" }) {
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
    EXPECT_FALSE(savedAs(untitled, filePath("show")));
    EXPECT_TRUE(controller->saverOf(untitled)->isUntitled());
    EXPECT_TRUE(savedAs(untitled, filePath("other")));
    EXPECT_EQ(controller->recentDocuments().paths(), (QStringList { filePath("other.zelta"), path }));
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
