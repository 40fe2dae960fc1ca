#include "document/saving/ZLRecoveryFolder.h"

#include "platform/ZLAtomicFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class ZLRecoveryFolderTest : public testing::Test {
protected:
    std::unique_ptr<ZLRecoveryFile> createFile(const QByteArray& bytes)
    {
        auto created = folder.createFile();
        EXPECT_TRUE(created);
        auto file = std::move(created).value();
        EXPECT_TRUE(ZLAtomicFile::write(file->path(), bytes));
        return file;
    }

    std::unique_ptr<ZLRecoveryFile> claim(const QString& path)
    {
        auto claimed = folder.claim(path);
        EXPECT_TRUE(claimed);
        return std::move(claimed).value();
    }

    QTemporaryDir temporary;
    ZLRecoveryFolder folder { temporary.filePath(u"state/zelta/recovery"_s) };
};

TEST_F(ZLRecoveryFolderTest, TheFolderIsMadeForItsUserAlone)
{
    EXPECT_TRUE(folder.prepare());
    constexpr auto owner = QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;
    EXPECT_EQ(QFile::permissions(folder.path()) & ~owner, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::permissions(folder.path()) | QFile::ReadOther));
    EXPECT_TRUE(folder.prepare());
    EXPECT_FALSE(QFile::permissions(folder.path()) & QFile::ReadOther);
}

TEST_F(ZLRecoveryFolderTest, NamesAreNewEachTimeAndListedInTheOrderOfTheirMaking)
{
    const auto first = createFile("1");
    const auto second = createFile("2");
    EXPECT_NE(first->path(), second->path());
    QStringList paths { first->path(), second->path() };
    paths.sort();
    EXPECT_EQ(folder.files(), paths);
}

TEST_F(ZLRecoveryFolderTest, AHeldFileIsClosedToOthersUntilItsHolderLetsItGo)
{
    auto file = createFile("1");
    const QString path = file->path();
    EXPECT_EQ(claim(path), nullptr);
    file.reset();
    const auto claimed = claim(path);
    ASSERT_NE(claimed, nullptr);
    EXPECT_EQ(claimed->path(), path);
    EXPECT_EQ(claim(path), nullptr);
}

TEST_F(ZLRecoveryFolderTest, AFileThatIsGoneCannotBeClaimed)
{
    auto file = createFile("1");
    const QString path = file->path();
    file->remove();
    file.reset();
    EXPECT_EQ(claim(path), nullptr);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList()) << "no lock is left over";
}

TEST_F(ZLRecoveryFolderTest, WhatWasHeardOfAShowThatIsGoneGoes)
{
    ASSERT_TRUE(folder.prepare());
    const auto heardOf = [this](const QString& name) {
        const QString path = folder.path() + u'/' + name;
        EXPECT_TRUE(ZLAtomicFile::write(path + ZLRecoveryFile::ListeningSuffix, "heard"));
        return path;
    };
    const QString left = heardOf(u"left.zelta"_s);
    const QString journaled = heardOf(u"journaled.zelta"_s);
    ASSERT_TRUE(ZLAtomicFile::write(journaled + ZLRecoveryFile::JournalSuffix, "journal"));
    const QString kept = heardOf(u"kept.zelta"_s);
    ASSERT_TRUE(ZLAtomicFile::write(kept, "document"));
    // The journal of a show that is being recorded may not be on the disk yet.
    auto created = folder.createFile();
    ASSERT_TRUE(created);
    const auto held = std::move(created).value();
    ASSERT_TRUE(ZLAtomicFile::write(held->listeningPath(), "heard"));
    folder.removeLeftListening();
    EXPECT_FALSE(QFile::exists(left + ZLRecoveryFile::ListeningSuffix));
    EXPECT_FALSE(QFile::exists(left + u".lock"_s));
    EXPECT_TRUE(QFile::exists(journaled + ZLRecoveryFile::ListeningSuffix));
    EXPECT_TRUE(QFile::exists(kept + ZLRecoveryFile::ListeningSuffix));
    EXPECT_TRUE(QFile::exists(held->listeningPath()));
}

TEST_F(ZLRecoveryFolderTest, TheLockOfADeadProcessStandsInNobodysWay)
{
    auto file = createFile("1");
    const QString path = file->path();
    file.reset();

    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t holder = fork();
    if (holder == 0) {
        const auto lock = ZLFileLock::tryLock(path + u".lock"_s);
        const char answer = lock && lock.value() ? 'y' : 'n';
        if (write(ready[1], &answer, 1) == 1)
            pause();
        _exit(1);
    }
    ASSERT_GT(holder, 0);
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    EXPECT_EQ(claim(path), nullptr);

    kill(holder, SIGKILL);
    waitpid(holder, nullptr, 0);
    EXPECT_TRUE(QFile::exists(path + u".lock"_s)) << "a killed process cannot tidy up";
    EXPECT_NE(claim(path), nullptr);
    close(ready[0]);
    close(ready[1]);
}

}
