#include "app/ZLFileCommands.h"

#include "export/formats/ZLRegisterExporters.h"
#include "platform/ZLAtomicFile.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <limits>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class CheckboxExporter final : public ZLExporter {
public:
    static ZLExportFormat format()
    {
        return { .name = u"Checkbox"_s,
            .dialogKind = ZLExportDialogKind::Save,
            .fileType = u"box"_s,
            .optionTitle = u"More"_s };
    }
    ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override
    {
        return u"%1 %2 %3"_s.arg(input.option == ZLExportOption::On)
            .arg(input.duration)
            .arg(input.fileBaseName)
            .toUtf8();
    }
};

class InPlaceExporter final : public ZLExporter {
public:
    static ZLExportFormat format()
    {
        return {
            .name = u"In place"_s, .dialogKind = ZLExportDialogKind::Open, .fileType = u"session"_s, .optionTitle = {}
        };
    }
    ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override
    {
        if (input.existingBytes.isEmpty())
            return ZLError { u"There is no session in this file."_s };
        return input.existingBytes + QByteArray::number(input.chapters.size());
    }
};

QVariantMap storedChapter(double seconds, const QString& title, const QString& link = u""_s, bool isEnabled = true)
{
    ZLChapter chapter;
    chapter.setTimeStamp(seconds);
    chapter.setTitle(title);
    chapter.setLink(link);
    chapter.setEnabled(isEnabled);
    chapter.setUuid(u"id of "_s + title);
    return chapter.dictionaryRepresentation();
}

/// What an independent JSON parser, which also refuses "NaN", makes of the text; invalid text gives null.
QJsonObject readByAnotherParser(const QString& text)
{
    QProcess python;
    python.start(QStringLiteral(ZELTA_PYTHON),
        { u"-c"_s,
            u"import json, sys; print(json.dumps(json.loads(sys.stdin.buffer.read().decode(), parse_constant=lambda name: sys.exit(name))))"_s });
    python.write(text.toUtf8());
    python.closeWriteChannel();
    EXPECT_TRUE(python.waitForFinished());
    EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().constData();
    return QJsonDocument::fromJson(python.readAllStandardOutput()).object();
}

}

class ZLFileCommandsTest : public testing::Test {
protected:
    static void SetUpTestSuite() { ZLRegisterExporters(); }

    int run(const QStringList& arguments)
    {
        m_out.clear();
        m_err.clear();
        QTextStream out(&m_out);
        QTextStream err(&m_err);
        ZLFileCommands commands(m_exporterClasses, out, err);
        const auto commandLine = ZLCommandLine::parse(QStringList { u"zelta"_s } + arguments);
        return commandLine ? commands.run(commandLine.value()) : commands.refuseUsage(commandLine.error());
    }

    void expectFailure(int status, const QStringList& arguments)
    {
        const QStringList before = filesInFolder();
        EXPECT_EQ(run(arguments), status) << qPrintable(arguments.join(u' '));
        EXPECT_EQ(m_out, QString());
        EXPECT_TRUE(m_err.startsWith("zelta: "_L1)) << qPrintable(m_err);
        EXPECT_GT(m_err.size(), 12);
        EXPECT_EQ(m_err.indexOf(u'\n'), m_err.size() - 1) << qPrintable(m_err);
        EXPECT_EQ(filesInFolder(), before);
    }

    void store(const QVariantList& chapters, double duration = 0, const QVariantList& templates = {})
    {
        const QByteArray bytes =
            ZLDocumentFile::encode({ .chapters = chapters, .duration = duration, .templates = templates });
        ASSERT_TRUE(ZLAtomicFile::write(m_file, bytes).isOk());
    }

    QStringList exportTo(const QString& output, const QString& format) const
    {
        return { u"export"_s, u"--format"_s, format, u"--output"_s, output, m_file };
    }

    QString at(const QString& name) const { return m_folder.filePath(name); }
    QByteArray contentsOf(const QString& path) const
    {
        const auto bytes = ZLAtomicFile::read(path);
        return bytes ? bytes.value() : "no file " + path.toUtf8();
    }
    QStringList filesInFolder() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir m_folder;
    const QString m_file = m_folder.filePath(u"in.zelta"_s);
    QList<ZLExporterClass> m_exporterClasses = ZLExporter::allExporters()
        + QList { ZLExporterClass::of<CheckboxExporter>(), ZLExporterClass::of<InPlaceExporter>() };
    QString m_out;
    QString m_err;
};

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
        u"zelta: YouTube needs a first chapter at 00:00, at least three, each ten seconds or longer: the first is at "
        "00:05; there are only 2.\n"
        "zelta: Times are whole seconds, and YouTube wants them to rise: chapters 1 and 2 fall into the same second.\n"_s);

    expectFailure(1, exportTo(u"/proc/zelta-out.txt"_s, u"YouTube"_s));
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
    EXPECT_TRUE(m_err.contains(m_file));

    store({ storedChapter(1, u"A"_s) });
    expectFailure(1, exportTo(at(u"no/such/folder/out.psc"_s), podlove));
    expectFailure(1, exportTo(m_folder.path(), podlove));
    expectFailure(1, exportTo(u"/proc/zelta-out.psc"_s, podlove));
    expectFailure(1, exportTo(at(QString(300, u'n')), podlove));
    expectFailure(1, exportTo(at(u"no\nsuch/out.psc"_s), podlove));
    expectFailure(1, { u"export"_s, u"--format"_s, podlove, u"--output"_s, at(u"out.psc"_s), m_folder.path() });
}

TEST_F(ZLFileCommandsTest, ExportNeverReplacesTheDocumentOrAPipe)
{
    store({ storedChapter(1, u"A"_s) });
    const QByteArray before = contentsOf(m_file);
    ASSERT_TRUE(QFile::link(m_file, at(u"link.psc"_s)));
    const QByteArray pipe = QFile::encodeName(at(u"pipe"_s));
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);

    expectFailure(1, exportTo(m_file, u"Podlove Simple Chapters"_s));
    expectFailure(1, exportTo(at(u"link.psc"_s), u"Podlove Simple Chapters"_s));
    expectFailure(1, exportTo(at(u"pipe"_s), u"Podlove Simple Chapters"_s));

    EXPECT_EQ(contentsOf(m_file), before);
    EXPECT_FALSE(QFileInfo(at(u"pipe"_s)).isFile());
}

TEST_F(ZLFileCommandsTest, ShowsAnAlignedTable)
{
    store({ storedChapter(65.5, u"Interview"_s, u"https://x.example"_s), storedChapter(-1.5, u"Prelude"_s, {}, false),
              storedChapter(3725.25, u"世界"_s, u"l"_s) },
        4000.5);

    EXPECT_EQ(run({ u"show"_s, m_file }), 0);

    EXPECT_EQ(m_out.toStdString(),
        "#  Enabled  Time           Duration  Title      Link\n"
        "1  no       -00:00:01.500  00:01:07  Prelude\n"
        "2  yes      00:01:05.500   01:00:59  Interview  https://x.example\n"
        "3  yes      01:02:05.250             世界       l\n"
        "\n"
        "Recorded: 01:06:40.500\n");
    EXPECT_EQ(m_err, QString());
}

TEST_F(ZLFileCommandsTest, ShowsADocumentWithoutChapters)
{
    store({}, 1.0);
    EXPECT_EQ(run({ u"show"_s, m_file }), 0);
    EXPECT_EQ(m_out, u"No chapters.\nRecorded: 00:00:01.000\n"_s);
}

TEST_F(ZLFileCommandsTest, TableKeepsARowOnALineWhateverTheTitle)
{
    store({ storedChapter(1, u"a\nb\tc\u2028d\x1b[2J\x07"_s, u"x\r\ny"_s),
        storedChapter(2, QString(500, u'w'), u"far"_s), storedChapter(3, u"short"_s, u"near"_s) });

    EXPECT_EQ(run({ u"show"_s, m_file }), 0);

    EXPECT_EQ(m_out.count(u'\n'), 6);
    EXPECT_TRUE(m_out.contains(u"a b c d\ufffd[2J\ufffd"_s)) << qPrintable(m_out);
    EXPECT_TRUE(m_out.contains(u"x  y"_s));
    for (const QString& line : m_out.split(u'\n'))
        EXPECT_TRUE(line.size() < 150 || line.endsWith("far"_L1)) << line.size();
}

TEST_F(ZLFileCommandsTest, ShowsAllFieldsAsJson)
{
    ZLChapter chapter;
    chapter.setTimeStamp(65.25);
    chapter.setTitle(u"Grüße \"世界\" 🎙\n"_s);
    chapter.setLink(u"https://x.example/?a&b"_s);
    chapter.setTags(u"one, two"_s);
    chapter.setRealDate(QDateTime(QDate(2024, 2, 29), QTime(13, 14, 15, 250), QTimeZone::utc()));
    chapter.setUuid(u"U-1"_s);
    store({ chapter.dictionaryRepresentation(), storedChapter(2, u"Early"_s, {}, false) }, 70.5,
        { storedChapter(9, u"Nine"_s), storedChapter(1, u"One"_s) });

    EXPECT_EQ(run({ u"show"_s, u"--json"_s, m_file }), 0);

    const QJsonObject document = readByAnotherParser(m_out);
    EXPECT_EQ(document.value("duration"_L1).toDouble(), 70.5);
    const QJsonArray chapters = document.value("chapters"_L1).toArray();
    ASSERT_EQ(chapters.size(), 2);
    EXPECT_EQ(chapters.at(0)["title"_L1].toString(), u"Early"_s);
    EXPECT_FALSE(chapters.at(0)["enabled"_L1].toBool(true));
    const QJsonObject expected { { u"timeStamp"_s, 65.25 }, { u"enabled"_s, true }, { u"title"_s, chapter.title() },
        { u"link"_s, chapter.link() }, { u"tags"_s, u"one, two"_s }, { u"date"_s, u"2024-02-29T13:14:15.250Z"_s },
        { u"uuid"_s, u"U-1"_s } };
    EXPECT_EQ(chapters.at(1).toObject(), expected);
    const QJsonArray templates = document.value("templates"_L1).toArray();
    ASSERT_EQ(templates.size(), 2);
    EXPECT_EQ(templates.at(0)["title"_L1].toString(), u"Nine"_s) << "templates keep their own order";
    EXPECT_EQ(templates.at(0)["date"_L1], QJsonValue(QJsonValue::Null)) << "nobody knows the date";
}

TEST_F(ZLFileCommandsTest, JsonIsValidWhateverTheDocumentHolds)
{
    const double infinity = std::numeric_limits<double>::infinity();
    QVariantMap hostile = storedChapter(1e308, u"a\u0001\u000b\u2028\"\\"_s + QChar(0xD800) + QChar(0));
    store({ storedChapter(std::numeric_limits<double>::quiet_NaN(), u"nan"_s), storedChapter(infinity, u"inf"_s),
              storedChapter(-infinity, u"-inf"_s), hostile, u"no dictionary"_s, QVariantMap() },
        infinity);

    EXPECT_EQ(run({ u"show"_s, u"--json"_s, m_file }), 0);

    const QJsonObject document = readByAnotherParser(m_out);
    EXPECT_TRUE(document.contains("duration"_L1));
    EXPECT_TRUE(document.value("duration"_L1).isNull());
    const QJsonArray chapters = document.value("chapters"_L1).toArray();
    ASSERT_EQ(chapters.size(), 6);
    int nulls = 0;
    int absentTitles = 0;
    for (const QJsonValue& chapter : chapters) {
        nulls += chapter["timeStamp"_L1].isNull();
        absentTitles += chapter["title"_L1].isNull();
    }
    EXPECT_EQ(nulls, 3);
    EXPECT_EQ(absentTitles, 2);
    EXPECT_EQ(run({ u"show"_s, m_file }), 0);
    EXPECT_EQ(m_out.count(u'\n'), 9);
}

TEST_F(ZLFileCommandsTest, ShowFailsForWhatIsNoDocument)
{
    expectFailure(1, { u"show"_s, at(u"missing.zelta"_s) });
    EXPECT_TRUE(m_err.contains(at(u"missing.zelta"_s)));
    expectFailure(1, { u"show"_s, m_folder.path() });
    ASSERT_TRUE(ZLAtomicFile::write(m_file, "").isOk());
    expectFailure(1, { u"show"_s, m_file });
    EXPECT_TRUE(m_err.contains(m_file));
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
