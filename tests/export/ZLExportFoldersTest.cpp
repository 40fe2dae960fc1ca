#include "export/ZLExportFolders.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLExportFoldersTest : public testing::Test {
protected:
    QString made(const QString& name)
    {
        EXPECT_TRUE(QDir(m_folder.path()).mkpath(name));
        return m_folder.filePath(name);
    }

    QTemporaryDir m_folder;
    const ZLExportFolders m_folders { m_folder.filePath(u"state"_s) };
};

TEST_F(ZLExportFoldersTest, AFormatStartsBesideTheDocumentUntilItWasWritten)
{
    const QString show = made(u"show"_s);
    const QString feed = made(u"feed"_s);
    EXPECT_EQ(m_folders.folderFor(u"JSON"_s, show + u"/show.zelta"_s), show);
    m_folders.remember(u"JSON"_s, feed + u"/chapters.json"_s);
    EXPECT_EQ(m_folders.folderFor(u"JSON"_s, show + u"/show.zelta"_s), feed);
    EXPECT_EQ(m_folders.folderFor(u"YouTube"_s, show + u"/show.zelta"_s), show) << "each format for itself";
    EXPECT_EQ(ZLExportFolders(m_folder.filePath(u"state"_s)).folderFor(u"JSON"_s, {}), feed)
        << "also at the next start";
}

TEST_F(ZLExportFoldersTest, AFolderThatIsGoneDoesNotCount)
{
    const QString show = made(u"show"_s);
    m_folders.remember(u"JSON"_s, made(u"feed"_s) + u"/chapters.json"_s);
    ASSERT_TRUE(QDir(m_folder.path()).rmdir(u"feed"_s));
    EXPECT_EQ(m_folders.folderFor(u"JSON"_s, show + u"/show.zelta"_s), show);
    ASSERT_TRUE(QDir(m_folder.path()).rmdir(u"show"_s));
    EXPECT_TRUE(QDir(m_folders.folderFor(u"JSON"_s, show + u"/show.zelta"_s)).exists());
}

TEST_F(ZLExportFoldersTest, AListThatIsBrokenIsNone)
{
    const QString show = made(u"show"_s);
    QFile file(made(u"state"_s) + u"/export-folders.json"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\"JSON\": 5");
    file.close();
    EXPECT_EQ(m_folders.folderFor(u"JSON"_s, show + u"/show.zelta"_s), show);
    m_folders.remember(u"JSON"_s, made(u"feed"_s) + u"/chapters.json"_s);
    EXPECT_EQ(m_folders.folderFor(u"JSON"_s, show + u"/show.zelta"_s), made(u"feed"_s));
}
