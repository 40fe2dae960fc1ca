#include "ZLExportFlowFixture.h"

#include "export/formats/ZLHindenburgExporter.h"
#include "export/formats/ZLSimpleChaptersExporter.h"
#include "export/formats/ZLYouTubeExporter.h"

class ZLExportFlowFormatsTest : public ZLExportFlowFixture { };

TEST_F(ZLExportFlowFormatsTest, OpensTheYouTubeListAfterwards)
{
    start<ZLYouTubeExporter>(m_document.get());
    save(at(u"list.txt"_s));
    EXPECT_EQ(m_opened, QStringList { at(u"list.txt"_s) });

    start<ZLYouTubeExporter>(nullptr);
    save(at(u"empty.txt"_s));
    EXPECT_EQ(contentsOf(u"empty.txt"_s), "");
    EXPECT_EQ(m_opened.size(), 2) << "an empty one too";

    start<ZLYouTubeExporter>(m_document.get());
    save(u"/proc/zelta-export.txt"_s);
    EXPECT_EQ(m_failures.size(), 1);
    EXPECT_EQ(m_opened.value(2), u"/proc/zelta-export.txt"_s) << "whether it was written or not";
}

TEST_F(ZLExportFlowFormatsTest, OpensNoOtherFormatAndNothingAfterCancelling)
{
    start<ZLSimpleChaptersExporter>(m_document.get());
    save(at(u"out.psc"_s));
    start<ZLYouTubeExporter>(m_document.get());
    press(QDialogButtonBox::Cancel);
    deleteFinished();
    EXPECT_EQ(m_opened, QStringList());
}

TEST_F(ZLExportFlowFormatsTest, PutsMarkersIntoASession)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"my.nhsx"_s), "<S><Markers/></Session>").isOk());
    start<ZLHindenburgExporter>(m_document.get());
    EXPECT_EQ(m_flow->dialog()->nameFilters(), QStringList { u"Hindenburg (*.nhsx)"_s });
    EXPECT_EQ(m_flow->dialog()->fileMode(), QFileDialog::ExistingFile) << "no folders";

    open(at(u"my.nhsx"_s));

    EXPECT_EQ(contentsOf(u"my.nhsx"_s),
        "<S><Markers>\n<Marker Id=\"1\" Name=\"One &amp; only\" Time=\"5.000\" Type=\"Chapter\" Title=\"\" URL=\"\"/>\n"
        "</Markers>\n</Session>");
    EXPECT_EQ(m_written, QStringList { at(u"my.nhsx"_s) });
}

TEST_F(ZLExportFlowFormatsTest, TheFormerSessionIsKeptBesideIt)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"my.nhsx"_s), "<S></Session>").isOk());
    start<ZLHindenburgExporter>(m_document.get());
    open(at(u"my.nhsx"_s));
    EXPECT_EQ(contentsOf(u"my.nhsx.bak"_s), "<S></Session>");
    EXPECT_EQ(filesInFolder(), (QStringList { u"my.nhsx"_s, u"my.nhsx.bak"_s }));
}

TEST_F(ZLExportFlowFormatsTest, SaysThatNothingWasInserted)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"my.nhsx"_s), "a shopping list").isOk());
    start<ZLHindenburgExporter>(m_document.get());
    open(at(u"my.nhsx"_s));
    ASSERT_TRUE(ZLAtomicFile::write(at(u"my.nhsx"_s), "<S></Session>").isOk());
    m_document->updateChapterToEnabledState(m_document->chapterManager().lastChapter(), false);
    start<ZLHindenburgExporter>(m_document.get());
    open(at(u"my.nhsx"_s));
    EXPECT_EQ(
        m_nothingInserted, (QStringList { u"The session has no </Session>."_s, u"There are no enabled chapters."_s }));
    EXPECT_TRUE(m_written.isEmpty() && m_failures.isEmpty());
}

TEST_F(ZLExportFlowFormatsTest, AlertsWhereThereIsNoSession)
{
    for (const QByteArray& unfit : { QByteArray(), QByteArray("</Session>"), QByteArray("\xff\xfe</Session>") }) {
        ASSERT_TRUE(ZLAtomicFile::write(at(u"my.nhsx"_s), unfit).isOk());
        start<ZLHindenburgExporter>(m_document.get());
        open(at(u"my.nhsx"_s));

        QMessageBox* alert = shownAlert();
        ASSERT_NE(alert, nullptr);
        EXPECT_EQ(alert->text(), u"HALP!"_s);
        EXPECT_EQ(alert->informativeText(),
            u"I couldn't find the Sessions tag. Please provide a well formatted Hindenburg File!"_s);
        ASSERT_EQ(alert->buttons().size(), 1);
        EXPECT_EQ(alert->buttons().constFirst()->text(), u"OK"_s);
        alert->buttons().constFirst()->click();
        deleteFinished();
        EXPECT_EQ(shownAlert(), nullptr);
        EXPECT_EQ(contentsOf(u"my.nhsx"_s), unfit);
    }
    EXPECT_TRUE(m_written.isEmpty() && m_failures.isEmpty()) << "the alert says it";
}

TEST_F(ZLExportFlowFormatsTest, SaysWhyMarkersAreAbandoned)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"my.nhsx"_s), "<S><Markers></Session>").isOk());
    start<ZLHindenburgExporter>(m_document.get());
    open(at(u"my.nhsx"_s));
    EXPECT_EQ(shownAlert(), nullptr);
    EXPECT_EQ(m_failures, QStringList { u"The markers of this session have no end."_s });
    EXPECT_EQ(contentsOf(u"my.nhsx"_s), "<S><Markers></Session>");
}
