#include "app/ZLFileWords.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLFileWordsTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(QDir::setCurrent(m_folder.path())); }
    void TearDown() override { QDir::setCurrent(m_previousFolder); }

    /// What is wrong with `zelta ARGUMENTS`; empty when nothing is.
    static QString problemWith(const QStringList& arguments)
    {
        const auto commandLine = ZLCommandLine::parse(QStringList { u"zelta"_s } + arguments);
        EXPECT_TRUE(commandLine);
        const ZLStatus checked = ZLFileWords::check(commandLine.value());
        return checked ? QString() : checked.error().message;
    }
    static ZLMissingFile missingFile(const QStringList& arguments)
    {
        return ZLFileWords::missingFile(ZLCommandLine::parse(QStringList { u"zelta"_s } + arguments).value());
    }
    static void makeFile(const QString& name) { ASSERT_TRUE(QFile(name).open(QIODevice::WriteOnly)); }

    const QString m_previousFolder = QDir::currentPath();
    QTemporaryDir m_folder;
};

TEST_F(ZLFileWordsTest, AWordThatIsNeitherAFileNorACommandIsToldWithTheCommands)
{
    EXPECT_EQ(problemWith({ u"list"_s }),
        u"\"list\" is neither a file nor a command. The commands are export, fit, formats, import, send, show, write; "
        "\"zelta --help\" explains them."_s);
    EXPECT_EQ(problemWith({ u"--new"_s, u"show.zelta"_s, u"list"_s }).section(u'.', 0, 0),
        u"\"list\" is neither a file nor a command"_s);
}

TEST_F(ZLFileWordsTest, TheCommandsThatComeNearAreNamed)
{
    const QString known = u"\"%1\" is neither a file nor a command. Did you mean %2?"_s;
    EXPECT_EQ(problemWith({ u"exprot"_s }), known.arg(u"exprot"_s, u"\"zelta export\""_s));
    EXPECT_EQ(problemWith({ u"wirte"_s }), known.arg(u"wirte"_s, u"\"zelta write\""_s));
    EXPECT_EQ(problemWith({ u"Format"_s }), known.arg(u"Format"_s, u"\"zelta formats\""_s));
    EXPECT_EQ(problemWith({ u"newchapter"_s }), known.arg(u"newchapter"_s, u"\"zelta send newChapter\""_s));
    EXPECT_EQ(problemWith({ u"help"_s }), known.arg(u"help"_s, u"\"zelta --help\""_s));
    EXPECT_EQ(problemWith({ u"removechapter"_s }), known.arg(u"removechapter"_s, u"\"zelta send removeChapter\""_s));
    EXPECT_EQ(problemWith({ u"select"_s }),
        known.arg(u"select"_s, u"\"zelta send selectPreviousChapter\" or \"zelta send selectNextChapter\""_s));
    EXPECT_TRUE(problemWith({ QString(100000, u'x') }).contains("--help"_L1));
}

TEST_F(ZLFileWordsTest, AFileIsAFileWhateverItIsCalled)
{
    makeFile(u"list"_s);
    EXPECT_EQ(problemWith({ u"list"_s }), QString());
    EXPECT_EQ(problemWith({ u"show.zelta"_s }), QString()) << "that it is missing is told when it is opened";
    EXPECT_EQ(problemWith({ u"SHOW.ZELTA"_s }), QString());
    EXPECT_EQ(problemWith({ u"./list2"_s }), QString());
    EXPECT_EQ(problemWith({}), QString());
}

TEST_F(ZLFileWordsTest, OnlyTheRecorderWithoutAWindowMakesADocumentThatHasItsWholeName)
{
    EXPECT_EQ(missingFile({ u"--headless"_s, u"show.zelta"_s }), ZLMissingFile::Create);
    EXPECT_EQ(missingFile({ u"--headless"_s, u"shows/Show.Zelta"_s }), ZLMissingFile::Create);
    EXPECT_EQ(missingFile({ u"--headless"_s, u"shows/list"_s }), ZLMissingFile::Fail);
    EXPECT_EQ(missingFile({ u"show.zelta"_s }), ZLMissingFile::Fail);
    EXPECT_EQ(problemWith({ u"--headless"_s, u"list"_s }),
        u"There is no file \"list\", and the name of a new one ends in .zelta."_s);
}
