#include "app/ui/windows/ZLFileOpening.h"

#include "app/ui/ZLDesktopFixture.h"

using namespace Qt::StringLiterals;

class ZLFileOpeningTest : public ZLDesktopFixture {
protected:
    [[nodiscard]] QStringList names() const
    {
        QStringList names;
        const auto documents = m_controller.documents();
        for (const ZLChapterDocument* document : documents)
            names.append(document->displayName());
        return names;
    }
    int closeWhileReading(ZLChapterDocument* document, const QString& path)
    {
        return ZLProgramRun::run({ [&] {
            m_windows->open({ path });
            windowOf(document).close();
        } });
    }
};

TEST_F(ZLFileOpeningTest, FilesOpenInTheirOrderAndTheLastOneIsInFront)
{
    addChapter(newDocument(), u"Mine"_s);
    const QStringList problems = openLater(
        { .files = { storedFile(u"one.zelta"_s), filePath(u"missing.zelta"_s), storedFile(u"two.zelta"_s) } });
    EXPECT_EQ(names(), (QStringList { u"Untitled"_s, u"one.zelta"_s, u"two.zelta"_s }));
    ASSERT_EQ(problems.size(), 1);
    EXPECT_TRUE(problems.first().startsWith(filePath(u"missing.zelta"_s)));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&windowOf(m_controller.documents().last())));
    QString told;
    const auto documents = m_controller.documents();
    for (ZLChapterDocument* document : documents)
        told += barText(document);
    EXPECT_TRUE(told.contains(u"missing.zelta"_s));
}

TEST_F(ZLFileOpeningTest, AMarkIsMadeWhileAFileIsRead)
{
    ZLChapterDocument* show = openFile(storedFile(u"show.zelta"_s));
    show->recordButtonPressed();
    m_windows->open({ storedFile(u"other.zelta"_s) });
    ASSERT_TRUE(m_windows->isOpening());
    show->addChapterButtonPressed();
    EXPECT_EQ(show->chapterManager().count(), 2);
    EXPECT_TRUE(m_windows->isOpening());
    waitUntilRead();
    EXPECT_EQ(names(), (QStringList { u"show.zelta"_s, u"other.zelta"_s }));
    EXPECT_TRUE(show->isRecording());
}

TEST_F(ZLFileOpeningTest, ALongReadingIsSaidUntilItIsOver)
{
    ZLChapterDocument* front = newDocument();
    addChapter(front, u"Mine"_s);
    ZLChapterSequence chapters;
    for (int number = 0; number < 30'000; ++number)
        chapters.append(std::make_shared<ZLChapter>());
    ZLChapterDocument document(setup().environment);
    document.chapterManager().setChapters(chapters);
    ASSERT_TRUE(ZLAtomicFile::write(filePath(u"long.zelta"_s), document.dataOfType()));
    bool isSaid = false;
    m_windows->open({ filePath(u"long.zelta"_s) });
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            isSaid = isSaid || passingMessage(front) == u"Opening “long.zelta”…"_s;
            return !m_windows->isOpening();
        },
        60'000));
    EXPECT_TRUE(isSaid);
    EXPECT_EQ(passingMessage(front), QString());
}

TEST_F(ZLFileOpeningTest, TheProgramGoesOnWhenItsLastWindowClosesWhileAFileIsRead)
{
    ZLChapterDocument* document = newDocument();
    EXPECT_EQ(closeWhileReading(document, storedFile(u"show.zelta"_s)), ZLProgramRun::StillRunning);
    waitUntilRead();
    EXPECT_EQ(names(), QStringList { u"show.zelta"_s });
    EXPECT_TRUE(windowOf(m_controller.documents().first()).isVisible());
}

TEST_F(ZLFileOpeningTest, AFailureIsToldAlsoWhenNoWindowIsLeft)
{
    ZLChapterDocument* document = newDocument();
    (void)closeWhileReading(document, filePath(u"missing.zelta"_s));
    waitUntilRead();
    ASSERT_EQ(m_controller.documents().size(), 1);
    EXPECT_TRUE(barText(m_controller.documents().first()).contains(u"missing.zelta"_s));
}
