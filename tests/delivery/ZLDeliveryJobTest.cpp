#include "ZLWaveFile.h"

#include "delivery/ZLDeliveryJob.h"
#include "support/ZLChapterBuilders.h"

#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <unistd.h>

using namespace Qt::StringLiterals;

class ZLDeliveryJobTest : public testing::Test {
protected:
    ZLDeliveryPlan planFor(const QString& name) const
    {
        const QString path = m_folder.filePath(name);
        EXPECT_TRUE(writeWaveFile(path, 10));
        return ZLDeliveryPlan::make({ ZLTestChapters::chapterAt(1, u"Eins"_s) }, path, 0.0).value();
    }

    QTemporaryDir m_folder;
};

TEST_F(ZLDeliveryJobTest, AFailureDoesNotStopTheOthers)
{
    const QList<ZLDeliveryPlan> plans { planFor(u"a.wav"_s), planFor(u"b.wav"_s), planFor(u"c.wav"_s) };
    ASSERT_TRUE(QFile::remove(plans.at(1).audioPath));
    ZLDeliveryJob job(plans);
    const QSignalSpy ends(&job, &ZLDeliveryJob::didEndFile);
    QSignalSpy finish(&job, &ZLDeliveryJob::didFinish);
    job.start();
    ASSERT_TRUE(finish.wait());
    ASSERT_EQ(ends.size(), 3);
    EXPECT_EQ(ends.at(0).at(2).toString(), u"1 of 1 chapters are in a.wav"_s);
    EXPECT_FALSE(ends.at(1).at(1).toBool());
    EXPECT_TRUE(ends.at(1).at(2).toString().startsWith(plans.at(1).audioPath));
    EXPECT_TRUE(ends.at(2).at(1).toBool());
    EXPECT_EQ(job.fraction(), 1.0);
}

TEST_F(ZLDeliveryJobTest, AFileThatWasChosenByALinkTooIsWrittenOnce)
{
    const ZLDeliveryPlan plan = planFor(u"a.wav"_s);
    const QString link = m_folder.filePath(u"link.wav"_s);
    ASSERT_TRUE(QFile::link(plan.audioPath, link));
    ZLDeliveryPlan byLink = plan;
    byLink.audioPath = link;
    ZLDeliveryJob job({ byLink, plan });
    const QSignalSpy ends(&job, &ZLDeliveryJob::didEndFile);
    QSignalSpy finish(&job, &ZLDeliveryJob::didFinish);
    job.start();
    ASSERT_TRUE(finish.wait());
    ASSERT_EQ(ends.size(), 2);
    EXPECT_TRUE(ends.at(0).at(1).toBool());
    EXPECT_TRUE(ends.at(1).at(1).toBool()) << qPrintable(ends.at(1).at(2).toString());
    EXPECT_TRUE(QFileInfo(link).isSymLink());
}

TEST_F(ZLDeliveryJobTest, TwoNamesOfOneFileAreBothWritten)
{
    const ZLDeliveryPlan plan = planFor(u"a.wav"_s);
    const QString other = m_folder.filePath(u"b.wav"_s);
    ASSERT_EQ(link(QFile::encodeName(plan.audioPath).constData(), QFile::encodeName(other).constData()), 0);
    ZLDeliveryPlan second = plan;
    second.audioPath = other;
    ZLDeliveryJob job({ plan, second });
    const QSignalSpy ends(&job, &ZLDeliveryJob::didEndFile);
    QSignalSpy finish(&job, &ZLDeliveryJob::didFinish);
    job.start();
    ASSERT_TRUE(finish.wait());
    EXPECT_TRUE(ends.at(0).at(1).toBool());
    EXPECT_TRUE(ends.at(1).at(1).toBool()) << qPrintable(ends.at(1).at(2).toString());
    EXPECT_EQ(ZLDeliveryPlan::make({}, other, 0.0).value().now.chapters.size(), 1);
}

TEST_F(ZLDeliveryJobTest, ACancelledJobLeavesTheFiles)
{
    const ZLDeliveryPlan plan = planFor(u"a.wav"_s);
    ZLDeliveryJob job({ plan });
    QSignalSpy finish(&job, &ZLDeliveryJob::didFinish);
    job.cancel();
    job.start();
    ASSERT_TRUE(finish.wait());
    EXPECT_TRUE(ZLDeliveryPlan::make({}, plan.audioPath, 0.0).value().now.chapters.isEmpty());
}
