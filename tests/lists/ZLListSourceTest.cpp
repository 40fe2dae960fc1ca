#include "lists/ZLListSource.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString textOf(const QByteArray& bytes)
{
    const auto source = ZLListSource::fromBytes(bytes);
    return source ? source.value().text() : u"refused: "_s + source.error().message;
}

}

TEST(ZLListSource, EveryUnicodeFormIsReadWithAndWithoutItsMark)
{
    const QString text = u"00:00 Grüße\n01:00 世界\n"_s;
    EXPECT_EQ(textOf(text.toUtf8()), text);
    EXPECT_EQ(textOf("\xEF\xBB\xBF" + text.toUtf8()), text);
    for (const auto encoding : { QStringConverter::Utf16LE, QStringConverter::Utf16BE, QStringConverter::Utf32LE }) {
        QStringEncoder withMark(encoding, QStringConverter::Flag::WriteBom);
        EXPECT_EQ(textOf(withMark(text)), text) << encoding;
    }
    for (const auto encoding : { QStringConverter::Utf16LE, QStringConverter::Utf16BE }) {
        QStringEncoder withoutMark(encoding);
        EXPECT_EQ(textOf(withoutMark(text)), text) << encoding;
    }
}

TEST(ZLListSource, OtherBytesAreReadAsLatin1AndSaidToBeAGuess)
{
    const auto source = ZLListSource::fromBytes("00:00 Gr\xFC\xDF"
                                                "e\n");
    ASSERT_TRUE(source.isOk());
    EXPECT_EQ(source.value().text(), u"00:00 Grüße\n"_s);
    EXPECT_TRUE(source.value().isGuessedLatin1());
    EXPECT_FALSE(ZLListSource::fromBytes("00:00 Gr\xC3\xBC\xC3\x9F"
                                         "e\n")
            .value()
            .isGuessedLatin1());
}

TEST(ZLListSource, WhatIsNoTextIsRefused)
{
    EXPECT_FALSE(ZLListSource::fromBytes(QByteArray("\x7F"
                                                    "ELF\0\x01\xFF\0abc",
                                             12))
            .isOk());
    EXPECT_FALSE(ZLListSource::fromBytes(QByteArray(ZLListSource::MostBytes + 1, ' ')).isOk());
    EXPECT_TRUE(ZLListSource::fromBytes({}).isOk());
}

TEST(ZLListSource, LinesEndInAnyOfThreeWays)
{
    const auto source = ZLListSource::fromText(u"one\ntwo\r\nthree\rfour\n\nfive"_s);
    const QStringList expected { u"one"_s, u"two"_s, u"three"_s, u"four"_s, u""_s, u"five"_s };
    QStringList lines;
    for (const QStringView line : source.value().lines())
        lines.append(line.toString());
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(source.value().firstFullLine(), u"one");
}

TEST(ZLListSource, BrokenJsonSaysWhere)
{
    const auto source = ZLListSource::fromText(u"{\"chapters\": [}"_s);
    EXPECT_FALSE(source.value().json());
    EXPECT_TRUE(source.value().jsonProblem().contains(u"15"_s)) << qPrintable(source.value().jsonProblem());
}
