// The exact bytes of each form, as the programs expect them that read it.
#include "lists/ZLReadText.h"

using namespace Qt::StringLiterals;

namespace {

QString written(QLatin1StringView formName, const QString& pattern = {})
{
    const ZLListToWrite list { .chapters = { { 0.0, u"Welcome"_s },
                                   { 62.5, u"News, \"hot\" & <new>"_s, u"https://a.example/"_s } },
        .end = 3723.25,
        .fileBaseName = u"Episode 1"_s,
        .linePattern = pattern };
    return QString::fromUtf8(ZLListForms::write(formNamed(formName), list));
}

}

TEST(ZLListWriters, AudacityHasPointLabels)
{
    EXPECT_EQ(
        written("Audacity Labels"_L1), u"0.000000\t0.000000\tWelcome\n62.500000\t62.500000\tNews, \"hot\" & <new>\n"_s);
}

TEST(ZLListWriters, ReaperQuotesACommaAndAQuote)
{
    EXPECT_EQ(written("REAPER Markers"_L1),
        u"#,Name,Start,End,Length\nM1,Welcome,00:00:00.000,,\nM2,\"News, \"\"hot\"\" & <new>\",00:01:02.500,,\n"_s);
}

TEST(ZLListWriters, MP4ChapsHasFullTimes)
{
    EXPECT_EQ(written("mp4chaps"_L1), u"00:00:00.000 Welcome\n00:01:02.500 News, \"hot\" & <new>\n"_s);
}

TEST(ZLListWriters, FFMetadataHasEndsAndEscapes)
{
    EXPECT_EQ(written("ffmetadata"_L1),
        u";FFMETADATA1\n\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=62500\ntitle=Welcome\n"
        "\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=62500\nEND=3723250\ntitle=News, \"hot\" & <new>\n"_s);
}

TEST(ZLListWriters, WebVTTHasACueAChapter)
{
    EXPECT_EQ(written("WebVTT Chapters"_L1),
        u"WEBVTT\n\n1\n00:00:00.000 --> 00:01:02.500\nWelcome\n"
        "\n2\n00:01:02.500 --> 01:02:03.250\nNews, \"hot\" &amp; &lt;new&gt;\n"_s);
}

TEST(ZLListWriters, CueSheetsCountIn75thsOfASecond)
{
    EXPECT_EQ(written("CUE Sheet"_L1),
        u"TITLE \"Episode 1\"\nFILE \"Episode 1.wav\" WAVE\n  TRACK 01 AUDIO\n    TITLE \"Welcome\"\n    INDEX 01 "
        u"00:00:00\n"
        "  TRACK 02 AUDIO\n    TITLE \"News, 'hot' & <new>\"\n    INDEX 01 01:02:37\n"_s);
}

TEST(ZLListWriters, ShowNotesFollowThePattern)
{
    EXPECT_EQ(written("Show Notes"_L1), u"(0:00) Welcome\n(1:02) News, \"hot\" & <new> https://a.example/\n"_s);
    EXPECT_EQ(written("Show Notes"_L1, u"{number}. {title} {odd} {"_s),
        u"1. Welcome {odd} {\n2. News, \"hot\" & <new> {odd} {\n"_s);
}

TEST(ZLListWriters, ATitleThatLooksLikeAPlaceMarkStaysAsItIs)
{
    const ZLListToWrite list { .chapters = { { 0.0, u"{link}{time}"_s, u"L"_s } }, .linePattern = u"{title}|{link}"_s };
    EXPECT_EQ(ZLListForms::write(formNamed("Show Notes"_L1), list), "{link}{time}|L\n");
}
