#include "ZLFileCommandsFixture.h"

#include "document/saving/ZLDocumentLock.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

class ZLFileCommandsTest : public ZLFileCommandsFixture { };

TEST_F(ZLFileCommandsTest, ListsTheFormats)
{
    EXPECT_EQ(run({ u"formats"_s }), 0);
    EXPECT_EQ(m_out,
        u"Auphonic\ttxt\nFinal Cut Pro X\tfcpxml\nHindenburg\tnhsx\nJSON\tjson\nMarkdown\tmdown\n"
        "Podlove Simple Chapters\tpsc\nTitles as Tags\ttxt\nYouTube\ttxt\nCheckbox\tbox\nIn place\tsession\n"_s);
    EXPECT_EQ(m_err, QString());
}

TEST_F(ZLFileCommandsTest, PrintsHelpAndVersion)
{
    EXPECT_EQ(run({ u"--help"_s }), 0);
    EXPECT_EQ(m_out, ZLCommandLine::helpText());
    EXPECT_EQ(run({ u"--version"_s }), 0);
    EXPECT_TRUE(m_out.startsWith("Zelta "_L1) && m_out.endsWith(u'\n') && m_out.at(6).isDigit()) << qPrintable(m_out);
}

TEST_F(ZLFileCommandsTest, RefusesWrongUsage)
{
    store({});
    expectFailure(2, { u"--bogus"_s });
    expectFailure(2, { u"show"_s });
    expectFailure(2, exportTo(at(u"out"_s), u"No such"_s));
    EXPECT_TRUE(m_err.contains("Podlove Simple Chapters, Titles as Tags, YouTube, Checkbox, In place"_L1))
        << qPrintable(m_err);
    expectFailure(2, exportTo(at(u"out"_s), u"Podlove Simple Chapters"_s) + QStringList { u"--option"_s });
}

TEST_F(ZLFileCommandsTest, ExportsTheEnabledChaptersInOrder)
{
    store({ storedChapter(65.5, u"Second & last"_s), storedChapter(3, u"Hidden"_s, {}, false),
        storedChapter(2, u"First"_s, u"https://x.example"_s) });

    EXPECT_EQ(run(exportTo(at(u"out.psc"_s), u"podlove simple CHAPTERS"_s)), 0);

    EXPECT_EQ(contentsOf(at(u"out.psc"_s)),
        "<psc:chapters version=\"1.2\" xmlns:psc=\"http://podlove.org/simple-chapters\">\n"
        "<psc:chapter start=\"00:00:02.000\" title=\"First\" href=\"https://x.example\"/>\n"
        "<psc:chapter start=\"00:01:05.500\" title=\"Second &amp; last\" />\n"
        "</psc:chapters>\n");
    EXPECT_EQ(m_out, QString());
    EXPECT_EQ(m_err, QString());
    EXPECT_EQ(filesInFolder(), (QStringList { u"in.zelta"_s, u"out.psc"_s }));
}

TEST_F(ZLFileCommandsTest, ExportReplacesAnExistingFile)
{
    store({});
    ASSERT_TRUE(ZLAtomicFile::write(at(u"out.psc"_s), QByteArray(5000, 'x')).isOk());
    EXPECT_EQ(run(exportTo(at(u"out.psc"_s), u"Podlove Simple Chapters"_s)), 0);
    EXPECT_TRUE(contentsOf(at(u"out.psc"_s)).endsWith("</psc:chapters>\n"));
    EXPECT_FALSE(contentsOf(at(u"out.psc"_s)).contains('x' + QByteArray("x")));
}

TEST_F(ZLFileCommandsTest, ExportTicksTheOption)
{
    store({}, 7.5);
    EXPECT_EQ(run(exportTo(at(u"Show 12.1.box"_s), u"Checkbox"_s) + QStringList { u"--option"_s }), 0);
    EXPECT_EQ(contentsOf(at(u"Show 12.1.box"_s)), "1 7.5 Show 12.1");
    EXPECT_EQ(run(exportTo(at(u"plain"_s), u"Checkbox"_s)), 0);
    EXPECT_EQ(contentsOf(at(u"plain"_s)), "0 7.5 plain");
}

TEST_F(ZLFileCommandsTest, ExportRewritesASessionInPlace)
{
    store({ storedChapter(1, u"A"_s), storedChapter(2, u"B"_s) });
    ASSERT_TRUE(ZLAtomicFile::write(at(u"my.session"_s), "before ").isOk());
    EXPECT_EQ(run(exportTo(at(u"my.session"_s), u"In place"_s)), 0);
    EXPECT_EQ(contentsOf(at(u"my.session"_s)), "before 2");

    expectFailure(1, exportTo(at(u"missing.session"_s), u"In place"_s));
    ASSERT_TRUE(ZLAtomicFile::write(at(u"empty.session"_s), "").isOk());
    expectFailure(1, exportTo(at(u"empty.session"_s), u"In place"_s));
    EXPECT_EQ(contentsOf(at(u"empty.session"_s)), "");
}

TEST_F(ZLFileCommandsTest, ExportPutsMarkersIntoASession)
{
    store({ storedChapter(1, u"A"_s) });
    const QString session = at(u"my.nhsx"_s);
    ASSERT_TRUE(ZLAtomicFile::write(session, "<S></Session>").isOk());
    ASSERT_TRUE(QFile::setPermissions(session, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    const auto permissions = QFileInfo(session).permissions();

    EXPECT_EQ(run(exportTo(session, u"Hindenburg"_s)), 0);

    EXPECT_EQ(contentsOf(session),
        "<S><Markers>\n<Marker Id=\"1\" Name=\"A\" Time=\"1.000\" Type=\"Chapter\" Title=\"\" URL=\"\"/>\n"
        "</Markers>\n</Session>");
    EXPECT_EQ(QFileInfo(session).permissions(), permissions);
    for (const QByteArray& unfit : { QByteArray(), QByteArray("\xff</Session>"), QByteArray("<Markers></Session>") }) {
        ASSERT_TRUE(ZLAtomicFile::write(session, unfit).isOk());
        expectFailure(1, exportTo(session, u"Hindenburg"_s));
        EXPECT_TRUE(m_err.contains(session)) << qPrintable(m_err);
        EXPECT_EQ(contentsOf(session), unfit);
    }
    const QByteArray pipe = QFile::encodeName(at(u"pipe.nhsx"_s));
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    expectFailure(1, exportTo(at(u"pipe.nhsx"_s), u"Hindenburg"_s));
}

TEST_F(ZLFileCommandsTest, ExportTellsWhatTheDestinationWillNotLike)
{
    store({ storedChapter(5, u"A"_s), storedChapter(5.5, u"B"_s) });
    EXPECT_EQ(run(exportTo(at(u"out.txt"_s), u"YouTube"_s)), 0);
    EXPECT_EQ(contentsOf(at(u"out.txt"_s)), "00:05 A\n00:05 B\n");
    EXPECT_EQ(m_out, QString());
    EXPECT_EQ(m_err,
        u"zelta: YouTube will ignore these chapters: the first is at 00:05 (00:00 needed); there are only 2 (3 "
        "minimum).\n"
        "zelta: YouTube needs rising times in whole seconds: chapters 1 and 2 fall into the same second.\n"_s);

    // It is said before anything is written, so also where that fails afterwards.
    EXPECT_EQ(run(exportTo(u"/proc/zelta-out.txt"_s, u"YouTube"_s)), 1);
    const QStringList lines = m_err.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 3) << qPrintable(m_err);
    EXPECT_TRUE(lines.last().startsWith("zelta: /proc/zelta-out.txt: "_L1));
}

TEST_F(ZLFileCommandsTest, TheFormerSessionIsKeptBesideItUntilTheNextExport)
{
    store({ storedChapter(1, u"A"_s) });
    const QString session = at(u"my.nhsx"_s);
    ASSERT_TRUE(ZLAtomicFile::write(session, "<S></Session>").isOk());
    EXPECT_EQ(run(exportTo(session, u"Hindenburg"_s)), 0);
    EXPECT_EQ(contentsOf(at(u"my.nhsx.bak"_s)), "<S></Session>");
    const QByteArray once = contentsOf(session);
    EXPECT_EQ(run(exportTo(session, u"Hindenburg"_s)), 0);
    EXPECT_EQ(contentsOf(at(u"my.nhsx.bak"_s)), once);
    EXPECT_TRUE(m_err.contains("will come twice: chapter 1."_L1)) << qPrintable(m_err);
    EXPECT_EQ(contentsOf(session).count("<Marker "), 2) << "it is advice, no refusal";

    // Without the copy the session stays as it is.
    ASSERT_TRUE(QFile::remove(at(u"my.nhsx.bak"_s)));
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"my.nhsx.bak"_s));
    const QByteArray twice = contentsOf(session);
    EXPECT_EQ(run(exportTo(session, u"Hindenburg"_s)), 1);
    EXPECT_EQ(contentsOf(session), twice);
}

TEST_F(ZLFileCommandsTest, TheOptionIsForTheTwoFormatsWithACheckbox)
{
    store({ storedChapter(65.9, u"A"_s) }, 100);
    for (const ZLExporterClass& exporterClass : ZLExporter::allExporters()) {
        const ZLExportFormat& format = exporterClass.format();
        const bool hasCheckbox = format.name == "Markdown"_L1 || format.name == "Final Cut Pro X"_L1;
        ASSERT_TRUE(ZLAtomicFile::write(at(u"out"_s), "<S></Session>").isOk());
        EXPECT_EQ(run(exportTo(at(u"out"_s), format.name) + QStringList { u"--option"_s }), hasCheckbox ? 0 : 2)
            << qPrintable(format.name);
    }
    EXPECT_EQ(run(exportTo(at(u"out"_s), u"Markdown"_s) + QStringList { u"--option"_s }), 0);
    EXPECT_EQ(contentsOf(at(u"out"_s)), u"*   00:01:05 – A\n"_s.toUtf8());
}

TEST_F(ZLFileCommandsTest, ExportFailsWithoutATrace)
{
    const QString podlove = u"Podlove Simple Chapters"_s;
    expectFailure(1, exportTo(at(u"out.psc"_s), podlove));
    EXPECT_TRUE(m_err.contains(m_file));

    ASSERT_TRUE(ZLAtomicFile::write(m_file, "This is a text file.").isOk());
    expectFailure(1, exportTo(at(u"out.psc"_s), podlove));
    EXPECT_EQ(m_err, u"zelta: %1 is not a Zelta document.\n"_s.arg(m_file));

    store({ storedChapter(1, u"A"_s) });
    expectFailure(1, exportTo(at(u"no/such/folder/out.psc"_s), podlove));
    expectFailure(1, exportTo(m_folder.path(), podlove));
    expectFailure(1, exportTo(u"/proc/zelta-out.psc"_s, podlove));
    expectFailure(1, exportTo(at(QString(300, u'n')), podlove));
    expectFailure(1, exportTo(at(u"no\nsuch/out.psc"_s), podlove));
    expectFailure(1, { u"export"_s, u"--format"_s, podlove, u"--output"_s, at(u"out.psc"_s), m_folder.path() });
}

TEST_F(ZLFileCommandsTest, ExportNeverReplacesTheDocument)
{
    store({ storedChapter(1, u"A"_s) });
    const QByteArray before = contentsOf(m_file);
    ASSERT_TRUE(QFile::link(m_file, at(u"link.psc"_s)));
    const QByteArray hardLink = QFile::encodeName(at(u"hard.psc"_s));
    ASSERT_EQ(link(QFile::encodeName(m_file).constData(), hardLink.constData()), 0);

    expectFailure(1, exportTo(m_file, u"Podlove Simple Chapters"_s));
    expectFailure(1, exportTo(at(u"link.psc"_s), u"Podlove Simple Chapters"_s));
    expectFailure(1, exportTo(at(u"hard.psc"_s), u"Podlove Simple Chapters"_s));

    EXPECT_EQ(contentsOf(m_file), before);
}

TEST_F(ZLFileCommandsTest, ExportReplacesNoDocumentThatIsOpen)
{
    store({ storedChapter(1, u"A"_s) });
    const QString open = at(u"open.zelta"_s);
    ASSERT_TRUE(ZLAtomicFile::write(open, "open").isOk());
    const ZLDocumentLock lock(open);
    expectFailure(1, exportTo(open, u"Podlove Simple Chapters"_s));
    EXPECT_EQ(m_err, u"zelta: "_s + open + u" is in use by Zelta. Choose another name.\n"_s);
    EXPECT_EQ(contentsOf(open), "open");
}

TEST_F(ZLFileCommandsTest, ExportWritesIntoAPipeAndLeavesItOne)
{
    store({ storedChapter(1, u"A"_s) });
    const QByteArray pipe = QFile::encodeName(at(u"pipe"_s));
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    const int reader = ::open(pipe.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    EXPECT_EQ(run(exportTo(at(u"pipe"_s), u"Markdown"_s)), 0);
    QByteArray bytes(100, '\0');
    bytes.truncate(std::max<ssize_t>(read(reader, bytes.data(), size_t(bytes.size())), 0));
    close(reader);
    EXPECT_EQ(bytes, "*   A\n");
    EXPECT_FALSE(QFileInfo(at(u"pipe"_s)).isFile());
}

TEST_F(ZLFileCommandsTest, ASessionIsNotRewrittenOnTheStandardOutput)
{
    store({ storedChapter(1, u"A"_s) });
    expectFailure(2, exportTo(u"-"_s, u"Hindenburg"_s));
    expectFailure(2, exportTo(u"/dev/stdout"_s, u"In place"_s));
}

TEST_F(ZLFileCommandsTest, TellsWhenTheOutputCannotBeWritten)
{
    store({ storedChapter(1, u"A"_s) });
    QFile full(u"/dev/full"_s);
    ASSERT_TRUE(full.open(QIODevice::WriteOnly));
    QTextStream out(&full);
    QTextStream err(&m_err);
    const auto commandLine = ZLCommandLine::parse({ u"zelta"_s, u"show"_s, m_file });

    EXPECT_EQ(ZLFileCommands(m_exporterClasses, out, err).run(commandLine.value()), 1);

    EXPECT_TRUE(m_err.startsWith("zelta: "_L1));
}
