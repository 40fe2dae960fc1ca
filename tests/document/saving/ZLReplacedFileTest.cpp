#include "SavingFixture.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// What stands in the place of the user's file is no longer a file that could be read.
class ZLReplacedFileTest : public SavingFixture {
protected:
    [[nodiscard]] QByteArray nativePath() const { return QFile::encodeName(path); }

    void removeFile() const { ASSERT_TRUE(QFile::remove(path)); }

    void replaceByHugeFile() const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(qint64(1000) * 1000 * 1000 * 1000));
    }

    void expectFailure(ZLDocumentSaver& saver, const QString& reason)
    {
        addChapter("Meanwhile");
        writeAndSettle(saver);
        EXPECT_EQ(saver.state(), ZLSavingState::Failed);
        EXPECT_EQ(saver.failureText(), path + u": "_s + reason);
        EXPECT_EQ(saver.plannedDelay(), ZLWriteSchedule::RetryInterval);
        EXPECT_EQ(journaledTitles(), QStringList { u"Meanwhile"_s });
        EXPECT_FALSE(saver.saveNow()) << "as at the end of the program";
    }

    void expectSavedOnceItIsGone(ZLDocumentSaver& saver)
    {
        removeFile();
        writeAndSettle(saver);
        EXPECT_EQ(saver.state(), ZLSavingState::Saved);
        EXPECT_EQ(titlesIn(path), QStringList { u"Meanwhile"_s });
    }

    const QString path = filePath("show.zelta");
};

TEST_F(ZLReplacedFileTest, AHugeFileIsAnotherProgramsAndTheUserDecides)
{
    const auto saver = titledSaver(path);
    replaceByHugeFile();
    addChapter("Mine");
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Conflict);
    EXPECT_EQ(saver->failureText(), path + u": Another program changed the file."_s);
    const ZLStatus taken = tookTheirs(*saver);
    ASSERT_FALSE(taken);
    EXPECT_EQ(taken.error().message, path + u": The file is larger than 512 MiB."_s);
    EXPECT_EQ(saver->state(), ZLSavingState::Conflict);
    EXPECT_TRUE(keptMine(*saver));
    EXPECT_EQ(titlesIn(path), QStringList { u"Mine"_s });
}

TEST_F(ZLReplacedFileTest, APipeIsToldAndNobodyWaitsForIt)
{
    const auto saver = titledSaver(path);
    removeFile();
    ASSERT_EQ(mkfifo(nativePath().constData(), 0600), 0);
    expectFailure(*saver, u"This is a pipe, not a file."_s);
    expectSavedOnceItIsGone(*saver);
}

TEST_F(ZLReplacedFileTest, ADeviceIsToldAndNotRead)
{
    const auto saver = titledSaver(path);
    removeFile();
    ASSERT_EQ(symlink("/dev/zero", nativePath().constData()), 0);
    expectFailure(*saver, u"This is a device, not a file."_s);
    expectSavedOnceItIsGone(*saver);
}

TEST_F(ZLReplacedFileTest, AFolderIsToldAndStays)
{
    const auto saver = titledSaver(path);
    removeFile();
    ASSERT_TRUE(QDir().mkdir(path));
    expectFailure(*saver, u"This is a folder, not a file."_s);
    EXPECT_TRUE(QFileInfo(path).isDir());
}

TEST_F(ZLReplacedFileTest, ALockFileThatIsAPipeKeepsNobodyWaiting)
{
    const QByteArray lockPath = QFile::encodeName(ZLDocumentLock::lockPath(path));
    ASSERT_EQ(mkfifo(lockPath.constData(), 0600), 0);
    const auto saver = titledSaver(path);
    EXPECT_EQ(saver->otherHolder(), QString());
    addChapter("Mine");
    EXPECT_TRUE(saver->saveNow());
    EXPECT_EQ(titlesIn(path), QStringList { u"Mine"_s });
}

TEST_F(ZLReplacedFileTest, ALockFileThatIsALinkIsNotWrittenThrough)
{
    ASSERT_TRUE(ZLAtomicFile::write(filePath("precious"), "precious"));
    ASSERT_TRUE(QFile::link(filePath("precious"), ZLDocumentLock::lockPath(path)));
    const auto saver = titledSaver(path);
    EXPECT_EQ(saver->otherHolder(), QString()) << "and what it leads to is not told either";
    EXPECT_EQ(ZLBoundedFile::read(filePath("precious"), ZLFileBound::Lock).value(), "precious");
}
