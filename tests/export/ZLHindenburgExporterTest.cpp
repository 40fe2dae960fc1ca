#include "export/formats/ZLHindenburgExporter.h"

#include "export/ZLExportCase.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using ZLExportCase::chapter;

namespace {

ZLExportInput sessionInput(const QByteArray& session, const ZLChapterSequence& chapters = { chapter(1, u"A"_s) })
{
    return { .chapters = chapters, .existingBytes = session };
}

ZLResult<QByteArray> rewritten(const QByteArray& session, const ZLChapterSequence& chapters = { chapter(1, u"A"_s) })
{
    return ZLHindenburgExporter().exportedBytes(sessionInput(session, chapters));
}

/// The Id of the one marker that is added.
QByteArray addedId(const QByteArray& markers)
{
    const auto bytes = rewritten("<Markers>" + markers + "</Markers></Session>");
    EXPECT_TRUE(bytes.isOk());
    const qsizetype name = bytes.value().lastIndexOf("\" Name=\"A\"");
    const qsizetype id = bytes.value().lastIndexOf("Id=\"", name) + 4;
    return bytes.value().mid(id, name - id);
}

}

TEST(ZLHindenburgExporter, AlertsForWhatIsNoSession)
{
    const QByteArray latin = "<Session Name=\"Gr\xf6\xdf"
                             "e\"></Session>";
    for (const QByteArray& unfit : { QByteArray(), latin, QByteArray("</Session>"), QByteArray("</Session> more") }) {
        const auto alert = ZLHindenburgExporter().alertFor(sessionInput(unfit));
        ASSERT_TRUE(alert.has_value()) << unfit.constData();
        EXPECT_EQ(alert->message, u"HALP!"_s);
        EXPECT_EQ(alert->informativeText,
            u"I couldn't find the Sessions tag. Please provide a well formatted Hindenburg File!"_s);
        const auto bytes = rewritten(unfit);
        ASSERT_FALSE(bytes.isOk());
        EXPECT_EQ(bytes.error().message, alert->informativeText);
    }
}

TEST(ZLHindenburgExporter, OnlyThePlaceOfTheEndIsAskedFor)
{
    EXPECT_FALSE(ZLHindenburgExporter().alertFor(sessionInput(" </Session>")).has_value());
    EXPECT_FALSE(ZLHindenburgExporter().alertFor(sessionInput("a shopping list")).has_value());
    EXPECT_EQ(rewritten("a shopping list").value(), "a shopping list");
}

TEST(ZLHindenburgExporter, AbandonsMarkersWithoutAnEnd)
{
    for (const QByteArray& unfit :
        { QByteArray("<S><Markers></Session>"), QByteArray("<S></Markers><Markers></Session>") }) {
        const auto bytes = rewritten(unfit);
        ASSERT_FALSE(bytes.isOk()) << unfit.constData();
        EXPECT_EQ(bytes.error().message, u"The markers of this session have no end."_s);
    }
}

TEST(ZLHindenburgExporter, NumbersAfterTheHighestLeadingInteger)
{
    EXPECT_EQ(addedId(""), "1");
    EXPECT_EQ(addedId("<Marker Id=\"3\" /><Marker Id=\"7\" /><Marker Id=\"5\" />"), "8");
    EXPECT_EQ(addedId("<Marker Id=\"-3\" />"), "1");
    EXPECT_EQ(addedId("<Marker Id=\"+3\" />"), "4");
    EXPECT_EQ(addedId("<Marker Id=\"12abc\" />"), "13");
    EXPECT_EQ(addedId("<Marker Id=\"\n 12\" />"), "13");
}

TEST(ZLHindenburgExporter, AValueReachesToTheNextQuoteAndBlank)
{
    EXPECT_EQ(addedId("<Marker Id=\"2\"/><Marker Id=\"30\"/>"), "3") << "the rest is swallowed";
    EXPECT_EQ(addedId("<Marker Id=\"2\"/><Marker Id=\"30\" /><Marker Id=\"4\" />"), "5");
    EXPECT_EQ(addedId("<Marker Id=\"2\" /><Marker Id=\"\" /><Marker Id=\"9\" />"), "3") << "an empty one ends the scan";
    EXPECT_EQ(addedId("<Marker Id=\"2\" /><Marker Id=\"  \" /><Marker Id=\"9\" />"), "3") << "blanks are skipped";
    EXPECT_EQ(addedId("<Marker Id=\"2"), "3");
    EXPECT_EQ(addedId("<Marker Id=\""), "1");
}

TEST(ZLHindenburgExporter, RefusesAfterTheLargestNumber)
{
    EXPECT_EQ(addedId("<Marker Id=\"2147483646\" />"), "2147483647");
    for (const QByteArray& number : { QByteArray("2147483647"), QByteArray("99999999999999999999999999") })
        EXPECT_FALSE(rewritten("<Markers><Marker Id=\"" + number + "\" /></Markers></Session>").isOk());
    EXPECT_TRUE(rewritten("<Markers><Marker Id=\"2147483647\" /></Markers></Session>", {}).isOk());
}

TEST(ZLHindenburgExporter, MarkersAreAddedOnceMoreEachTime)
{
    const auto once = rewritten("<S><Markers/></Session>");
    ASSERT_TRUE(once.isOk());
    const auto twice = rewritten(once.value());
    ASSERT_TRUE(twice.isOk());
    EXPECT_EQ(twice.value(),
        "<S><Markers>\n\n"
        "<Marker Id=\"1\" Name=\"A\" Time=\"1.000\" Type=\"Chapter\" Title=\"\" URL=\"\"/>\n"
        "<Marker Id=\"2\" Name=\"A\" Time=\"1.000\" Type=\"Chapter\" Title=\"\" URL=\"\"/>\n"
        "</Markers>\n\n</Session>");
}

TEST(ZLHindenburgExporter, AnEndThatARemovedElementLeavesIsAnEnd)
{
    EXPECT_EQ(rewritten("<S></Ses<Markers/>sion>", {}).value(), "<S><Markers>\n</Markers>\n</Session>");
}

TEST(ZLHindenburgExporter, LargeAndHostileSessionsTakeNoLongerThanTheirSize)
{
    // Each of these would take hours where a search began anew, or a replacement moved the rest, for every occurrence.
    constexpr qsizetype megabytes = 8;
    const auto filled = [](const QByteArray& piece) { return piece.repeated(megabytes * (1 << 20) / piece.size()); };
    for (const QByteArray& piece : { QByteArray("<Markers>"), QByteArray("Id=\""), QByteArray("Id=\"1\" "),
             QByteArray("<Markers/>"), QByteArray("<"), QByteArray("</Marker"), QByteArray("\" ") }) {
        const QByteArray inSection = "<Markers>" + filled(piece) + "</Markers></Session>";
        const auto bytes = rewritten(inSection);
        ASSERT_TRUE(bytes.isOk()) << piece.constData();
        EXPECT_TRUE(bytes.value().contains(" Name=\"A\" "));
        const auto open = rewritten(filled(piece));
        EXPECT_TRUE(open.isOk() || open.error().message.endsWith("have no end."_L1)) << piece.constData();
    }
}

TEST(ZLHindenburgExporter, RefusesToGrowBeyondMeasure)
{
    const QByteArray ends = "<S>" + QByteArray("</Session>").repeated(20000);
    const ZLChapterSequence chapters { chapter(1, QString(100000, u'a')) };
    const auto bytes = rewritten(ends, chapters);
    ASSERT_FALSE(bytes.isOk());
    EXPECT_EQ(bytes.error().message, u"The rewritten session would become too large."_s);
    EXPECT_TRUE(rewritten("<S>" + QByteArray("</Session>").repeated(20), chapters).isOk());
}
