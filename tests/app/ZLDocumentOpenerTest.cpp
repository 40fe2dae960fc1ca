#include "app/ZLDocumentOpener.h"

#include "app/ZLDocumentControllerFixture.h"
#include "platform/ZLAbandonedWork.h"
#include "support/ZLProcessorTime.h"

#include <QTest>

using namespace Qt::StringLiterals;

class ZLDocumentOpenerTest : public ZLDocumentControllerFixture {
protected:
    using Opened = ZLResult<ZLChapterDocument*>;

    ZLDocumentOpener::WhenOpened remember()
    {
        return [this](const Opened& opened) { told.push_back(opened); };
    }
    void waitUntilRead()
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !opener->isOpening(); }, 60'000));
    }
    /// A file with many chapters.
    QString longFile(const char* name)
    {
        ZLChapterSequence chapters;
        for (int number = 0; number < 20'000; ++number) {
            chapters.append(std::make_shared<ZLChapter>());
            chapters.last()->setTimeStamp(number);
            chapters.last()->setTitle(QString::number(number));
        }
        ZLChapterDocument document(setup().environment);
        document.chapterManager().setChapters(chapters);
        EXPECT_TRUE(ZLAtomicFile::write(filePath(name), document.dataOfType()));
        return filePath(name);
    }

    std::unique_ptr<ZLDocumentOpener> opener = std::make_unique<ZLDocumentOpener>(*controller);
    std::vector<Opened> told;
};

TEST_F(ZLDocumentOpenerTest, AFileIsOpenWhenItIsRead)
{
    const QString path = storedFile("show.zelta");
    opener->open(path, remember());
    EXPECT_TRUE(told.empty());
    EXPECT_TRUE(controller->documents().isEmpty());
    waitUntilRead();
    ASSERT_EQ(told.size(), 1U);
    ASSERT_TRUE(told.front());
    EXPECT_EQ(openDocuments(), QStringList { u"show.zelta:Stored"_s });
    ZLChapterDocument* document = told.front().value();
    EXPECT_FALSE(document->isDocumentEdited());
    EXPECT_FALSE(controller->saverOf(document)->canRevert());
    addChapter(*document, "Mine");
    EXPECT_TRUE(controller->saverOf(document)->canRevert());
    EXPECT_EQ(controller->recentDocuments().paths(), QStringList { path });
}

TEST_F(ZLDocumentOpenerTest, ALongFileIsDecodedBesideTheMainThread)
{
    const QString path = longFile("long.zelta");
    double before = ZLProcessorTime::seconds();
    ASSERT_TRUE(ZLReadDocument::read(path));
    const double costOfReading = ZLProcessorTime::seconds() - before;
    before = ZLProcessorTime::seconds();
    opener->open(path, remember());
    waitUntilRead();
    ASSERT_TRUE(told.front());
    EXPECT_EQ(told.front().value()->chapterManager().count(), 20'000);
    EXPECT_LT(ZLProcessorTime::seconds() - before, 0.25 * costOfReading);
}

TEST_F(ZLDocumentOpenerTest, AFileThatIsAskedForTwiceIsOneDocument)
{
    const QString path = storedFile("show.zelta");
    opener->open(path, remember());
    opener->open(filePath("state/../show.zelta"), remember());
    waitUntilRead();
    ASSERT_EQ(told.size(), 2U);
    ASSERT_TRUE(told.front() && told.back());
    EXPECT_EQ(told.front().value(), told.back().value());
    opener->open(path, remember());
    ASSERT_EQ(told.size(), 3U) << "what is open already is told at once";
    EXPECT_EQ(told.back().value(), told.front().value());
    EXPECT_EQ(controller->documents().size(), 1);
}

TEST_F(ZLDocumentOpenerTest, TwoNamesOfOneFileAreOneDocument)
{
    const QString path = storedFile("show.zelta");
    ASSERT_TRUE(QFile::link(path, filePath("link.zelta")));
    opener->open(path, remember());
    opener->open(filePath("link.zelta"), remember());
    waitUntilRead();
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told.front().value(), told.back().value());
    EXPECT_EQ(controller->documents().size(), 1);
}

TEST_F(ZLDocumentOpenerTest, SeveralFilesAreReadAtOnceAndFailuresNameTheirs)
{
    for (const QString& path : { storedFile("one.zelta"), filePath("missing.zelta"), storedFile("two.zelta") })
        opener->open(path, remember());
    waitUntilRead();
    ASSERT_EQ(told.size(), 3U);
    EXPECT_EQ(controller->documents().size(), 2);
    const auto failed = std::ranges::find_if(told, [](const Opened& opened) { return !opened; });
    ASSERT_NE(failed, told.end());
    EXPECT_TRUE(failed->error().message.startsWith(filePath("missing.zelta") + u": "_s));
}

TEST_F(ZLDocumentOpenerTest, WhatACrashLeftInTheJournalIsBroughtBack)
{
    const QString path = storedFile("show.zelta");
    ZLChapterDocument* document = open(path);
    document->recordButtonPressed();
    clock->seconds += 5.0;
    addChapter(*document, "Mine");
    const qsizetype count = document->chapterManager().count();
    opener.reset();
    start();
    opener = std::make_unique<ZLDocumentOpener>(*controller);
    opener->open(path, remember());
    waitUntilRead();
    ASSERT_TRUE(told.front());
    document = told.front().value();
    EXPECT_EQ(document->chapterManager().count(), count);
    EXPECT_TRUE(document->interruptedRecording());
    EXPECT_EQ(controller->saverOf(document)->path(), path);
}

TEST_F(ZLDocumentOpenerTest, WhatIsStillReadWhenTheProgramEndsIsLeftAsItIs)
{
    const QString path = storedFile("show.zelta");
    ZLChapterDocument* document = open(path);
    document->recordButtonPressed();
    addChapter(*document, "Mine");
    const qsizetype count = document->chapterManager().count();
    opener.reset();
    start();
    opener = std::make_unique<ZLDocumentOpener>(*controller);
    opener->open(path, remember());
    opener.reset();
    ASSERT_TRUE(QTest::qWaitFor([] { return !ZLAbandonedWork::isAny(); }, 60'000));
    QCoreApplication::processEvents();
    EXPECT_TRUE(told.empty());
    EXPECT_TRUE(controller->documents().isEmpty());
    EXPECT_EQ(open(path)->chapterManager().count(), count) << "the journal is free again, and whole";
}
