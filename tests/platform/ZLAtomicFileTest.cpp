#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class ZLAtomicFileTest : public testing::Test {
protected:
    [[nodiscard]] QString path(const QString& name = u"show.zelta"_s) const { return m_folder.filePath(name); }
    [[nodiscard]] QByteArray contents(const QString& name = u"show.zelta"_s) const
    {
        return ZLBoundedFile::read(path(name), ZLFileBound::Document).value();
    }
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir m_folder;
};

TEST_F(ZLAtomicFileTest, AFileIsCreatedAndReplacedAsAWhole)
{
    EXPECT_TRUE(ZLAtomicFile::write(path(), "a long first version"));
    EXPECT_EQ(contents(), "a long first version");
    EXPECT_TRUE(ZLAtomicFile::write(path(), QByteArray("s\0cond", 6)));
    EXPECT_EQ(contents(), QByteArray("s\0cond", 6));
    EXPECT_TRUE(ZLAtomicFile::write(path(), {}));
    EXPECT_EQ(contents(), QByteArray());
}

TEST_F(ZLAtomicFileTest, NothingIsLeftBesideTheFile)
{
    EXPECT_TRUE(ZLAtomicFile::write(path(), "one"));
    EXPECT_TRUE(ZLAtomicFile::write(path(), "two"));
    EXPECT_EQ(names(), QStringList({ u"show.zelta"_s }));
}

TEST_F(ZLAtomicFileTest, AReaderThatHasTheOldFileOpenSeesItUnchanged)
{
    EXPECT_TRUE(ZLAtomicFile::write(path(), "old"));
    QFile reader(path());
    ASSERT_TRUE(reader.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    EXPECT_TRUE(ZLAtomicFile::write(path(), "new"));
    EXPECT_EQ(reader.readAll(), "old");
    EXPECT_EQ(contents(), "new");
}

TEST_F(ZLAtomicFileTest, ASymbolicLinkStaysOneAndItsTargetIsWritten)
{
    EXPECT_TRUE(ZLAtomicFile::write(path(), "old"));
    ASSERT_TRUE(QFile::link(path(), path(u"link.zelta"_s)));
    EXPECT_TRUE(ZLAtomicFile::write(path(u"link.zelta"_s), "new"));
    EXPECT_TRUE(QFileInfo(path(u"link.zelta"_s)).isSymLink());
    EXPECT_EQ(contents(), "new");
}

TEST_F(ZLAtomicFileTest, PermissionsOfAnExistingFileAreKept)
{
    EXPECT_TRUE(ZLAtomicFile::write(path(), "old"));
    const auto permissions = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadUser
        | QFileDevice::WriteUser | QFileDevice::ReadGroup;
    ASSERT_TRUE(QFile::setPermissions(path(), permissions));
    EXPECT_TRUE(ZLAtomicFile::write(path(), "new"));
    const auto groupAndOthers = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup
        | QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    EXPECT_EQ(QFile::permissions(path()) & groupAndOthers, QFileDevice::ReadGroup);
}

TEST_F(ZLAtomicFileTest, ExtendedAttributesOfAnExistingFileAreKept)
{
    ASSERT_TRUE(ZLAtomicFile::write(path(), "old"));
    const QByteArray nativePath = QFile::encodeName(path());
    if (setxattr(nativePath.constData(), "user.comment", "take 2", 6, 0) != 0)
        GTEST_SKIP() << "no extended attributes in this file system";
    ASSERT_TRUE(ZLAtomicFile::write(path(), "new"));
    char value[16];
    ASSERT_EQ(getxattr(nativePath.constData(), "user.comment", value, sizeof value), 6);
    EXPECT_EQ(QByteArray(value, 6), "take 2");
}

TEST_F(ZLAtomicFileTest, TheOwnerOfAnExistingFileIsKept)
{
    ASSERT_TRUE(ZLAtomicFile::write(path(), "old"));
    const QByteArray nativePath = QFile::encodeName(path());
    if (chown(nativePath.constData(), 12345, 23456) != 0)
        GTEST_SKIP() << "only the superuser may give files away";
    ASSERT_TRUE(ZLAtomicFile::write(path(), "new"));
    struct stat status {};
    ASSERT_EQ(stat(nativePath.constData(), &status), 0);
    EXPECT_EQ(status.st_uid, 12345U);
    EXPECT_EQ(status.st_gid, 23456U);
}

TEST_F(ZLAtomicFileTest, AFailureNamesTheFile)
{
    const QString missing = path(u"no such folder/show.zelta"_s);
    const auto status = ZLAtomicFile::write(missing, "x");
    ASSERT_FALSE(status.isOk());
    EXPECT_TRUE(status.error().message.contains(missing)) << qPrintable(status.error().message);
    const auto bytes = ZLBoundedFile::read(path(), ZLFileBound::Document);
    ASSERT_FALSE(bytes.isOk());
    EXPECT_TRUE(bytes.error().message.contains(path())) << qPrintable(bytes.error().message);
}

TEST_F(ZLAtomicFileTest, AFolderIsNeitherReadNorReplaced)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"folder"_s));
    EXPECT_FALSE(ZLAtomicFile::write(path(u"folder"_s), "x"));
    EXPECT_FALSE(ZLBoundedFile::read(path(u"folder"_s), ZLFileBound::Document));
    EXPECT_TRUE(QFileInfo(path(u"folder"_s)).isDir());
    EXPECT_EQ(names(), QStringList({ u"folder"_s }));
}

TEST_F(ZLAtomicFileTest, AFullDeviceIsReportedAndTheOldFileStays)
{
    if (!QFileInfo::exists(u"/dev/full"_s))
        GTEST_SKIP() << "no device here that is always full";
    EXPECT_FALSE(ZLAtomicFile::write(u"/dev/full"_s, "x"));
}

TEST_F(ZLAtomicFileTest, ContentsThatAreMadeWhileTheyAreWrittenReplaceTheFile)
{
    ASSERT_TRUE(ZLAtomicFile::write(path(), "old"));
    const auto status = ZLAtomicFile::replace(path(), { .fill = [this](int descriptor) {
        EXPECT_EQ(contents(), "old");
        EXPECT_EQ(::write(descriptor, "new", 3), 3);
        EXPECT_EQ(names(), QStringList({ u"show.zelta"_s })) << "a kill now would leave something behind";
        return ZLStatus(ZLDone {});
    } });
    ASSERT_TRUE(status) << qPrintable(status.error().message);
    EXPECT_EQ(contents(), "new");
    EXPECT_EQ(names(), QStringList({ u"show.zelta"_s }));
}

TEST_F(ZLAtomicFileTest, AReplacementThatIsNotPermittedInTheEndLeavesTheOldFile)
{
    ASSERT_TRUE(ZLAtomicFile::write(path(), "old"));
    const auto fill = [](int descriptor) {
        EXPECT_EQ(::write(descriptor, "new", 3), 3);
        return ZLStatus(ZLDone {});
    };
    const auto refused =
        ZLAtomicFile::replace(path(), { .fill = fill, .permit = [] { return ZLStatus(ZLError { u"no"_s }); } });
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().message, path() + u": no"_s);
    const auto failed = ZLAtomicFile::replace(path(), { .fill = [](int) { return ZLStatus(ZLError { u"no"_s }); } });
    EXPECT_FALSE(failed);
    EXPECT_EQ(contents(), "old");
    EXPECT_EQ(names(), QStringList({ u"show.zelta"_s }));
}

TEST_F(ZLAtomicFileTest, NothingIsWrittenWhereTheDiskIsTooSmall)
{
    bool isFilled = false;
    const auto status = ZLAtomicFile::replace(path(),
        { .fill =
                [&](int) {
                    isFilled = true;
                    return ZLStatus(ZLDone {});
                },
            .size = qint64(1) << 60 });
    EXPECT_FALSE(status);
    EXPECT_FALSE(isFilled);
    EXPECT_EQ(names(), QStringList());
}

TEST_F(ZLAtomicFileTest, NamesAsLongAsNamesCanBeAreWritten)
{
    for (const qsizetype length : { 246, 249, 250, 255 }) {
        const QString name(length, u'n');
        EXPECT_TRUE(ZLAtomicFile::write(path(name), "one")) << length;
        EXPECT_TRUE(ZLAtomicFile::write(path(name), "two")) << length;
        EXPECT_EQ(contents(name), "two");
    }
    EXPECT_EQ(names().size(), 4);
}

TEST_F(ZLAtomicFileTest, ANameThatWasNotUtf8MakesNoFile)
{
    EXPECT_FALSE(ZLAtomicFile::write(path(u"caf\uFFFD.zelta"_s), "x"));
    EXPECT_EQ(names(), QStringList());
}

TEST_F(ZLAtomicFileTest, AFileOfTheProgramsOwnIsForItsUserAloneAndTakesThePlaceOfALink)
{
    EXPECT_TRUE(ZLAtomicFile::write(path(), "precious"));
    ASSERT_TRUE(QFile::link(path(), path(u"own"_s)));
    EXPECT_TRUE(ZLAtomicFile::writeForOwner(path(u"own"_s), "own"));
    EXPECT_EQ(contents(), "precious");
    EXPECT_EQ(contents(u"own"_s), "own");
    struct stat status {};
    ASSERT_EQ(lstat(QFile::encodeName(path(u"own"_s)).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & (S_IFMT | 07777), mode_t(S_IFREG | 0600));
}
