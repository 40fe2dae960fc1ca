#include "delivery/fit/ZLFitReport.h"

#include "ZLFitFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

class ZLFitReportTest : public ZLFitFixture {
protected:
    [[nodiscard]] static ZLSoundAlignment withTeaser()
    {
        ZLSoundAlignment alignment = cutShow();
        alignment.movedPieces = { { 72.0, 0.4, 4.0, 1.0, 0.1 } };
        return alignment;
    }
    [[nodiscard]] static QJsonObject reportOf(const ZLFit& fit)
    {
        return QJsonDocument::fromJson(ZLFitReport::json(fit)).object();
    }
};

TEST_F(ZLFitReportTest, AProgramReadsChaptersAndPieces)
{
    addMarks();
    const QJsonObject report = reportOf(fitOf(cutShow()));
    EXPECT_EQ(report.keys(), (QStringList { u"chapters"_s, u"pieces"_s }));
    const QJsonArray marks = report.value(u"chapters"_s).toArray();
    ASSERT_EQ(marks.size(), 5);
    EXPECT_EQ(marks.at(0).toObject().keys(),
        (QStringList { u"confidence"_s, u"newTime"_s, u"oldTime"_s, u"state"_s, u"uuid"_s }));
    QStringList states;
    for (const auto& mark : marks)
        states.append(mark.toObject().value(u"state"_s).toString());
    EXPECT_EQ(states, (QStringList { u"kept"_s, u"cut"_s, u"seam"_s, u"kept"_s, u"notFound"_s }));
    EXPECT_EQ(marks.at(1).toObject().value(u"newTime"_s), 45.0);
    EXPECT_TRUE(marks.at(4).toObject().value(u"newTime"_s).isNull());
    const QJsonArray pieces = report.value(u"pieces"_s).toArray();
    ASSERT_EQ(pieces.size(), 2);
    EXPECT_EQ(pieces.at(1).toObject(),
        (QJsonObject { { u"showStart"_s, 60.0 }, { u"fileStart"_s, 45.0 }, { u"length"_s, 40.0 } }));
}

TEST_F(ZLFitReportTest, ATeaserHasAKeyOfItsOwnAndLeavesTheOthersAsTheyAre)
{
    addMarks();
    const QJsonObject plain = reportOf(fitOf(cutShow()));
    const QJsonObject report = reportOf(fitOf(withTeaser()));
    EXPECT_EQ(report.value(u"chapters"_s), plain.value(u"chapters"_s));
    EXPECT_EQ(report.value(u"pieces"_s), plain.value(u"pieces"_s));
    EXPECT_EQ(report.value(u"moved"_s).toArray(),
        (QJsonArray { QJsonObject { { u"showStart"_s, 72.0 }, { u"fileStart"_s, 0.4 }, { u"length"_s, 4.0 } } }));
}

TEST_F(ZLFitReportTest, ATeaserIsNamedByTheClockOfTheShow)
{
    addMarks();
    EXPECT_TRUE(ZLFitReport::movedText(fitOf(cutShow())).isEmpty());
    EXPECT_EQ(ZLFitReport::movedText(fitOf(withTeaser(), 2.0)),
        u"At 00:00:00 the file also has 00:01:10 to 00:01:14 of the show."_s);
    EXPECT_TRUE(ZLFitReport::table(fitOf(withTeaser())).endsWith(u"00:01:16 of the show.\n"_s));
}
