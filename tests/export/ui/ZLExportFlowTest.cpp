#include "ZLExportFlowFixture.h"

#include "export/formats/ZLSimpleChaptersExporter.h"

#include <QTimer>

namespace {

const QByteArray emptyChapters =
    "<psc:chapters version=\"1.2\" xmlns:psc=\"http://podlove.org/simple-chapters\">\n</psc:chapters>\n";

}

class ZLExportFlowTest : public ZLExportFlowFixture { };

TEST_F(ZLExportFlowTest, WritesTheChaptersOfTheMomentOfConfirming)
{
    start<ZLSimpleChaptersExporter>(m_document.get());
    addChapter(2, u"Later added, earlier in time"_s);

    save(at(u"out.psc"_s));

    EXPECT_EQ(m_written, QStringList { at(u"out.psc"_s) });
    EXPECT_TRUE(m_failures.isEmpty());
    EXPECT_EQ(contentsOf(u"out.psc"_s),
        QByteArray(emptyChapters)
            .replace("</",
                "<psc:chapter start=\"00:00:02.000\" title=\"Later added, earlier in time\" />\n"
                "<psc:chapter start=\"00:00:05.000\" title=\"One &amp; only\" />\n</"));
    EXPECT_EQ(filesInFolder(), QStringList { u"out.psc"_s });
    EXPECT_TRUE(m_flow.isNull()) << "nothing outlives the export";
}

TEST_F(ZLExportFlowTest, TakesTheTypedNameAlsoWhenTheProposedFileExists)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"Episode 12.psc"_s), "precious").isOk());
    start<ZLSimpleChaptersExporter>(m_document.get());

    save(at(u"other.psc"_s));

    EXPECT_EQ(contentsOf(u"Episode 12.psc"_s), "precious");
    EXPECT_EQ(m_written, QStringList { at(u"other.psc"_s) });
}

TEST_F(ZLExportFlowTest, AppendsTheExtensionThatIsMissing)
{
    start<ZLSimpleChaptersExporter>(m_document.get());
    save(at(u"out"_s));
    EXPECT_EQ(filesInFolder(), QStringList { u"out.psc"_s });
}

TEST_F(ZLExportFlowTest, AppendsTheExtensionBehindAnyDotButNotTwice)
{
    start<ZLSimpleChaptersExporter>(m_document.get());
    save(at(u"Episode 1.5"_s));
    start<ZLSimpleChaptersExporter>(m_document.get());
    save(at(u"Other.PSC"_s));
    EXPECT_EQ(filesInFolder(), (QStringList { u"Episode 1.5.psc"_s, u"Other.PSC"_s }));
}

TEST_F(ZLExportFlowTest, CancellingWritesAndReportsNothing)
{
    start<ZLSimpleChaptersExporter>(m_document.get());
    type(at(u"out.psc"_s));

    press(QDialogButtonBox::Cancel);
    deleteFinished();

    EXPECT_TRUE(filesInFolder().isEmpty());
    EXPECT_TRUE(m_written.isEmpty());
    EXPECT_TRUE(m_failures.isEmpty());
    EXPECT_TRUE(m_flow.isNull());
}

TEST_F(ZLExportFlowTest, OverwritesAfterTheOneQuestionOfTheDialog)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"out.psc"_s), QByteArray(100000, 'x')).isOk());
    start<ZLSimpleChaptersExporter>(nullptr);
    type(at(u"out.psc"_s));
    int questions = 0;
    QTimer answering;
    QObject::connect(&answering, &QTimer::timeout, &answering, [&questions] {
        if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            ++questions;
            question->button(QMessageBox::Yes)->click();
        }
    });
    answering.start(0);

    press(QDialogButtonBox::Save);

    EXPECT_EQ(questions, 1);
    EXPECT_EQ(contentsOf(u"out.psc"_s), emptyChapters);
    EXPECT_EQ(m_written.size(), 1);
    deleteFinished();
}

TEST_F(ZLExportFlowTest, ReportsAFileThatCannotBeWritten)
{
    start<ZLSimpleChaptersExporter>(m_document.get());

    // Not even the administrator can make a file there.
    save(u"/proc/zelta-export.psc"_s);

    EXPECT_TRUE(m_written.isEmpty());
    ASSERT_EQ(m_failures.size(), 1);
    EXPECT_TRUE(m_failures.constFirst().startsWith("/proc/zelta-export.psc: "_L1))
        << qPrintable(m_failures.constFirst());
    EXPECT_FALSE(m_document->chapterManager().allChapters().isEmpty());
    EXPECT_TRUE(m_flow.isNull());
}

TEST_F(ZLExportFlowTest, LeavesNothingBehindInAFolderThatWentAway)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"gone"_s));
    start<ZLSimpleChaptersExporter>(m_document.get());
    type(at(u"gone/out.psc"_s));
    ASSERT_TRUE(QDir(m_folder.path()).rmdir(u"gone"_s));

    press(QDialogButtonBox::Save);
    deleteFinished();

    EXPECT_EQ(m_failures.size(), 1);
    EXPECT_TRUE(filesInFolder().isEmpty());
}

TEST_F(ZLExportFlowTest, WritesTheEmptyFileWithoutADocument)
{
    start<ZLSimpleChaptersExporter>(nullptr);
    EXPECT_EQ(QFileInfo(m_flow->dialog()->selectedFiles().value(0)).fileName(), u"Untitled.psc"_s);

    save(at(u"none.psc"_s));

    EXPECT_EQ(contentsOf(u"none.psc"_s), emptyChapters);
    EXPECT_EQ(m_written.size(), 1);
}

TEST_F(ZLExportFlowTest, WritesWhatADocumentHeldThatWasClosed)
{
    m_document->readFromData(ZLDocumentFile::encode({ .chapters = {}, .duration = 12.5, .templates = {} }));
    start<NotingExporter>(m_document.get());
    addChapter(2, u"Later added"_s);
    addChapter(3, u"And another"_s);
    m_flow->documentWillClose();
    m_document.reset();

    save(at(u"out.note"_s));

    EXPECT_EQ(contentsOf(u"out.note"_s), "2 12.5 0 out");
    EXPECT_TRUE(m_failures.isEmpty());
}

TEST_F(ZLExportFlowTest, HandsOverTheRecordedDuration)
{
    m_document->readFromData(ZLDocumentFile::encode({ .chapters = {}, .duration = 12.5, .templates = {} }));
    start<NotingExporter>(m_document.get());
    save(at(u"long.note"_s));
    EXPECT_EQ(contentsOf(u"long.note"_s), "0 12.5 0 long");
    // The length of a span that still runs is not known yet.
    m_document->startRecordingWithTime(m_hostClock->now() - 60.0);
    ASSERT_EQ(m_document->currentDuration(), 72.5);
    start<NotingExporter>(m_document.get());
    save(at(u"running.note"_s));
    EXPECT_EQ(contentsOf(u"running.note"_s), "0 12.5 0 running");
}

TEST_F(ZLExportFlowTest, RewritesAnExistingFileInPlace)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"my.session"_s), "session ").isOk());
    start<AppendingExporter>(m_document.get());
    EXPECT_EQ(m_flow->dialog()->acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(m_flow->dialog()->fileMode(), QFileDialog::ExistingFile);

    type(at(u"my.session"_s));
    press(QDialogButtonBox::Open);
    deleteFinished();

    EXPECT_EQ(contentsOf(u"my.session"_s), "session 1");
    EXPECT_EQ(m_written.size(), 1);
}

TEST_F(ZLExportFlowTest, LeavesAFileAloneThatTheFormatRefuses)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"my.session"_s), "poetry").isOk());
    start<AppendingExporter>(m_document.get());

    type(at(u"my.session"_s));
    press(QDialogButtonBox::Open);
    deleteFinished();

    EXPECT_EQ(m_failures, QStringList { u"No session."_s });
    EXPECT_EQ(contentsOf(u"my.session"_s), "poetry");
}
