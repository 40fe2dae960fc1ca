#include "platform/ZLFileRemoval.h"

#include "support/ZLNoMoreDescriptors.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class ZLFileRemovalTest : public testing::Test {
protected:
    void SetUp() override
    {
        QFile file(m_path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(QByteArray(1'000'000, 'x'));
    }
    [[nodiscard]] QStringList names() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }

    const QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(u"long"_s);
};

TEST_F(ZLFileRemovalTest, TheNameIsGoneAtOnce)
{
    ZLFileRemoval::remove(m_path);
    EXPECT_TRUE(names().isEmpty());
    ZLFileRemoval::remove(m_path);
}

TEST_F(ZLFileRemovalTest, ALinkGoesAndTheFileStays)
{
    const QString link = m_folder.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(m_path, link));
    ZLFileRemoval::remove(link);
    EXPECT_EQ(names(), QStringList { u"long"_s });
}

TEST_F(ZLFileRemovalTest, APipeAndAFileThatCannotBeReadGoWithoutWaiting)
{
    const QString pipe = m_folder.filePath(u"pipe"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0), 0);
    ASSERT_TRUE(QFile::setPermissions(m_path, {}));
    ZLFileRemoval::remove(pipe);
    ZLFileRemoval::remove(m_path);
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(ZLFileRemovalTest, AFileGoesAlsoWhereNoDescriptorIsFree)
{
    {
        const ZLNoMoreDescriptors none;
        ZLFileRemoval::remove(m_path);
    }
    EXPECT_TRUE(names().isEmpty());
}
