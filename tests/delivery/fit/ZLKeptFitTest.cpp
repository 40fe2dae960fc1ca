#include "ZLFitFixture.h"

#include "delivery/fit/ZLKeptFits.h"
#include "document/shared/ZLChapterMoves.h"

#include <limits>

using namespace Qt::StringLiterals;

class ZLKeptFitTest : public ZLFitFixture {
protected:
    [[nodiscard]] static ZLKeptFit fitNamed(const QString& name, double fileLength = 85.0)
    {
        ZLKeptFit fit {
            .identifier = name + u"-id"_s, .fileName = name, .madeAt = 5.0, .zero = 1.5, .alignment = cutShow()
        };
        fit.alignment.fileLength = fileLength;
        fit.alignment.movedPieces.push_back({ 70.0, 1.0, 3.0, 1.0, 0.2 });
        return fit;
    }
    /// What is read when one entry of a stored fit is another one.
    [[nodiscard]] static bool isReadWith(const QString& key, const QVariant& value)
    {
        QVariantMap stored = fitNamed(u"a.mp3"_s).stored();
        stored.insert(key, value);
        return ZLKeptFit::of(stored).has_value();
    }
    /// The same with an entry of its second piece.
    [[nodiscard]] static bool isReadWithPiece(const QString& key, double value)
    {
        QVariantList pieces = fitNamed(u"a.mp3"_s).stored().value(u"Pieces"_s).toList();
        QVariantMap piece = pieces.last().toMap();
        piece.insert(key, value);
        pieces.last() = piece;
        return isReadWith(u"Pieces"_s, pieces);
    }
};

TEST_F(ZLKeptFitTest, ComesBackAsItWasKept)
{
    ZLKeptFit fit = fitNamed(u"a.mp3"_s);
    fit.alignment.pieces.front().endRepeats = 12.0;
    fit.alignment.pieces.back().beginRepeats = 3.0;
    const auto again = ZLKeptFit::of(fit.stored());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->alignment.pieces.front().endRepeats, 12.0);
    EXPECT_EQ(again->alignment.pieces.back().beginRepeats, 3.0);
    EXPECT_EQ(again->stored(), fit.stored());
    EXPECT_EQ(again->alignment.pieces.size(), 2U);
    EXPECT_EQ(again->alignment.movedPieces.size(), 1U);
    EXPECT_EQ(again->zero, 1.5);
}

TEST_F(ZLKeptFitTest, WhatMakesNoSenseIsNotRead)
{
    const double infinite = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(isReadWith(u"Zero"_s, -3.0));
    EXPECT_TRUE(isReadWithPiece(u"Length"_s, 39.0));
    for (const double wrong : { infinite, -infinite, nan, 1e300 }) {
        for (const QString& key : { u"Zero"_s, u"ShowLength"_s, u"FileLength"_s })
            EXPECT_FALSE(isReadWith(key, wrong)) << qPrintable(key) << wrong;
        for (const QString& key : { u"ShowStart"_s, u"FileStart"_s, u"Length"_s, u"Rate"_s, u"Differing"_s,
                 u"Elsewhere"_s, u"BeginDoubt"_s, u"EndDoubt"_s, u"BeginRepeats"_s, u"EndRepeats"_s })
            EXPECT_FALSE(isReadWithPiece(key, wrong)) << qPrintable(key) << wrong;
    }
    EXPECT_FALSE(isReadWith(u"Id"_s, QString()));
    EXPECT_FALSE(isReadWith(u"File"_s, QVariant()));
    EXPECT_FALSE(isReadWith(u"Pieces"_s, u"none"_s));
    EXPECT_FALSE(isReadWith(u"Pieces"_s, QVariantList(ZLKeptFit::MostPieces + 1, QVariantMap())));
    EXPECT_FALSE(isReadWithPiece(u"ShowStart"_s, -1.0));
    EXPECT_FALSE(isReadWithPiece(u"FileStart"_s, 1.0)) << "before the first piece";
    EXPECT_FALSE(isReadWithPiece(u"Rate"_s, 0.0));
    EXPECT_FALSE(isReadWithPiece(u"EndDoubt"_s, 0.0));
    EXPECT_FALSE(isReadWithPiece(u"EndRepeats"_s, -1.0));
    EXPECT_FALSE(ZLKeptFit::of(QVariant()));
    EXPECT_FALSE(ZLKeptFit::of(QVariantList { 1, 2 }));
}

TEST_F(ZLKeptFitTest, EachFileHasOneAndTheNewestComesFirst)
{
    ZLDocumentExtras& extras = m_document.extras();
    ZLKeptFits::keep(extras, fitNamed(u"a.mp3"_s));
    ZLKeptFits::keep(extras, fitNamed(u"b.mp4"_s));
    ZLKeptFit again = fitNamed(u"a.mp3"_s);
    again.identifier = u"another"_s;
    again.zero = 7.0;
    EXPECT_EQ(ZLKeptFits::keep(extras, again).identifier, u"a.mp3-id"_s);
    const auto fits = ZLKeptFits::in(extras);
    ASSERT_EQ(fits.size(), 2);
    EXPECT_EQ(fits[0].fileName, u"a.mp3"_s);
    EXPECT_EQ(fits[0].zero, 7.0);
    ZLKeptFits::keep(extras, fitNamed(u"a.mp3"_s, 90.0));
    EXPECT_EQ(ZLKeptFits::in(extras).size(), 3) << "another file with the same name";
    EXPECT_EQ(ZLKeptFits::ofFile(extras, u"a.mp3"_s, 90.2)->alignment.fileLength, 90.0);
    EXPECT_EQ(ZLKeptFits::ofFile(extras, u"a.mp3"_s, 85.0)->alignment.fileLength, 85.0);
    EXPECT_EQ(ZLKeptFits::ofFile(extras, u"b.mp4"_s, std::nullopt)->fileName, u"b.mp4"_s);
    EXPECT_FALSE(ZLKeptFits::ofFile(extras, u"a.mp3"_s, 10.0));
}

TEST_F(ZLKeptFitTest, TheOldestGoesWhenThereAreTooMany)
{
    for (int number = 0; number < 20; ++number)
        ZLKeptFits::keep(m_document.extras(), fitNamed(QString::number(number)));
    const auto fits = ZLKeptFits::in(m_document.extras());
    ASSERT_EQ(fits.size(), ZLKeptFits::MostFits);
    EXPECT_EQ(fits.constFirst().fileName, u"19"_s);
    EXPECT_FALSE(history().canUndo()) << "what a fit found is no change of the chapters";
}
