#include "platform/ZLFileLock.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class ZLFileLockTest : public testing::Test {
protected:
    [[nodiscard]] QString path() const { return m_folder.filePath(u"file.lock"_s); }
    [[nodiscard]] QByteArray nativePath() const { return QFile::encodeName(path()); }

    [[nodiscard]] static QByteArray contentsOf(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing");
    }

    void expectRefusal(const QString& reason) const
    {
        const auto lock = ZLFileLock::tryLock(path());
        ASSERT_FALSE(lock);
        EXPECT_EQ(lock.error().message, path() + u": "_s + reason);
    }

    QTemporaryDir m_folder;
};

TEST_F(ZLFileLockTest, OneHolderAtATimeAndNoFileIsLeft)
{
    auto first = ZLFileLock::tryLock(path());
    ASSERT_TRUE(first && first.value());
    const auto second = ZLFileLock::tryLock(path());
    ASSERT_TRUE(second);
    EXPECT_FALSE(second.value());
    std::move(first).value().reset();
    EXPECT_FALSE(QFile::exists(path()));
    const auto third = ZLFileLock::tryLock(path());
    EXPECT_TRUE(third && third.value());
}

TEST_F(ZLFileLockTest, WhatTheHolderWritesTakesThePlaceOfWhatStoodThere)
{
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("a much longer text of a holder that died");
    file.close();
    const auto lock = ZLFileLock::tryLock(path());
    ASSERT_TRUE(lock && lock.value());
    lock.value()->write("studio");
    EXPECT_EQ(contentsOf(path()), "studio");
}

TEST_F(ZLFileLockTest, APipeIsNoLockFile)
{
    ASSERT_EQ(mkfifo(nativePath().constData(), 0600), 0);
    expectRefusal(u"This is a pipe, not a file."_s);
}

TEST_F(ZLFileLockTest, ALinkIsNeverFollowed)
{
    const QString target = m_folder.filePath(u"precious"_s);
    QFile file(target);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("precious");
    file.close();
    ASSERT_EQ(symlink("precious", nativePath().constData()), 0);
    EXPECT_FALSE(ZLFileLock::tryLock(path()));
    EXPECT_EQ(contentsOf(target), "precious");
    ASSERT_EQ(unlink(nativePath().constData()), 0);
    ASSERT_EQ(symlink("nowhere", nativePath().constData()), 0);
    EXPECT_FALSE(ZLFileLock::tryLock(path()));
    EXPECT_FALSE(QFile::exists(m_folder.filePath(u"nowhere"_s)));
}

TEST_F(ZLFileLockTest, AFolderIsNoLockFile)
{
    ASSERT_TRUE(QDir().mkdir(path()));
    EXPECT_FALSE(ZLFileLock::tryLock(path()));
    EXPECT_TRUE(QDir(path()).exists());
}
