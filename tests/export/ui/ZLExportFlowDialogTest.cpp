#include "ZLExportFlowFixture.h"

#include "export/formats/ZLFinalCutExporter.h"
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
    EXPECT_FALSE(dialog->testOption(QFileDialog::DontUseNativeDialog));
    EXPECT_FALSE(dialog->testOption(QFileDialog::ReadOnly)) << "folders can be created";
    press(QDialogButtonBox::Cancel);
    deleteFinished();
}

TEST_F(ZLExportFlowDialogTest, GoesWithTheWindowInFrontOfWhichItStands)
{
    auto window = std::make_unique<QWidget>();
    m_flow = new ZLExportFlow(ZLExporterClass::of<ZLSimpleChaptersExporter>());
    connectOutcome();
    m_flow->exportChapters(m_document.get(), window.get());
    ASSERT_TRUE(m_flow->dialog()->isWindow());

    window.reset();
    deleteFinished();

    EXPECT_TRUE(m_flow.isNull());
    EXPECT_TRUE(m_written.isEmpty() && m_failures.isEmpty());
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
        QStringList { u"YouTube needs a first chapter at 00:00, at least three, each ten seconds or longer: "
                      "the first is at 00:05; there is only one."_s });
    EXPECT_EQ(adviceView()->accessibleName(), advice().join(u'\n'));

    save(at(u"out.txt"_s));
    EXPECT_EQ(contentsOf(u"out.txt"_s), "00:05 One & only\n") << "not a byte is different for it";
}

TEST_F(ZLExportFlowDialogTest, TheAdviceFollowsTheDocument)
{
    start<ZLYouTubeExporter>(m_document.get());
    addChapter(0, u"Start"_s);
    EXPECT_TRUE(advice().value(0).endsWith("there are only 2; chapter 1 is 5 s long."_L1)) << qPrintable(advice()[0]);
    addChapter(60, u"Later"_s);
    EXPECT_TRUE(advice().value(0).endsWith("longer: chapter 1 is 5 s long."_L1)) << qPrintable(advice()[0]);
    m_document->removeChapter(m_document->chapterManager().chapterAtIndex(1));
    addChapter(90, u"Last"_s);
    EXPECT_EQ(advice(), QStringList());
    EXPECT_FALSE(adviceView()->isVisible());
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
