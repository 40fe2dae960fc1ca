// Long texts of every form. Each is read or refused in a moment; a reader whose time grows faster than the text would
// run into the time-out of the test program.
#include "lists/ZLReadText.h"

using namespace Qt::StringLiterals;

namespace {

QString longText(const QString& piece)
{
    constexpr qsizetype length = 500'000;
    return piece.repeated(length / piece.size());
}

bool isReadOrRefused(const QString& text)
{
    const auto source = ZLListSource::fromText(text);
    if (!source)
        return false;
    const auto read = ZLListForms::read(source.value());
    return read.isOk() || !read.error().message.isEmpty();
}

}

TEST(ZLListBounds, LongTextsOfEveryFormEnd)
{
    for (const QString& piece :
        { u"0:00 a\n"_s, u"0:"_s, u"("_s, u"00:00:00.000 <"_s, u"a 1:00 "_s, u"[{"_s, u"<a>"_s, u"<a b=\"\"/>"_s,
            u"CHAPTER01=0:00\n"_s, u"0\t0\t\n"_s, u"\\\n"_s, u"\"\","_s, u" "_s, u"\n"_s, u"9"_s, u"> <"_s })
        EXPECT_TRUE(isReadOrRefused(longText(piece))) << qPrintable(piece);
}

TEST(ZLListBounds, LongBodiesBehindAHeadEnd)
{
    const std::pair<QString, QString> texts[] { { u"WEBVTT\n\n"_s, u"a\n"_s },
        { u"WEBVTT\n\n0:00 --> 0:01\n"_s, u"<"_s }, { u"WEBVTT\n\n"_s, u"-->\n\n"_s },
        { u";FFMETADATA1\n[CHAPTER]\ntitle="_s, u"\\\n"_s }, { u";FFMETADATA1\n"_s, u"[CHAPTER]\n"_s },
        { u"#,Name,Start,End,Length\n"_s, u"\","_s }, { u"TRACK 01 AUDIO\n"_s, u"TITLE \"\n"_s },
        { u"<Chapters>"_s, u"<ChapterAtom>"_s }, { u"<rss><item>"_s, u"<title>"_s },
        { u"<fcpxml><clip>"_s, u"<clip offset=\"1s\">"_s }, { u"{\"chapters\":[{\"startTime\":0}"_s, u",{}"_s },
        { u"{\"chapters\":"_s, u"["_s } };
    for (const auto& [head, piece] : texts)
        EXPECT_TRUE(isReadOrRefused(head + longText(piece))) << qPrintable(head);
}

TEST(ZLListBounds, MoreThanAListMayHaveIsRefused)
{
    EXPECT_FALSE(ZLListSource::fromText(QString(ZLListSource::MostBytes + 1, u'0')).isOk());
    EXPECT_FALSE(ZLListSource::fromText(QString(ZLListSource::MostLines + 1, u'\n')).isOk());
    EXPECT_TRUE(ZLListSource::fromText(QString(ZLListSource::MostLines, u'\n')).isOk());
}
