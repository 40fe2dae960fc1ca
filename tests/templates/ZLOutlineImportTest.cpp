#include "templates/ZLOutlineImport.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString linkIn(const QString& text)
{
    return ZLOutlineImport::linkInString(text).value_or(u"(none)"_s);
}

QStringList importedTitles(const QString& text)
{
    QStringList titles;
    for (const auto& chapter : ZLOutlineImport::chaptersInText(text))
        titles.append(chapter->title());
    return titles;
}

QStringList importedLinks(const QString& text)
{
    QStringList links;
    for (const auto& chapter : ZLOutlineImport::chaptersInText(text))
        links.append(chapter->link());
    return links;
}

/// The first match of the documented expression, found by an engine that backtracks.
QString linkByExpression(const QString& text)
{
    static const QRegularExpression expression(
        uR"([-a-zA-Z0-9@:%_\+.~#?&//=]{2,256}\.[a-z]{2,4}\b(\/[-a-zA-Z0-9@:%_\+.~#?&//=]*)?)"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    const auto match = expression.match(text);
    return match.hasMatch() ? match.captured() : u"(none)"_s;
}

QString randomText(QRandomGenerator& random, const QStringList& pieces)
{
    QString text;
    const int count = random.bounded(1, 24);
    for (int index = 0; index < count; ++index)
        text += pieces.at(random.bounded(int(pieces.size())));
    return text;
}

}

TEST(ZLOutlineImportTest, EachHeadingLineBeginsAChapterAndTheFirstLinkOfItsBlockIsItsLink)
{
    const QString outline = u"- Intro\n- News https://news.example.org/today\nsee also example.com\n- Outro"_s;
    EXPECT_EQ(
        importedTitles(outline), (QStringList { u"Intro"_s, u"News https://news.example.org/today"_s, u"Outro"_s }));
    EXPECT_EQ(importedLinks(outline), (QStringList { u""_s, u"https://news.example.org/today"_s, u""_s }));
}

TEST(ZLOutlineImportTest, ABareHostBelowTheHeadingIsTheLink)
{
    const QString outline = u"- Intro\nexample.com"_s;
    EXPECT_EQ(importedTitles(outline), QStringList(u"Intro"_s));
    EXPECT_EQ(importedLinks(outline), QStringList(u"example.com"_s));
}

TEST(ZLOutlineImportTest, CarriageReturnsStayInTitlesAndOutOfLinks)
{
    const QString outline = u"- Intro\r\nexample.com\r\n- News example.org/a\r\n- Outro"_s;
    EXPECT_EQ(importedTitles(outline), (QStringList { u"Intro\r"_s, u"News example.org/a\r"_s, u"Outro"_s }));
    EXPECT_EQ(importedLinks(outline), (QStringList { u"example.com"_s, u"example.org/a"_s, u""_s }));
}

TEST(ZLOutlineImportTest, ACarriageReturnAloneSeparatesNoLines)
{
    EXPECT_EQ(importedTitles(u"- Intro\r- News"_s), QStringList(u"Intro\r- News"_s));
}

TEST(ZLOutlineImportTest, AHeadingMarkWithoutATitleBeginsNoChapter)
{
    const QString outline = u"- Intro\n- \nexample.com\n- News"_s;
    EXPECT_EQ(importedTitles(outline), (QStringList { u"Intro"_s, u"News"_s }));
    EXPECT_EQ(importedLinks(outline), (QStringList { u"example.com"_s, u""_s }));
    EXPECT_EQ(importedTitles(u"- "_s), QStringList());
}

TEST(ZLOutlineImportTest, OneCharacterIsTitleEnoughEvenABlank)
{
    EXPECT_EQ(importedTitles(u"- a\n-  \n- \r\n"_s), (QStringList { u"a"_s, u" "_s, u"\r"_s }));
}

TEST(ZLOutlineImportTest, TitlesAreNotTrimmed)
{
    EXPECT_EQ(importedTitles(u"-  Intro  "_s), QStringList(u" Intro  "_s));
}

TEST(ZLOutlineImportTest, LinesThatOnlyResembleHeadingsAreNone)
{
    EXPECT_EQ(importedTitles(u" - Intro\n-News\n* Mail\n– Outro\n--  x"_s), QStringList());
}

TEST(ZLOutlineImportTest, LinesBeforeTheFirstHeadingAreIgnoredWithTheirLinks)
{
    const QString outline = u"Show 12 example.com\nexample.org\n- Intro\nno link"_s;
    EXPECT_EQ(importedTitles(outline), QStringList(u"Intro"_s));
    EXPECT_EQ(importedLinks(outline), QStringList(u""_s));
    EXPECT_EQ(importedTitles(u"example.com\nno heading at all"_s), QStringList());
    EXPECT_EQ(importedTitles(QString()), QStringList());
}

TEST(ZLOutlineImportTest, AnImportedChapterIsAFreshOneWithATitleAndALink)
{
    const auto chapters = ZLOutlineImport::chaptersInText(u"- Intro\n- Outro");
    ASSERT_EQ(chapters.size(), 2);
    EXPECT_TRUE(chapters.at(0)->isEnabled());
    EXPECT_EQ(chapters.at(0)->timeStamp(), 0.0);
    EXPECT_FALSE(chapters.at(0)->link().isNull()) << "an absent link would keep later fields out of the file";
    EXPECT_NE(chapters.at(0)->uuid(), chapters.at(1)->uuid());
}

TEST(ZLOutlineImportTest, LinksAreReturnedAsFound)
{
    EXPECT_EQ(linkIn(u"see https://user@www.example.org:8080/a/b?c=d#e, then"_s), u"https://user@www.example.org"_s);
    EXPECT_EQ(
        linkIn(u"see https://www.example.org/a/b?c=d&e=%20#f, then"_s), u"https://www.example.org/a/b?c=d&e=%20#f"_s);
    EXPECT_EQ(linkIn(u"(EXAMPLE.COM)"_s), u"EXAMPLE.COM"_s);
    EXPECT_EQ(linkIn(u"a b.com cd.com ef.com"_s), u"cd.com"_s) << "a host has two characters at least";
    EXPECT_EQ(linkIn(u"mail me@example.org."_s), u"me@example.org"_s);
    EXPECT_EQ(linkIn(u"example.com-x"_s), u"example.com"_s);
    EXPECT_EQ(linkIn(u"www.example.co.uk"_s), u"www.example.co.uk"_s);
}

TEST(ZLOutlineImportTest, ATopLevelDomainHasTwoToFourLettersAndEndsItsWord)
{
    for (const auto& text : { u"example.c"_s, u"example.museum"_s, u"example.com2"_s, u"example.com_"_s, u"1.2.3.4"_s,
             u"example.comé"_s, u"example.com\u0301"_s, u"example."_s, u"."_s, u"no link here"_s, QString() })
        EXPECT_EQ(linkIn(text), u"(none)"_s) << qPrintable(text);
    EXPECT_EQ(linkIn(u"example.info"_s), u"example.info"_s);
    EXPECT_EQ(linkIn(u"example.museum.de"_s), u"example.museum.de"_s);
    EXPECT_EQ(linkIn(u"example.com😀"_s), u"example.com"_s);
    EXPECT_EQ(linkIn(u"example.com𝐀"_s), u"(none)"_s) << "a letter outside of the basic plane goes on with the word";
}

TEST(ZLOutlineImportTest, OfALongHostOnlyTheLast256CharactersBelongToTheLink)
{
    const QString host(300, u'a');
    EXPECT_EQ(linkIn(host + u".com/path"_s), host.first(256) + u".com/path"_s);
    EXPECT_EQ(linkIn(host.first(256) + u".com"_s), host.first(256) + u".com"_s);
    const QString farDomain = u"aa.de"_s + QString(251, u'-') + u".com"_s;
    EXPECT_EQ(linkIn(farDomain), farDomain);
    EXPECT_EQ(linkIn(u"aa.de-"_s + QString(251, u'-') + u".com"_s), u"aa.de"_s);
}

TEST(ZLOutlineImportTest, FindsWhatTheDocumentedExpressionFinds)
{
    const QStringList pieces { u"a"_s, u"B"_s, u"."_s, u"."_s, u".com"_s, u".de"_s, u".info"_s, u"/"_s, u"://"_s,
        u" "_s, u"-"_s, u"_"_s, u"7"_s, u"é"_s, u"ß"_s, u"\r"_s, u"www"_s, u"@"_s, u"~#?&=%+:"_s, u"\u017f"_s,
        u"\u212a"_s, u"😀"_s, u","_s, QString(90, u'x'), QString(254, u'y') };
    QRandomGenerator random(4711);
    int foundCount = 0;
    for (int round = 0; round < 20000; ++round) {
        const QString text = randomText(random, pieces);
        const QString expected = linkByExpression(text);
        ASSERT_EQ(linkIn(text), expected) << "round " << round << ": " << qPrintable(text);
        foundCount += expected != u"(none)"_s;
    }
    EXPECT_GT(foundCount, 5000);
    EXPECT_LT(foundCount, 19000);
}

TEST(ZLOutlineImportTest, MegabytesOfTemptingTextAreSearchedToTheEnd)
{
    constexpr qsizetype Length = 1024 * 1024;
    for (const auto& piece : { u"a"_s, u"."_s, u"a."_s, u".a"_s, u"aa.comm_"_s, u"/"_s, u"aaa.abcde"_s, u"a "_s })
        EXPECT_EQ(linkIn(piece.repeated(Length / piece.size())), u"(none)"_s) << qPrintable(piece);
    EXPECT_EQ(linkIn(QString(Length, u'a') + u" example.com"_s), u"example.com"_s);
    EXPECT_EQ(linkIn(u"x"_s + u".com"_s.repeated(Length / 4)).size(), 257) << "up to the last domain within reach";
    EXPECT_EQ(linkIn(u"example.com/"_s + QString(Length, u'p')).size(), 12 + Length);
    EXPECT_EQ(importedLinks(u"- a\n"_s + QString(Length, u'\n') + u"bb.de"_s), QStringList(u"bb.de"_s));
}

TEST(ZLOutlineImportTest, BrokenSurrogatesAreText)
{
    const QString high(QChar(0xd835));
    EXPECT_EQ(linkIn(u"example.com"_s + high), u"example.com"_s);
    EXPECT_EQ(linkIn(high + u"example.com/"_s + high), u"example.com/"_s);
    EXPECT_EQ(importedTitles(u"- "_s + high), QStringList(high));
}

namespace {

QStringList topicTitles(QStringView text)
{
    QStringList titles;
    for (const ZLChapterPointer& chapter : ZLOutlineImport::chaptersInTopicLines(text))
        titles.append(chapter->title());
    return titles;
}

}

TEST(ZLOutlineImportTopicsTest, LinesWithOtherMarksAreTopicsAndTheRestGivesLinks)
{
    EXPECT_EQ(topicTitles(u"* Intro\n* News \r\n"), (QStringList { u"Intro"_s, u"News"_s }));
    EXPECT_EQ(topicTitles(u"• Intro\n  ◦ detail\n"), (QStringList { u"Intro"_s, u"detail"_s }));
    EXPECT_EQ(topicTitles(u"Episode 12\n1. Intro\n10) News\n"), (QStringList { u"Intro"_s, u"News"_s }));
    EXPECT_EQ(topicTitles(u"  - indented"), QStringList(u"indented"_s));
    const ZLChapterSequence chapters = ZLOutlineImport::chaptersInTopicLines(u"* Intro\nsee example.org\n* News");
    ASSERT_EQ(chapters.size(), 2);
    EXPECT_EQ(chapters.first()->link(), u"example.org"_s);
}

TEST(ZLOutlineImportTopicsTest, WithoutAnyMarkEachLineIsATopic)
{
    EXPECT_EQ(topicTitles(u"Intro\n\n  2024. A year\n*no blank\n"),
        (QStringList { u"Intro"_s, u"2024. A year"_s, u"*no blank"_s }));
    const ZLChapterSequence chapters = ZLOutlineImport::chaptersInTopicLines(u"Intro\nhttps://example.org/a\nNews");
    ASSERT_EQ(chapters.size(), 2);
    EXPECT_EQ(chapters.first()->link(), u"https://example.org/a"_s);
    EXPECT_EQ(topicTitles(u" \n\r\n"), QStringList());
}
