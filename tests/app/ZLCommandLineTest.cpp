#include "app/ZLCommandLine.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

ZLResult<ZLCommandLine> parsed(const QStringList& arguments)
{
    return ZLCommandLine::parse(QStringList { u"zelta"_s } + arguments);
}

void expectUsageError(const QStringList& arguments)
{
    const auto result = parsed(arguments);
    const std::string shown = arguments.join(u' ').toStdString();
    ASSERT_FALSE(result.isOk()) << shown;
    EXPECT_FALSE(result.error().message.trimmed().isEmpty()) << shown;
    EXPECT_FALSE(result.error().message.contains(u'\n')) << shown;
}

}

TEST(ZLCommandLine, OpensWindowsForAnyNumberOfFiles)
{
    EXPECT_EQ(parsed({}).value().command, ZLCommand::OpenWindows);
    EXPECT_TRUE(parsed({}).value().files.isEmpty());
    const auto commandLine = parsed({ u"a.zelta"_s, u"b c.zelta"_s, u"show"_s }).value();
    EXPECT_EQ(commandLine.command, ZLCommand::OpenWindows);
    EXPECT_EQ(commandLine.files, (QStringList { u"a.zelta"_s, u"b c.zelta"_s, u"show"_s }));
    EXPECT_FALSE(commandLine.isFileCommand());
}

TEST(ZLCommandLine, OpensWindowsWithoutAnyArguments)
{
    ASSERT_TRUE(ZLCommandLine::parse({}).isOk());
    EXPECT_EQ(ZLCommandLine::parse({}).value().command, ZLCommand::OpenWindows);
}

TEST(ZLCommandLine, TakesAFileNamedLikeACommand)
{
    for (const QString& word : { u"formats"_s, u"export"_s, u"show"_s }) {
        const auto byPath = parsed({ u"./"_s + word }).value();
        EXPECT_EQ(byPath.command, ZLCommand::OpenWindows);
        EXPECT_EQ(byPath.files, QStringList { u"./"_s + word });
        EXPECT_EQ(parsed({ u"--"_s, word }).value().files, QStringList { word });
    }
}

TEST(ZLCommandLine, TakesAFileThatLooksLikeAnOptionAfterTwoHyphens)
{
    EXPECT_EQ(parsed({ u"--"_s, u"--help"_s }).value().files, QStringList { u"--help"_s });
    const auto show = parsed({ u"show"_s, u"--"_s, u"--json"_s }).value();
    EXPECT_EQ(show.files, QStringList { u"--json"_s });
    EXPECT_EQ(show.showForm, ZLShowForm::Table);
}

TEST(ZLCommandLine, RecordsHeadless)
{
    const auto plain = parsed({ u"--headless"_s }).value();
    EXPECT_EQ(plain.command, ZLCommand::RecordHeadless);
    EXPECT_EQ(plain.headlessStart, ZLHeadlessStart::Paused);
    EXPECT_TRUE(plain.files.isEmpty());
    const auto recording = parsed({ u"--headless"_s, u"--record"_s, u"show.zelta"_s }).value();
    EXPECT_EQ(recording.headlessStart, ZLHeadlessStart::Recording);
    EXPECT_EQ(recording.files, QStringList { u"show.zelta"_s });
    EXPECT_EQ(parsed({ u"show.zelta"_s, u"--record"_s, u"--headless"_s }).value().command, ZLCommand::RecordHeadless);
    EXPECT_FALSE(plain.isFileCommand());
}

TEST(ZLCommandLine, FollowsARecorderWithoutAWindow)
{
    for (const QString& word : { u"obs"_s, u"jack"_s, u"osc"_s })
        EXPECT_EQ(parsed({ u"--headless"_s, u"--follow"_s, word }).value().follow, word);
    EXPECT_EQ(parsed({ u"--headless"_s }).value().follow, QString());
}

TEST(ZLCommandLine, ListsFormats)
{
    EXPECT_EQ(parsed({ u"formats"_s }).value().command, ZLCommand::ListFormats);
    EXPECT_TRUE(parsed({ u"formats"_s }).value().isFileCommand());
}

TEST(ZLCommandLine, ExportsOneFile)
{
    const auto commandLine =
        parsed({ u"export"_s, u"--format"_s, u"Final Cut"_s, u"--option"_s, u"--output"_s, u"o.x"_s, u"in.zelta"_s })
            .value();
    EXPECT_EQ(commandLine.command, ZLCommand::ExportFile);
    EXPECT_EQ(commandLine.formatName, u"Final Cut"_s);
    EXPECT_EQ(commandLine.exportOption, ZLExportOption::On);
    EXPECT_EQ(commandLine.outputPath, u"o.x"_s);
    EXPECT_EQ(commandLine.files, QStringList { u"in.zelta"_s });
    EXPECT_TRUE(commandLine.isFileCommand());
    const auto otherOrder = parsed({ u"export"_s, u"in.zelta"_s, u"--output=o"_s, u"--format=F"_s }).value();
    EXPECT_EQ(otherOrder.exportOption, ZLExportOption::Off);
    EXPECT_EQ(otherOrder.outputPath, u"o"_s);
}

TEST(ZLCommandLine, ShowsOneFile)
{
    const auto table = parsed({ u"show"_s, u"in.zelta"_s }).value();
    EXPECT_EQ(table.command, ZLCommand::ShowFile);
    EXPECT_EQ(table.showForm, ZLShowForm::Table);
    EXPECT_EQ(parsed({ u"show"_s, u"--json"_s, u"in.zelta"_s }).value().showForm, ZLShowForm::Json);
    EXPECT_EQ(parsed({ u"show"_s, u"show"_s }).value().files, QStringList { u"show"_s });
}

TEST(ZLCommandLine, GivesHelpAndVersionAnywhere)
{
    EXPECT_EQ(parsed({ u"--help"_s }).value().command, ZLCommand::PrintHelp);
    EXPECT_EQ(parsed({ u"-h"_s }).value().command, ZLCommand::PrintHelp);
    EXPECT_EQ(parsed({ u"export"_s, u"--help"_s }).value().command, ZLCommand::PrintHelp);
    EXPECT_EQ(parsed({ u"--version"_s }).value().command, ZLCommand::PrintVersion);
    EXPECT_TRUE(parsed({ u"--version"_s }).value().isFileCommand());
    for (const QString& word : { u"--headless"_s, u"formats"_s, u"export --format NAME"_s, u"show [--json]"_s })
        EXPECT_TRUE(ZLCommandLine::helpText().contains(word)) << qPrintable(word);
}

TEST(ZLCommandLine, LetsOptionsOfTheWindowToolkitPass)
{
    const auto commandLine = parsed({ u"-platform"_s, u"offscreen"_s, u"-session"_s, u"1_2"_s, u"a.zelta"_s });
    ASSERT_TRUE(commandLine.isOk());
    EXPECT_EQ(commandLine.value().files, QStringList { u"a.zelta"_s });
}

TEST(ZLCommandLine, ListensAlongToAnInput)
{
    EXPECT_EQ(parsed({ u"--headless"_s }).value().listeningSource, std::nullopt);
    EXPECT_EQ(parsed({ u"--headless"_s, u"--listen"_s, u"card.monitor"_s }).value().listeningSource, u"card.monitor"_s);
    EXPECT_EQ(parsed({ u"--headless"_s, u"--listen"_s, u"default"_s }).value().listeningSource, QString());
    expectUsageError({ u"--listen"_s, u"default"_s });
    expectUsageError({ u"--headless"_s, u"--listen"_s });
    expectUsageError({ u"--headless"_s, u"--listen"_s, QString() });
}

TEST(ZLCommandLine, FitsWithARecordingOrWithWhatWasHeardAlong)
{
    const auto along = parsed({ u"fit"_s, u"--finished"_s, u"a.mp3"_s, u"show.zelta"_s }).value();
    EXPECT_EQ(along.command, ZLCommand::FitChapters);
    EXPECT_EQ(along.heardPath, QString());
    expectUsageError({ u"fit"_s, u"--finished"_s, u"a.mp3"_s, u"--zero"_s, u"3"_s, u"show.zelta"_s });
    expectUsageError({ u"fit"_s, u"--finished"_s, u"a.mp3"_s, u"--heard"_s, QString(), u"show.zelta"_s });
}

TEST(ZLCommandLine, AsksForANewDocument)
{
    EXPECT_FALSE(parsed({ u"a.zelta"_s }).value().wantsNewDocument);
    EXPECT_TRUE(parsed({ u"--new"_s }).value().wantsNewDocument);
    EXPECT_EQ(parsed({ u"--new"_s, u"a.zelta"_s }).value().files, QStringList { u"a.zelta"_s });
}

TEST(ZLCommandLine, RefusesWrongUsage)
{
    expectUsageError({ u"--headless"_s, u"--new"_s });
    expectUsageError({ u"--bogus"_s });
    expectUsageError({ u"--bogus\nline"_s });
    expectUsageError({ u"-x"_s });
    expectUsageError({ u""_s });
    expectUsageError({ u"--record"_s });
    expectUsageError({ u"--record"_s, u"a.zelta"_s });
    expectUsageError({ u"--headless"_s, u"a.zelta"_s, u"b.zelta"_s });
    expectUsageError({ u"--headless=1"_s });
    expectUsageError({ u"--follow"_s, u"osc"_s });
    expectUsageError({ u"--headless"_s, u"--follow"_s, u"tape"_s });
    expectUsageError({ u"--headless"_s, u"--follow"_s });
    expectUsageError({ u"formats"_s, u"a.zelta"_s });
    expectUsageError({ u"formats"_s, u"--json"_s });
    expectUsageError({ u"show"_s });
    expectUsageError({ u"show"_s, u"a.zelta"_s, u"b.zelta"_s });
    expectUsageError({ u"show"_s, u"--headless"_s, u"a.zelta"_s });
    expectUsageError({ u"--json"_s, u"show"_s, u"a.zelta"_s });
    expectUsageError({ u"export"_s });
    expectUsageError({ u"export"_s, u"--format"_s });
    expectUsageError({ u"export"_s, u"--output"_s, u"o"_s, u"a.zelta"_s });
    expectUsageError({ u"export"_s, u"--format"_s, u"F"_s, u"a.zelta"_s });
    expectUsageError({ u"export"_s, u"--format"_s, u"F"_s, u"--output"_s, u"o"_s });
    expectUsageError({ u"export"_s, u"--format"_s, u"F"_s, u"--output"_s, u""_s, u"a.zelta"_s });
    expectUsageError({ u"export"_s, u"--format"_s, u"F"_s, u"--output"_s, u"o"_s, u"a.zelta"_s, u"b.zelta"_s });
}
