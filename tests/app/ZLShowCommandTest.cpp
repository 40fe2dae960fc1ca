#include "ZLFileCommandsFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTimeZone>

#include <limits>

namespace {

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

class ZLShowCommandTest : public ZLFileCommandsFixture { };

TEST_F(ZLShowCommandTest, ShowsAnAlignedTable)
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

TEST_F(ZLShowCommandTest, ShowsADocumentWithoutChapters)
{
    store({}, 1.0);
    EXPECT_EQ(run({ u"show"_s, m_file }), 0);
    EXPECT_EQ(m_out, u"No chapters.\nRecorded: 00:00:01.000\n"_s);
}

TEST_F(ZLShowCommandTest, TableKeepsARowOnALineWhateverTheTitle)
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

TEST_F(ZLShowCommandTest, ShowsAllFieldsAsJson)
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
    EXPECT_EQ(templates.at(0)["date"_L1], QJsonValue(QJsonValue::Null)) << "the date is not known";
}

TEST_F(ZLShowCommandTest, JsonIsValidWhateverTheDocumentHolds)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const QVariantMap hostile = storedChapter(1e308, u"a\u0001\u000b\u2028\"\\"_s + QChar(0xD800) + QChar(0));
    store({ storedChapter(std::numeric_limits<double>::quiet_NaN(), u"nan"_s), storedChapter(infinity, u"inf"_s),
              storedChapter(-infinity, u"-inf"_s), hostile, u"no dictionary"_s, QVariantMap() },
        infinity);

    EXPECT_EQ(run({ u"show"_s, u"--json"_s, m_file }), 0);

    const QJsonObject document = readByAnotherParser(m_out);
    EXPECT_EQ(document.value("duration"_L1), QJsonValue(0.0)) << "a duration without end is none";
    const QJsonArray chapters = document.value("chapters"_L1).toArray();
    ASSERT_EQ(chapters.size(), 6);
    int nulls = 0;
    int absentTitles = 0;
    for (const auto& chapter : chapters) {
        nulls += chapter["timeStamp"_L1].isNull();
        absentTitles += chapter["title"_L1].isNull();
    }
    EXPECT_EQ(nulls, 3);
    EXPECT_EQ(absentTitles, 2);
    EXPECT_EQ(run({ u"show"_s, m_file }), 0);
    EXPECT_EQ(m_out.count(u'\n'), 9);
}

TEST_F(ZLShowCommandTest, ShowFailsForWhatIsNoDocument)
{
    expectFailure(1, { u"show"_s, at(u"missing.zelta"_s) });
    EXPECT_TRUE(m_err.contains(at(u"missing.zelta"_s)));
    expectFailure(1, { u"show"_s, m_folder.path() });
    ASSERT_TRUE(ZLAtomicFile::write(m_file, "").isOk());
    expectFailure(1, { u"show"_s, m_file });
    EXPECT_TRUE(m_err.contains(m_file));
}
