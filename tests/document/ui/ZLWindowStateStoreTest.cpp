#include "document/ui/ZLWindowStateStore.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLWindowStateStoreTest, GivesBackWhatWasSaved)
{
    const QTemporaryDir folder;
    const ZLWindowStateStore store(folder.filePath(u"deep/window.ini"_s));
    EXPECT_FALSE(store.load());
    const ZLWindowState state { .geometry = QByteArray("place"), .panels = QByteArray("panels"), .titleShare = 0.25 };
    store.save(state);
    EXPECT_EQ(store.load(), state);
}

TEST(ZLWindowStateStoreTest, ADamagedFileReadsAsNoState)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"window.ini"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\x00\xff[[[garbage\n=\n", 14);
    file.close();
    EXPECT_FALSE(ZLWindowStateStore(file.fileName()).load());
}

TEST(ZLWindowStateStoreTest, StandsInTheStateFolder)
{
    const QByteArray before = qgetenv("XDG_STATE_HOME");
    qputenv("XDG_STATE_HOME", "/state");
    EXPECT_EQ(ZLWindowStateStore::standardPath(), u"/state/zelta/window.ini"_s);
    qputenv("XDG_STATE_HOME", "relative");
    EXPECT_EQ(ZLWindowStateStore::standardPath(), QDir::homePath() + u"/.local/state/zelta/window.ini"_s);
    qputenv("XDG_STATE_HOME", before);
}
