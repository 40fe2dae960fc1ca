#include "delivery/ui/ZLMediaChaptersModel.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLMediaChaptersModelTest, ShowsTimesToTheMillisecondTitlesAndLinks)
{
    ZLMediaChaptersModel model;
    model.setChapters({ { 0, 1500, u"Eins"_s }, { 3'723'045, 0, u"Zwei"_s, u"https://example.org"_s } });
    ASSERT_EQ(model.rowCount(), 2);
    const auto text = [&](int row, int column) { return model.index(row, column).data().toString(); };
    EXPECT_EQ(text(1, ZLMediaChaptersModel::TimeColumn), u"01:02:03.045"_s);
    EXPECT_EQ(text(1, ZLMediaChaptersModel::TitleColumn), u"Zwei"_s);
    EXPECT_EQ(text(1, ZLMediaChaptersModel::LinkColumn), u"https://example.org"_s);
    EXPECT_TRUE(model.hasLinks());
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), u"Time"_s);
}

TEST(ZLMediaChaptersModelTest, ATitleOfSeveralLinesStandsOnOne)
{
    ZLMediaChaptersModel model;
    model.setChapters({ { 0, 0, u"Two\nlines"_s } });
    EXPECT_EQ(model.index(0, ZLMediaChaptersModel::TitleColumn).data().toString(), u"Two lines"_s);
}

TEST(ZLMediaChaptersModelTest, WhatIsTheSameIsNotShownAnew)
{
    ZLMediaChaptersModel model;
    const ZLMediaChapters chapters { { 0, 0, u"Eins"_s } };
    model.setChapters(chapters);
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    model.setChapters(chapters);
    EXPECT_EQ(resets.count(), 0) << "the selection stays";
    model.setChapters({});
    EXPECT_EQ(resets.count(), 1);
    EXPECT_FALSE(model.hasLinks());
}
