#include "platform/ZLSocketPath.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <unistd.h>

using namespace Qt::StringLiterals;

class ZLSocketPathTest : public testing::Test {
protected:
    ZLSocketPathTest() { qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_runtimeFolder.path())); }
    ~ZLSocketPathTest() override { qputenv("XDG_RUNTIME_DIR", m_previousRuntimeFolder); }

    [[nodiscard]] static QString longPath(const QString& name)
    {
        return u"/home/somebody/"_s + QString(ZLSocketPath::LongestPath, u'd') + u'/' + name;
    }
    [[nodiscard]] static QString folderOfUser() { return u"/tmp/zelta-%1/"_s.arg(geteuid()); }

    const QByteArray m_previousRuntimeFolder = qgetenv("XDG_RUNTIME_DIR");
    const QTemporaryDir m_runtimeFolder;
};

TEST_F(ZLSocketPathTest, APathThatFitsStays)
{
    const QString path = u'/' + QString(ZLSocketPath::LongestPath - 1, u'd');
    EXPECT_EQ(ZLSocketPath::reachable(path), path);
}

TEST_F(ZLSocketPathTest, EachLongPathHasAShortOneInTheRuntimeFolder)
{
    const QString commands = ZLSocketPath::reachable(longPath(u"commands"_s));
    EXPECT_TRUE(commands.startsWith(m_runtimeFolder.path() + u'/')) << qPrintable(commands);
    EXPECT_LE(commands.size(), ZLSocketPath::LongestPath);
    EXPECT_EQ(commands, ZLSocketPath::reachable(longPath(u"commands"_s)));
    EXPECT_NE(commands, ZLSocketPath::reachable(longPath(u"windows"_s)));
}

TEST_F(ZLSocketPathTest, LengthIsCountedInBytes)
{
    const QString path = u'/' + QString(ZLSocketPath::LongestPath - 1, u'ä');
    EXPECT_NE(ZLSocketPath::reachable(path), path);
}

TEST_F(ZLSocketPathTest, AFolderThatOthersMayEnterIsNotUsed)
{
    ASSERT_TRUE(QFile(m_runtimeFolder.path()).setPermissions(QFile::Permissions(0x7777)));
    EXPECT_TRUE(ZLSocketPath::reachable(longPath(u"commands"_s)).startsWith(folderOfUser()));
}

TEST_F(ZLSocketPathTest, WithoutAUsableRuntimeFolderTheUserHasOneOfHisOwn)
{
    for (const QString& unusable : { QString(), u"relative"_s, u"/nowhere"_s, longPath(u"run"_s) }) {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(unusable));
        const QString path = ZLSocketPath::reachable(longPath(u"commands"_s));
        EXPECT_TRUE(path.startsWith(folderOfUser())) << qPrintable(path);
        EXPECT_EQ(
            QFileInfo(folderOfUser()).permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    }
}
