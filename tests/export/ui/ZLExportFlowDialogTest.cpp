#include "ZLExportFlowFixture.h"

#include "export/formats/ZLFinalCutExporter.h"
#include "export/formats/ZLHindenburgExporter.h"
#include "export/formats/ZLSimpleChaptersExporter.h"
#include "export/formats/ZLYouTubeExporter.h"

#include <QCheckBox>

class ZLExportFlowDialogTest : public ZLExportFlowFixture { };

TEST_F(ZLExportFlowDialogTest, ShowsASaveDialogThatBlocksNothing)
{
    start<ZLSimpleChaptersExporter>(m_document.get());

    QFileDialog* dialog = m_flow->dialog();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(dialog->isWindow());
    EXPECT_FALSE(dialog->isModal());
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog->nameFilters(), QStringList { u"Podlove Simple Chapters (*.psc)"_s });
    EXPECT_EQ(QFileInfo(dialog->selectedFiles().value(0)).fileName(), u"Episode 12.psc"_s);
    EXPECT_TRUE(dialog->findChildren<QCheckBox*>().isEmpty());
    EXPECT_FALSE(dialog->testOption(QFileDialog::ReadOnly)) << "folders can be created";
    press(QDialogButtonBox::Cancel);
    deleteFinished();
}

TEST_F(ZLExportFlowDialogTest, StaysWhenTheWindowGoesInWhichItWasAskedFor)
{
    auto window = std::make_unique<QWidget>();
    m_flow = new ZLExportFlow(ZLExporterClass::of<ZLSimpleChaptersExporter>());
    connectOutcome();
    m_flow->exportChapters(m_document.get(), window.get());
    ASSERT_TRUE(m_flow->dialog()->isWindow());

    window.reset();
    deleteFinished();

    ASSERT_FALSE(m_flow.isNull());
    EXPECT_TRUE(m_flow->dialog()->isVisible());
    save(at(u"out.psc"_s));
    EXPECT_EQ(m_written, QStringList { at(u"out.psc"_s) });
}

TEST_F(ZLExportFlowDialogTest, ClosesItsDialogWhenItsOwnerGoes)
{
    auto owner = std::make_unique<QObject>();
    const QPointer<ZLExportFlow> flow = new ZLExportFlow(ZLExporterClass::of<ZLSimpleChaptersExporter>(), owner.get());
    flow->exportChapters(m_document.get());
    const QPointer<QFileDialog> dialog = flow->dialog();
    ASSERT_FALSE(dialog.isNull());

    owner.reset();

    EXPECT_TRUE(flow.isNull());
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(ZLExportFlowDialogTest, OffersTheCheckboxOfAFormatThatHasOne)
{
    start<NotingExporter>(m_document.get());
    const auto boxes = m_flow->dialog()->findChildren<QCheckBox*>();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.constFirst()->text(), u"With everything"_s);
    EXPECT_FALSE(boxes.constFirst()->isChecked());
    EXPECT_TRUE(boxes.constFirst()->isVisible());
    EXPECT_TRUE(m_flow->dialog()->testOption(QFileDialog::DontUseNativeDialog));

    boxes.constFirst()->click();
    save(at(u"Show 12.3.note"_s));

    EXPECT_EQ(contentsOf(u"Show 12.3.note"_s), "1 0 1 Show 12.3");
}

TEST_F(ZLExportFlowDialogTest, DoesNotRememberTheCheckbox)
{
    start<NotingExporter>(m_document.get());
    m_flow->dialog()->findChild<QCheckBox*>()->click();
    save(at(u"first.note"_s));

    start<NotingExporter>(m_document.get());
    save(at(u"second.note"_s));

    EXPECT_EQ(contentsOf(u"second.note"_s), "1 0 0 second");
}

TEST_F(ZLExportFlowDialogTest, ShowsNoDialogForTheBaseClass)
{
    start<ZLExporter>(m_document.get());
    EXPECT_EQ(m_flow->dialog(), nullptr);
    deleteFinished();
    EXPECT_TRUE(m_flow.isNull());
    EXPECT_TRUE(m_written.isEmpty() && m_failures.isEmpty());
}

TEST_F(ZLExportFlowDialogTest, TellsInTheDialogWhatTheDestinationWillNotLike)
{
    start<ZLYouTubeExporter>(m_document.get());

    ASSERT_NE(adviceView(), nullptr);
    EXPECT_TRUE(adviceView()->isVisible());
    EXPECT_EQ(advice(),
        QStringList { u"YouTube will ignore these chapters: the first is at 00:05 (00:00 needed); there is only 1 (3 "
                      "minimum)."_s });
    EXPECT_EQ(adviceView()->accessibleName(), advice().join(u'\n'));

    save(at(u"out.txt"_s));
    EXPECT_EQ(contentsOf(u"out.txt"_s), "00:05 One & only\n") << "not a byte is different for it";
}

TEST_F(ZLExportFlowDialogTest, TheAdviceFollowsTheDocument)
{
    start<ZLYouTubeExporter>(m_document.get());
    addChapter(0, u"Start"_s);
    EXPECT_TRUE(
        advice().value(0).endsWith("there are only 2 (3 minimum); chapter 1 is only 5 s long (10 s minimum)."_L1))
        << qPrintable(advice()[0]);
    addChapter(60, u"Later"_s);
    EXPECT_TRUE(advice().value(0).endsWith("chapters: chapter 1 is only 5 s long (10 s minimum)."_L1))
        << qPrintable(advice()[0]);
    m_document->removeChapter(m_document->chapterManager().chapterAtIndex(1));
    addChapter(90, u"Last"_s);
    EXPECT_EQ(advice(), QStringList());
    EXPECT_FALSE(adviceView()->isVisible());
    press(QDialogButtonBox::Cancel);
    deleteFinished();
}

TEST_F(ZLExportFlowDialogTest, AllDialogsLookAlikeAndStartWhereTheyAreTold)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"feed"_s));
    for (const ZLExporterClass& exporterClass : { ZLExporterClass::of<ZLFinalCutExporter>(),
             ZLExporterClass::of<ZLHindenburgExporter>(), ZLExporterClass::of<ZLYouTubeExporter>() }) {
        m_flow = new ZLExportFlow(exporterClass);
        m_flow->setFolder(at(u"feed"_s));
        m_flow->exportChapters(m_document.get());
        EXPECT_TRUE(m_flow->dialog()->testOption(QFileDialog::DontUseNativeDialog));
        EXPECT_NE(adviceView(), nullptr);
        EXPECT_EQ(m_flow->dialog()->directory().path(), at(u"feed"_s));
        press(QDialogButtonBox::Cancel);
        deleteFinished();
    }
}

TEST_F(ZLExportFlowDialogTest, TheAdviceFollowsTheSelectedSession)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"list.nhsx"_s), "a shopping list").isOk());
    ASSERT_TRUE(ZLAtomicFile::write(
        at(u"my.nhsx"_s), "<S><Markers><Marker Name=\"One &amp; only\" Time=\"5.000\"/></Markers></Session>")
            .isOk());
    start<ZLHindenburgExporter>(m_document.get());
    EXPECT_EQ(advice(), QStringList());
    type(at(u"list.nhsx"_s));
    EXPECT_EQ(advice(), QStringList { u"The session has no </Session>: there is no place for the markers."_s });
    type(at(u"my.nhsx"_s));
    EXPECT_EQ(advice(),
        QStringList {
            u"The session already has markers with the same time and name, which will come twice: chapter 1."_s });
    press(QDialogButtonBox::Cancel);
    deleteFinished();
}

TEST_F(ZLExportFlowDialogTest, TheAdviceFollowsTheTypedName)
{
    m_document->readFromData(ZLDocumentFile::encode({ .chapters = {}, .duration = 60, .templates = {} }));
    addChapter(5, u"One"_s);
    start<ZLFinalCutExporter>(m_document.get());
    EXPECT_EQ(advice(), QStringList());
    type(at(u"Q&A.fcpxml"_s));
    EXPECT_EQ(advice().size(), 1);
    type(at(u"Q and A.fcpxml"_s));
    EXPECT_EQ(advice(), QStringList());
    press(QDialogButtonBox::Cancel);
    deleteFinished();
}
