#include "platform/filemanager/ZLFileManager.h"

#include "platform/ZLPrivateBus.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// A file manager that writes down what it is asked to show.
class ZLNotingFileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;

public Q_SLOTS:
    void ShowItems(const QStringList& urls, const QString&) { shown += urls; }
};

class ZLFileManagerTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(m_bus.error(), QString()); }

    void show(const QString& path)
    {
        ZLFileManager::showFile(path, [this](const QString& folder) { m_opened += folder; }, m_bus.connection());
    }

    ZLPrivateBus m_bus;
    ZLNotingFileManager m_fileManager;
    QStringList m_opened;
};

TEST_F(ZLFileManagerTest, ShowsTheFileInItsFolder)
{
    QDBusConnection connection = m_bus.connection();
    ASSERT_TRUE(
        connection.registerObject(u"/org/freedesktop/FileManager1"_s, &m_fileManager, QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(connection.registerService(u"org.freedesktop.FileManager1"_s));

    show(u"/tmp/Größe & 100%.txt"_s);

    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_fileManager.shown.isEmpty(); }));
    EXPECT_EQ(m_fileManager.shown, QStringList { u"file:///tmp/Gr%C3%B6%C3%9Fe%20&%20100%25.txt"_s });
    EXPECT_EQ(m_opened, QStringList());
}

TEST_F(ZLFileManagerTest, OpensTheFolderWhereThereIsNoFileManager)
{
    show(u"/tmp/episodes/out.txt"_s);
    EXPECT_EQ(m_opened, QStringList()) << "it waits for no answer";
    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_opened.isEmpty(); }));
    EXPECT_EQ(m_opened, QStringList { u"/tmp/episodes"_s });
}

TEST_F(ZLFileManagerTest, OpensTheFolderWhereThereIsNoBus)
{
    ZLFileManager::showFile(
        u"/tmp/episodes/out.txt"_s, [this](const QString& folder) { m_opened += folder; },
        QDBusConnection(u"no such connection"_s));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_opened.isEmpty(); }));
}

#include "ZLFileManagerTest.moc"
