#include "platform/ZLBoundedFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class ZLBoundedFileTest : public testing::Test {
protected:
    [[nodiscard]] QString path() const { return m_folder.filePath(u"file"_s); }
    [[nodiscard]] QByteArray nativePath() const { return QFile::encodeName(path()); }

    void write(const QByteArray& bytes, const QString& name = u"file"_s) const
    {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    /// A file that claims to have `size` bytes and takes no room.
    void makeSparse(qint64 size) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(size));
    }

    void expectRefusal(ZLFileFinding finding, const QString& reason, qint64 bound = ZLFileBound::List) const
    {
        const ZLFoundFile found = ZLBoundedFile::find(path(), bound);
        EXPECT_EQ(found.finding, finding);
        EXPECT_TRUE(found.bytes.isEmpty());
        EXPECT_EQ(found.error.message, path() + u": "_s + reason);
        const auto bytes = ZLBoundedFile::read(path(), bound);
        ASSERT_FALSE(bytes);
        EXPECT_EQ(bytes.error().message, found.error.message);
        EXPECT_TRUE(ZLBoundedFile::findBeginning(path(), 3).bytes.isEmpty());
    }

    QTemporaryDir m_folder;
};

TEST_F(ZLBoundedFileTest, AFileUpToTheBoundIsReadWhole)
{
    for (const qsizetype size : { 0, 1, 4095, 4096 }) {
        const QByteArray bytes(size, 'x');
        write(bytes);
        const ZLFoundFile found = ZLBoundedFile::find(path(), ZLFileBound::Lock);
        EXPECT_EQ(found.finding, ZLFileFinding::Read);
        EXPECT_EQ(found.bytes, bytes);
        EXPECT_EQ(found.error.message, QString());
    }
}

TEST_F(ZLBoundedFileTest, OneByteMoreIsTooLarge)
{
    write(QByteArray(4097, 'x'));
    const ZLFoundFile found = ZLBoundedFile::find(path(), ZLFileBound::Lock);
    EXPECT_EQ(found.finding, ZLFileFinding::TooLarge);
    EXPECT_EQ(found.error.message, path() + u": The file is larger than 4 KiB."_s);
    EXPECT_EQ(ZLBoundedFile::findBeginning(path(), 7).bytes, QByteArray(7, 'x'));
}

TEST_F(ZLBoundedFileTest, AFileLargerThanAllMemoryIsRefusedBeforeItIsRead)
{
    makeSparse(qint64(1000) * 1000 * 1000 * 1000);
    const ZLFoundFile found = ZLBoundedFile::find(path(), ZLFileBound::Document);
    EXPECT_EQ(found.finding, ZLFileFinding::TooLarge);
    EXPECT_EQ(found.error.message, path() + u": The file is larger than 512 MiB."_s);
    EXPECT_EQ(ZLBoundedFile::findBeginning(path(), 5).bytes, QByteArray(5, '\0'));
}

TEST_F(ZLBoundedFileTest, WhatIsNotThereIsMissing)
{
    EXPECT_EQ(ZLBoundedFile::find(path(), ZLFileBound::List).finding, ZLFileFinding::Missing);
    ASSERT_EQ(symlink("nowhere", nativePath().constData()), 0);
    EXPECT_EQ(ZLBoundedFile::find(path(), ZLFileBound::List).finding, ZLFileFinding::Missing);
}

TEST_F(ZLBoundedFileTest, APipeWithoutAWriterKeepsNobodyWaiting)
{
    ASSERT_EQ(mkfifo(nativePath().constData(), 0600), 0);
    expectRefusal(ZLFileFinding::NoOrdinaryFile, u"This is a pipe, not a file."_s);
}

TEST_F(ZLBoundedFileTest, ADeviceIsNotRead)
{
    ASSERT_EQ(symlink("/dev/zero", nativePath().constData()), 0);
    expectRefusal(ZLFileFinding::NoOrdinaryFile, u"This is a device, not a file."_s);
}

TEST_F(ZLBoundedFileTest, AFolderIsNotRead)
{
    ASSERT_TRUE(QDir().mkdir(path()));
    expectRefusal(ZLFileFinding::NoOrdinaryFile, u"This is a folder, not a file."_s);
}

TEST_F(ZLBoundedFileTest, ASocketIsNotRead)
{
    sockaddr_un address { .sun_family = AF_UNIX, .sun_path = {} };
    ASSERT_LT(size_t(nativePath().size()), sizeof address.sun_path);
    nativePath().toStdString().copy(address.sun_path, sizeof address.sun_path - 1);
    const int socketDescriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(socketDescriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    expectRefusal(ZLFileFinding::NoOrdinaryFile, u"This is a socket, not a file."_s);
    close(socketDescriptor);
}

TEST_F(ZLBoundedFileTest, ALinkIsFollowedOnlyWhereItMayBe)
{
    write("there", u"target"_s);
    ASSERT_EQ(symlink("target", nativePath().constData()), 0);
    EXPECT_EQ(ZLBoundedFile::find(path(), ZLFileBound::List).bytes, "there");
    const ZLFoundFile found = ZLBoundedFile::find(path(), ZLFileBound::List, ZLFileLinks::Refuse);
    EXPECT_EQ(found.finding, ZLFileFinding::NoOrdinaryFile);
    EXPECT_EQ(found.error.message, path() + u": This is a symbolic link, which is not followed here."_s);
    EXPECT_TRUE(found.bytes.isEmpty());
}

TEST_F(ZLBoundedFileTest, ANameThatWasNotUtf8IsTold)
{
    const QString unfit = m_folder.filePath(u"caf\uFFFD.zelta"_s);
    const ZLFoundFile found = ZLBoundedFile::find(unfit, ZLFileBound::Document);
    EXPECT_EQ(found.finding, ZLFileFinding::Missing);
    EXPECT_EQ(found.error.message, unfit + u": The name is not UTF-8 text. Rename the file."_s);
    write("its real name", u"caf\uFFFD.zelta"_s);
    EXPECT_EQ(ZLBoundedFile::find(unfit, ZLFileBound::Document).bytes, "its real name");
}
