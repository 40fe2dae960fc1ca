#include "platform/ZLRuntimeFolder.h"

#include "support/ZLRuntimeFolderInMemory.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLRuntimeFolderTest : public testing::Test {
protected:
    ~ZLRuntimeFolderTest() override { qputenv("XDG_RUNTIME_DIR", m_former); }

    const QByteArray m_former = qgetenv("XDG_RUNTIME_DIR");
};

TEST_F(ZLRuntimeFolderTest, ItIsTheUsersAlone)
{
    const QTemporaryDir folder;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
    EXPECT_EQ(ZLRuntimeFolder::path(), folder.path());
    ASSERT_TRUE(QFile(folder.path()).setPermissions(QFile::Permissions(0x7775)));
    EXPECT_EQ(ZLRuntimeFolder::path(), QString()) << "others can read in it";
}

TEST_F(ZLRuntimeFolderTest, WhatIsNoFolderIsNone)
{
    const QTemporaryDir folder;
    const QString link = folder.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(folder.path(), link));
    for (const QString& unusable : { QString(), u"relative"_s, u"/nowhere"_s, link }) {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(unusable));
        EXPECT_EQ(ZLRuntimeFolder::path(), QString()) << qPrintable(unusable);
    }
}

TEST_F(ZLRuntimeFolderTest, AFolderOnADiskIsNotInMemory)
{
    qputenv("XDG_RUNTIME_DIR", "/proc/self");
    EXPECT_EQ(ZLRuntimeFolder::pathInMemory(), QString());
    const ZLRuntimeFolderInMemory memory;
    if (!ZLRuntimeFolderInMemory::isInMemory())
        GTEST_SKIP() << "this system has no file system in memory";
    EXPECT_EQ(ZLRuntimeFolder::pathInMemory(), memory.path());
}
