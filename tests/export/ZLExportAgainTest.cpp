#include "export/ZLExportAgain.h"

#include "document/saving/ZLDocumentLock.h"
#include "export/ZLExportCase.h"
#include "export/formats/ZLRegisterExporters.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLExportAgainTest : public testing::Test {
protected:
    static void SetUpTestSuite() { ZLRegisterExporters(); }

    ZLExportTarget target(const QString& format, const QString& name, const QByteArray& bytes = "old") const
    {
        EXPECT_TRUE(ZLAtomicFile::write(at(name), bytes).isOk());
        return { .formatName = format, .path = at(name), .digest = ZLExportTargets::digestOf(bytes) };
    }
    QString at(const QString& name) const { return m_folder.filePath(name); }
    QByteArray contents(const QString& name) const
    {
        const auto bytes = ZLBoundedFile::read(at(name), ZLFileBound::Document);
        return bytes ? bytes.value() : QByteArray("no file");
    }

    QTemporaryDir m_folder;
    const ZLExportInput m_input { .chapters = { ZLExportCase::chapter(61, u"News"_s, {}, true) } };
};

TEST_F(ZLExportAgainTest, WritesEachFormatAsItWasWritten)
{
    ZLExportTarget markdown = target(u"Markdown"_s, u"a.mdown"_s);
    markdown.option = ZLExportOption::On;
    const ZLExportAgain again({ markdown, target(u"YouTube"_s, u"b.txt"_s) }, ZLExporter::allExporters());
    const auto outcome = again.write(again.targets(), m_input);
    EXPECT_EQ(outcome.problems, QStringList());
    EXPECT_EQ(contents(u"a.mdown"_s), u"*   00:01:01 – News\n"_s.toUtf8());
    EXPECT_EQ(contents(u"b.txt"_s), "01:01 News\n");
    ASSERT_EQ(outcome.written.size(), 2);
    EXPECT_EQ(outcome.written.at(1).digest, ZLExportTargets::digestOf("01:01 News\n"));
}

TEST_F(ZLExportAgainTest, SessionsAreLeftOut)
{
    const ZLExportAgain again(
        { target(u"Hindenburg"_s, u"show.nhsx"_s), target(u"No such format"_s, u"x"_s) }, ZLExporter::allExporters());
    EXPECT_TRUE(again.targets().isEmpty());
    EXPECT_EQ(again.sessions(), QStringList { at(u"show.nhsx"_s) });
}

TEST_F(ZLExportAgainTest, DoubtsAreToldApart)
{
    using Doubt = ZLExportAgain::Doubt;
    const ZLExportTarget written = target(u"YouTube"_s, u"b.txt"_s);
    EXPECT_EQ(ZLExportAgain::doubtAbout(written), Doubt::None);
    ASSERT_TRUE(ZLAtomicFile::write(at(u"b.txt"_s), "edited").isOk());
    EXPECT_EQ(ZLExportAgain::doubtAbout(written), Doubt::Changed);
    ASSERT_TRUE(QFile::remove(at(u"b.txt"_s)));
    EXPECT_EQ(ZLExportAgain::doubtAbout(written), Doubt::Gone);
    ASSERT_TRUE(QDir().mkpath(at(u"b.txt"_s)));
    EXPECT_EQ(ZLExportAgain::doubtAbout(written), Doubt::Unreadable);
}

TEST_F(ZLExportAgainTest, AFileThatAnotherProgramHasOpenIsADoubt)
{
    const ZLExportTarget written = target(u"YouTube"_s, u"b.txt"_s);
    QProcess reader;
    reader.start(u"/bin/sh"_s, { u"-c"_s, u"exec 3<\"$1\"; echo open; read line"_s, u"sh"_s, written.path });
    ASSERT_TRUE(reader.waitForReadyRead());
    EXPECT_EQ(ZLExportAgain::doubtAbout(written), ZLExportAgain::Doubt::Open);
    reader.write("\n");
    ASSERT_TRUE(reader.waitForFinished());
    EXPECT_EQ(ZLExportAgain::doubtAbout(written), ZLExportAgain::Doubt::None);
}

TEST_F(ZLExportAgainTest, AnOpenDocumentIsNeverWrittenOver)
{
    const ZLExportTarget document = target(u"YouTube"_s, u"show.zelta"_s);
    const ZLDocumentLock open(document.path);
    const ZLExportAgain again({ document, target(u"YouTube"_s, u"b.txt"_s) }, ZLExporter::allExporters());
    const auto outcome = again.write(again.targets(), m_input);
    EXPECT_EQ(outcome.problems.size(), 1);
    EXPECT_EQ(outcome.written.size(), 1);
    EXPECT_EQ(contents(u"show.zelta"_s), "old");
}
