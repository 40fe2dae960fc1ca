// Lists as other programs and people write them.
#include "lists/ZLReadText.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

using Chapters = QList<ZLListedChapter>;

QString dataFile(const QString& name)
{
    QFile file(QStringLiteral(ZELTA_TEST_DATA) + u"/lists/"_s + name);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << qPrintable(file.fileName());
    return QString::fromUtf8(file.readAll());
}

}

TEST(ZLListReaders, PodcastChapters)
{
    const QString text =
        u"{\"version\":\"1.2.0\",\"title\":\"Show\",\"chapters\":["
        "{\"startTime\":0,\"title\":\"Intro\",\"img\":\"https://a.example/i.png\"},"
        "{\"startTime\":168.5,\"title\":\"Hearing \\\"Aids\\\"\",\"url\":\"https://b.example\",\"endTime\":200},"
        "{\"startTime\":\"260\",\"title\":\"Silent\",\"toc\":false},{\"title\":\"no time\"}]}"_s;
    const ZLReadLists read = readText(text);
    EXPECT_EQ(read.formName, u"Podcast Chapters"_s);
    EXPECT_EQ(read.lists.at(0).chapters,
        (Chapters { { 0, u"Intro"_s }, { 168.5, u"Hearing \"Aids\""_s, u"https://b.example"_s },
            { 260, u"Silent"_s, {}, false } }));
    EXPECT_EQ(read.lists.at(0).remarks.size(), 1);
}

TEST(ZLListReaders, JSONOfStreamsAndOurOwn)
{
    EXPECT_EQ(
        chaptersIn(u"[{\"chapter\":1,\"start-time\":12.345,\"titles\":[{\"language\":\"und\",\"title\":\"News\"}]}]"_s),
        (Chapters { { 12.345, u"News"_s } }));
    EXPECT_TRUE(chaptersIn(u"[]"_s).isEmpty());
    EXPECT_EQ(
        chaptersIn(
            u"{\"duration\":9,\"chapters\":[{\"timeStamp\":-2.5,\"enabled\":false,\"title\":\"A\",\"link\":\"L\"}],"
            "\"templates\":[]}"_s),
        (Chapters { { -2.5, u"A"_s, u"L"_s, false } }));
    const Chapters all =
        chaptersIn(u"{\"duration\":9,\"chapters\":[{\"timeStamp\":1,\"title\":\"A\",\"link\":\"\",\"tags\":\"x, y\","
                   "\"date\":\"2026-03-01T20:15:00.250Z\",\"uuid\":\"A1\"}],\"templates\":[]}"_s);
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all.at(0).tags, u"x, y"_s);
    EXPECT_EQ(all.at(0).date.toMSecsSinceEpoch(), 1'772'396'100'250);
    EXPECT_EQ(all.at(0).uuid, u"A1"_s);
}

TEST(ZLListReaders, PodloveAloneAndInAFeedOfSeveralItems)
{
    EXPECT_EQ(
        chaptersIn(u"<psc:chapters version=\"1.2\" xmlns:psc=\"http://podlove.org/simple-chapters\">\n"
                   "<psc:chapter start=\"00:01:02.500\" title=\"Q&amp;A\" href=\"https://a.example/?a=1&amp;b=2\"/>\n"
                   "<psc:chapter start=\"3:04\" title=\"\"/></psc:chapters>"_s),
        (Chapters { { 62.5, u"Q&A"_s, u"https://a.example/?a=1&b=2"_s }, { 184, {} } }));
    const ZLReadLists feed = readText(
        u"<?xml version=\"1.0\"?><rss xmlns:psc=\"http://podlove.org/simple-chapters\"><channel><title>Feed</title>"
        "<item><title>Two</title><psc:chapters><psc:chapter start=\"0\" title=\"B\"/></psc:chapters></item>"
        "<item><title>No chapters</title></item>"
        "<item><psc:chapters><psc:chapter start=\"5\" title=\"A\"/></psc:chapters><title>One</title></item>"
        "</channel></rss>"_s);
    ASSERT_EQ(feed.lists.size(), 2);
    EXPECT_EQ(feed.lists.at(0).name, u"Two"_s);
    EXPECT_EQ(feed.lists.at(0).chapters, (Chapters { { 0, u"B"_s } }));
    EXPECT_EQ(feed.lists.at(1).name, u"One"_s);
    EXPECT_EQ(feed.lists.at(1).chapters, (Chapters { { 5, u"A"_s } }));
    EXPECT_FALSE(refusalOf(u"<rss><channel><item><title>x</title></item></channel></rss>"_s).isEmpty());
}

TEST(ZLListReaders, LinesWithFullTimesAndLinks)
{
    const ZLReadLists read =
        readText(u"00:00:00.000 Welcome\r\n100:01:02.500 News  <https://a.example>\r\nnot a line\r\n"
                 "00:02:00.000\r\n00:03:00.000  <L>\r\n"_s);
    EXPECT_EQ(read.formName, u"mp4chaps"_s);
    EXPECT_EQ(read.lists.at(0).chapters,
        (Chapters {
            { 0, u"Welcome"_s }, { 360062.5, u"News "_s, u"https://a.example"_s }, { 120, {} }, { 180, {}, u"L"_s } }));
    EXPECT_EQ(read.lists.at(0).remarks, (QList<ZLListRemark> { { 3, u"“not a line” was not understood."_s } }));
}

TEST(ZLListReaders, NumberedFieldsOfMatroskaToolsAndOfVorbisComments)
{
    EXPECT_EQ(chaptersIn(dataFile(u"mkvextract-simple.txt"_s)),
        (Chapters { { 0, u"Wel=come"_s }, { 10.5, u"Q;A #1\\2"_s } }));
    EXPECT_EQ(chaptersIn(u"chapter001NAME=B\nCHAPTER001=00:01:00.5\nCHAPTER000=00:00:00.000\nCHAPTER000NAME=A\n"
                         "CHAPTER000URL=https://a.example\nCHAPTER001CHAPTER=odd\nCHAPTER002NAME=no time\n"_s),
        (Chapters { { 0, u"A"_s, u"https://a.example"_s }, { 60.5, u"B"_s } }));
}

TEST(ZLListReaders, WhatPeopleWriteBelowAShow)
{
    const ZLReadLists read =
        readText(u"In this episode:\n00:00 Intro\n1:02:03 - Title\n(12:30) Talk\n[00:01:02.5] More\n"
                 "- 2:00 — Dash\n* 3:00 | Bar\nEnd 59:59\nLast one (1:00:00)\n"
                 "4:00 - 5:00 Range\n6:00 Site https://a.example\n7:00 7:30 club <https://b.example>\n"_s);
    EXPECT_EQ(read.formName, u"Simple List"_s);
    EXPECT_EQ(read.lists.at(0).chapters,
        (Chapters { { 0, u"Intro"_s }, { 3723, u"Title"_s }, { 750, u"Talk"_s }, { 62.5, u"More"_s },
            { 120, u"Dash"_s }, { 180, u"Bar"_s }, { 3599, u"End"_s }, { 3600, u"Last one"_s }, { 240, u"Range"_s },
            { 360, u"Site"_s, u"https://a.example"_s }, { 420, u"club"_s, u"https://b.example"_s } }));
    EXPECT_EQ(read.lists.at(0).remarks, (QList<ZLListRemark> { { 1, u"“In this episode:” was not understood."_s } }));
}

TEST(ZLListReaders, ATimeAtTheBeginningWinsOverOneAtTheEnd)
{
    EXPECT_EQ(chaptersIn(u"01:00 Meeting at 12:30\nMeeting at 12:30\n"_s),
        (Chapters { { 60, u"Meeting at 12:30"_s }, { 750, u"Meeting at"_s } }));
}

TEST(ZLListReaders, TextWithoutTimesIsNoList)
{
    for (const QString& text :
        { u""_s, u"\n\n"_s, u"Just a text.\nWith 3 lines, at 5pm.\n"_s, u"http://a.example:8080/x"_s,
            u"ratio 16:9, version 1.2.3"_s, u"99:99"_s, u"<html><p>00:00 Intro</p></html>"_s })
        EXPECT_FALSE(refusalOf(text).isEmpty()) << qPrintable(text);
}

TEST(ZLListReaders, AudacityLabelsWithRegionsFrequenciesAndDecimalCommas)
{
    EXPECT_EQ(chaptersIn(u"0.000000\t0.000000\tStart\n12.500000\t20,250000\tA\tB\n\\\t100.0\t200.0\n30,5\t30,5\n"_s),
        (Chapters { { 0, u"Start"_s }, { 12.5, u"A\tB"_s }, { 30.5, {} } }));
}

TEST(ZLListReaders, LabelsThatAudacityExported)
{
    const ZLReadLists read = readText(dataFile(u"audacity.txt"_s));
    EXPECT_EQ(read.formName, u"Audacity Labels"_s);
    EXPECT_TRUE(read.remarks.isEmpty());
    EXPECT_EQ(read.lists.at(0).chapters,
        (Chapters { { 0, u"Welcome"_s }, { 10.5, u"Q;A #1\\2 \"quoted\""_s }, { 65.123456, u"Grüße – 日本語 🎙"_s },
            { 3600.001, {} }, { 3661.5, u"a, b <c>"_s } }));
}

TEST(ZLListReaders, CuesThatFFmpegWrote)
{
    const ZLReadLists read = readText(dataFile(u"ffmpeg.vtt"_s));
    EXPECT_EQ(read.formName, u"WebVTT Chapters"_s);
    EXPECT_EQ(read.lists.at(0).chapters,
        (Chapters { { 0, u"Welcome & hello"_s }, { 65.5, u"Grüße – 日本語 second line"_s }, { 360'000, u"Late"_s } }));
}

TEST(ZLListReaders, TracksAndTagsThatMetaflacExported)
{
    const ZLReadLists tracks = readText(dataFile(u"metaflac.cue"_s));
    EXPECT_EQ(tracks.formName, u"CUE Sheet"_s);
    EXPECT_EQ(tracks.lists.at(0).chapters, (Chapters { { 0, {} }, { 5 + 37 / 75.0, {} }, { 12 + 74 / 75.0, {} } }));
    const ZLReadLists tags = readText(dataFile(u"metaflac-tags.txt"_s));
    EXPECT_EQ(tags.formName, u"OGM Chapters"_s);
    EXPECT_EQ(tags.lists.at(0).chapters,
        (Chapters { { 0, u"Wel=come"_s }, { 10.5, u"Q;A – 日本語"_s, u"https://example.org/?a=b"_s } }));
}

TEST(ZLListReaders, ReaperMarkersAndRegionsInEveryRulerButBeats)
{
    EXPECT_EQ(chaptersIn(u"#,Name,Start,End,Length\nM1,One,0:01.500,,\nM2,\"Two, \"\"2\"\"\",1:00:00.000,,\n"
                         "R1,Three,12.250,15.000,2.750\n"_s),
        (Chapters { { 1.5, u"One"_s }, { 3600, u"Two, \"2\""_s }, { 12.25, u"Three"_s } }));
    EXPECT_EQ(chaptersIn(u"#,Name,Start,End,Length,Color\nM1,One,5,,,FF0000\n"_s), (Chapters { { 5, u"One"_s } }));
    EXPECT_TRUE(refusalOf(u"#,Name,Start,End,Length\nM1,One,3.1.00,,\n"_s).contains(u"beats"_s));
}

TEST(ZLListReaders, FFMetadataAsFFmpegWritesIt)
{
    const ZLReadLists read = readText(dataFile(u"ffmpeg.txt"_s));
    EXPECT_EQ(read.formName, u"ffmetadata"_s);
    EXPECT_EQ(read.lists.at(0).name, u"Show"_s);
    EXPECT_EQ(read.lists.at(0).chapters, (Chapters { { 0, u"Wel=come"_s }, { 10.5, u"Q;A #1\\2"_s } }));
    EXPECT_EQ(
        chaptersIn(
            u";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=1500\nEND=2000\ntitle=two\\\nlines\n[STREAM]\ntitle=x\n"_s),
        (Chapters { { 1.5, u"two\nlines"_s } }));
}

TEST(ZLListReaders, MatroskaChaptersAsItsToolsWriteThem)
{
    EXPECT_EQ(chaptersIn(dataFile(u"mkvextract.xml"_s)), (Chapters { { 0, u"Wel=come"_s }, { 10.5, u"Q;A #1\\2"_s } }));
    const ZLReadLists editions = readText(
        u"<Chapters><EditionEntry><ChapterAtom><ChapterTimeStart>00:00:01.5</ChapterTimeStart><ChapterAtom>"
        "<ChapterTimeStart>00:00:02</ChapterTimeStart><ChapterFlagHidden>1</ChapterFlagHidden></"
        "ChapterAtom><ChapterDisplay>"
        "<ChapterString>Outer</ChapterString></ChapterDisplay><ChapterDisplay><ChapterString>Außen</ChapterString>"
        "</ChapterDisplay></ChapterAtom></EditionEntry><EditionEntry><ChapterAtom/></EditionEntry></Chapters>"_s);
    ASSERT_EQ(editions.lists.size(), 2);
    EXPECT_EQ(editions.lists.at(0).chapters, (Chapters { { 1.5, u"Outer"_s }, { 2, {}, {}, false } }));
    EXPECT_EQ(editions.lists.at(1).remarks.size(), 1);
}

TEST(ZLListReaders, AnEditionInsideOfAChapterIsNone)
{
    EXPECT_EQ(chaptersIn(u"<Chapters><EditionEntry><ChapterAtom><EditionEntry><ChapterTimeStart>1:00</ChapterTimeStart>"
                         "</EditionEntry></ChapterAtom></EditionEntry></Chapters>"_s),
        (Chapters { { 60, {} } }));
}

TEST(ZLListReaders, WebVTTWithIdentifiersSettingsTagsAndNotes)
{
    EXPECT_EQ(chaptersIn(u"WEBVTT - Show\n\nNOTE nothing\n00:00.000 --> 00:01.000\n\nSTYLE\n::cue{}\n\nintro\n"
                         "00:00.000 --> 01:02.500 align:start\n<b>Wel</b>come &amp;lt; &lt;all&gt;\nof you\n\n"
                         "01:02.500 --> 99:00:00.000\n\n"_s),
        (Chapters { { 0, u"Welcome &lt; <all> of you"_s }, { 62.5, {} } }));
}

TEST(ZLListReaders, CueSheets)
{
    const ZLReadLists read =
        readText(u"REM GENRE Talk\nTITLE \"Show\"\nFILE \"a.wav\" WAVE\n  TRACK 01 AUDIO\n    TITLE \"One \"\n"
                 "    PERFORMER \"P\"\n    INDEX 00 00:00:00\n    INDEX 01 00:02:37\n  TRACK 02 AUDIO\n"
                 "    TITLE Two\n    INDEX 01 123:00:00\n  TRACK 03 AUDIO\n    TITLE \"No time\"\n"_s);
    EXPECT_EQ(read.lists.at(0).name, u"Show"_s);
    EXPECT_EQ(read.lists.at(0).chapters, (Chapters { { 2 + 37 / 75.0, u"One "_s }, { 7380, u"Two"_s } }));
    EXPECT_EQ(read.lists.at(0).remarks.size(), 1);
}

TEST(ZLListReaders, ChapterMarkersOfAHindenburgSession)
{
    const ZLReadLists read =
        readText(u"<?xml version=\"1.0\"?><Session><Tracks/><Markers>\n"
                 "<Marker Id=\"1\" Name=\"Q&amp;A\" Time=\"12.346\" Type=\"Chapter\" Title=\"\" URL=\"a?b&amp;c\"/>"
                 "<Marker Id=\"2\" Name=\"Note\" Time=\"13.000\" Type=\"Edit\"/>"
                 "<Marker Id=\"3\" Name=\"Later\" Time=\"01:00.500\" Type=\"Chapter\"/></Markers></Session>"_s);
    EXPECT_EQ(read.lists.at(0).chapters, (Chapters { { 12.346, u"Q&A"_s, u"a?b&c"_s }, { 60.5, u"Later"_s } }));
    EXPECT_EQ(read.lists.at(0).remarks.size(), 1);
}

TEST(ZLListReaders, MarkersOfAFinalCutProjectCountFromItsBeginning)
{
    EXPECT_EQ(
        chaptersIn(
            u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE fcpxml>\n<fcpxml version=\"1.3\">\n"
            "<project name=\"Show\">\n<clip name=\"Show\" duration=\"60000/1000s\" tcStart=\"0s\" format=\"f1\">\n"
            "<gap duration=\"60000/1000s\"></gap>\n<chapter-marker start=\"12345/1000s\" duration=\"1s\" "
            "value=\"A &amp; B\" posterOffset=\"12/25s\"/>\n<marker start=\"20000/1000s\" duration=\"1s\" "
            "value=\"C\"/>\n"
            "</clip>\n</project>\n</fcpxml>\n"_s),
        (Chapters { { 12.345, u"A & B"_s }, { 20, u"C"_s, {}, false } }));
    EXPECT_EQ(chaptersIn(u"<fcpxml><library><event><project name=\"P\"><sequence tcStart=\"3600s\"><spine>"
                         "<asset-clip offset=\"3610s\" start=\"100s\" duration=\"50s\"><chapter-marker start=\"105s\" "
                         "value=\"In clip\"/>"
                         "</asset-clip></spine></sequence></project></event></library></fcpxml>"_s),
        (Chapters { { 15, u"In clip"_s } }));
}

TEST(ZLListReaders, XmlThatOurRawWritersMadeIsRefusedWithItsLine)
{
    EXPECT_TRUE(refusalOf(u"<Session><Markers>\n<Marker Id=\"1\" Name=\"a < b\" Time=\"1.000\" Type=\"Chapter\"/>\n"
                          "</Markers></Session>"_s)
            .contains(u"line 2"_s));
    EXPECT_TRUE(refusalOf(u"<fcpxml>\n<project name=\"Q & A\"></project></fcpxml>"_s).contains(u"line 2"_s));
}

TEST(ZLListReaders, EntitiesAreNotUnfolded)
{
    const QString bomb =
        u"<!DOCTYPE Chapters [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>"
        "<Chapters><EditionEntry><ChapterAtom><ChapterTimeStart>00:00:01</ChapterTimeStart><ChapterDisplay>"
        "<ChapterString>&b;</ChapterString></ChapterDisplay></ChapterAtom></EditionEntry></Chapters>"_s;
    EXPECT_TRUE(refusalOf(bomb).contains(u"entities"_s)) << qPrintable(refusalOf(bomb));
    const QString external =
        u"<!DOCTYPE chapters [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><chapters><chapter start=\"0\" "
        "title=\"a\"/>&x;</chapters>"_s;
    EXPECT_TRUE(refusalOf(external).contains(u"entities"_s)) << qPrintable(refusalOf(external));
}
