#include "delivery/fit/ui/ZLFitPicture.h"

#include "../ZLFitFixture.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class ZLFitPictureTest : public ZLFitFixture {
protected:
    ZLFitPictureTest()
    {
        addMarks();
        m_picture.resize(800, 140);
        m_picture.setFit(fitOf(cutShow()));
    }

    QWidget m_window;
    ZLFitPicture m_picture;
};

TEST_F(ZLFitPictureTest, BothSidesAreOnOneScaleAndBandsJoinWhatWasKept)
{
    const ZLFit fit = fitOf(cutShow());
    const ZLFitPictureLayout layout(fit, QRectF(0.0, 0.0, 1000.0, 100.0));
    EXPECT_EQ(layout.showBar().width(), 1000.0);
    EXPECT_EQ(layout.fileBar().width(), 850.0) << "it is shorter";
    EXPECT_LT(layout.showBar().bottom(), layout.fileBar().top());
    const QPolygonF band = layout.band(fit.alignment.pieces[1]);
    EXPECT_EQ(band,
        QPolygonF({ { 600.0, layout.showBar().bottom() }, { 1000.0, layout.showBar().bottom() },
            { 850.0, layout.fileBar().top() }, { 450.0, layout.fileBar().top() } }));
    EXPECT_EQ(layout.line(fit.chapters[0]).first().x(), 100.0);
    EXPECT_EQ(layout.line(fit.chapters[0]).last().x(), 150.0);
    EXPECT_EQ(layout.line(fit.chapters[4]).size(), 2) << "it was not found, so it ends in the show";
}

TEST_F(ZLFitPictureTest, TheMarkNextToThePointerIsHit)
{
    const ZLFit fit = fitOf(cutShow());
    const ZLFitPictureLayout layout(fit, QRectF(0.0, 0.0, 1000.0, 100.0));
    EXPECT_EQ(layout.markAt({ 100.0, 5.0 }), 0);
    EXPECT_EQ(layout.markAt({ 105.0, 5.0 }), 0);
    EXPECT_EQ(layout.markAt({ 150.0, 95.0 }), 0) << "in the finished file";
    EXPECT_EQ(layout.markAt({ 125.0, 50.0 }), 0) << "on its way";
    EXPECT_EQ(layout.markAt({ 300.0, 50.0 }), -1);
}

TEST_F(ZLFitPictureTest, AClickTakesAMarkAndPlaysIt)
{
    QSignalSpy selected(&m_picture, &ZLFitPicture::markSelected);
    const QSignalSpy played(&m_picture, &ZLFitPicture::playRequested);
    QTest::mouseClick(&m_picture, Qt::LeftButton, {}, m_picture.pointOf(3));
    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected.first().first().toInt(), 3);
    EXPECT_EQ(played.count(), 1);
    QTest::mouseClick(&m_picture, Qt::LeftButton, {}, { 300, 70 });
    EXPECT_EQ(played.count(), 1) << "there is none";
}

TEST_F(ZLFitPictureTest, TheKeysGoFromMarkToMark)
{
    const QSignalSpy played(&m_picture, &ZLFitPicture::playRequested);
    QTest::keyClick(&m_picture, Qt::Key_Right);
    EXPECT_EQ(m_picture.selectedMark(), 0);
    QTest::keyClick(&m_picture, Qt::Key_Left);
    EXPECT_EQ(m_picture.selectedMark(), 0);
    QTest::keyClick(&m_picture, Qt::Key_End);
    QTest::keyClick(&m_picture, Qt::Key_Right);
    EXPECT_EQ(m_picture.selectedMark(), 4);
    QTest::keyClick(&m_picture, Qt::Key_Home);
    EXPECT_EQ(m_picture.selectedMark(), 0);
    QTest::keyClick(&m_picture, Qt::Key_Space);
    EXPECT_EQ(played.count(), 1);
}

TEST_F(ZLFitPictureTest, AScreenReaderHearsWhatItIsAbout)
{
    QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(&m_picture);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->text(QAccessible::Name), u"Picture of the fit"_s);
    EXPECT_TRUE(picture->text(QAccessible::Description).contains(u"finished file: 2."_s));
}

TEST_F(ZLFitPictureTest, AnEmptyOneAndHostileTimesAreNoTrouble)
{
    m_picture.setFit(std::nullopt);
    QTest::keyClick(&m_picture, Qt::Key_Right);
    QTest::mouseClick(&m_picture, Qt::LeftButton, {}, { 10, 10 });
    EXPECT_EQ(m_picture.selectedMark(), -1);
    EXPECT_FALSE(m_picture.grab().isNull());
    addChapterAt(-1e300);
    addChapterAt(1e300);
    m_picture.setFit(fitOf(cutShow()));
    EXPECT_FALSE(m_picture.grab().isNull());
    m_picture.setFit(fitOf({}));
    EXPECT_FALSE(m_picture.grab().isNull());
}
