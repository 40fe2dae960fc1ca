#include "export/ui/ZLExportFlow.h"

#include "document/ZLChapterDocument.h"
#include "export/formats/ZLFinalCutExporter.h"
#include "export/formats/ZLHindenburgExporter.h"
#include "export/formats/ZLSimpleChaptersExporter.h"
#include "export/formats/ZLYouTubeExporter.h"
#include "export/ui/ZLExportAdviceView.h"
#include "platform/ZLAtomicFile.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QByteArray emptyChapters =
    "<psc:chapters version=\"1.2\" xmlns:psc=\"http://podlove.org/simple-chapters\">\n</psc:chapters>\n";

/// Writes down all that it is given; has a checkbox.
class NotingExporter final : public ZLExporter {
public:
    static ZLExportFormat format()
    {
        return { .name = u"Noting"_s,
            .dialogKind = ZLExportDialogKind::Save,
            .fileType = u"note"_s,
            .optionTitle = u"With everything"_s };
    }
    ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override
    {
        return u"%1 %2 %3 %4"_s.arg(input.chapters.size())
            .arg(input.duration)
            .arg(input.option == ZLExportOption::On)
            .arg(input.fileBaseName)
            .toUtf8();
    }
};

/// Appends the number of chapters to an existing file.
class AppendingExporter final : public ZLExporter {
public:
    static ZLExportFormat format()
    {
        return {
            .name = u"Appending"_s, .dialogKind = ZLExportDialogKind::Open, .fileType = u"session"_s, .optionTitle = {}
        };
    }
    ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override
    {
        if (!input.existingBytes.startsWith("session"))
            return ZLError { u"No session."_s };
        return input.existingBytes + QByteArray::number(input.chapters.size());
    }
};

}

class ZLExportFlowTest : public testing::Test {
protected:
    void SetUp() override
    {
        // The dialog starts in the working directory, where somebody's export of this name might lie.
        ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
        m_document->setDisplayName(u"Episode 12.zelta"_s);
        addChapter(5, u"One & only"_s);
    }

    void TearDown() override { QDir::setCurrent(m_previousFolder); }

    void addChapter(double seconds, const QString& title)
    {
        auto chapter = std::make_shared<ZLChapter>();
        chapter->setTimeStamp(seconds);
        chapter->setTitle(title);
        m_document->addChapter(chapter);
    }

    template <typename Exporter>
    void start(ZLChapterDocument* document)
    {
        m_flow = new ZLExportFlow(ZLExporterClass::of<Exporter>());
        m_flow->setFileOpener([this](const QString& path) { m_opened.append(path); });
        connectOutcome();
        m_flow->exportChapters(document);
    }

    void connectOutcome()
    {
        QObject::connect(
            m_flow, &ZLExportFlow::exportDidFinish, m_flow, [this](const QString& path) { m_written.append(path); });
        QObject::connect(
            m_flow, &ZLExportFlow::exportDidFail, m_flow, [this](const QString& reason) { m_failures.append(reason); });
    }

    void type(const QString& path)
    {
        auto* edit = m_flow->dialog()->findChild<QLineEdit*>(u"fileNameEdit"_s);
        ASSERT_NE(edit, nullptr);
        // As for a user: what is typed takes the place of the selected file only while the field has the keyboard.
        m_flow->dialog()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_flow->dialog()));
        edit->setFocus();
        ASSERT_TRUE(edit->hasFocus());
        // Suggestions pop up in front of the button that is pressed next.
        edit->setCompleter(nullptr);
        edit->selectAll();
        QTest::keyClicks(edit, path);
    }

    void press(QDialogButtonBox::StandardButton button)
    {
        auto* buttons = m_flow->dialog()->findChild<QDialogButtonBox*>();
        ASSERT_NE(buttons, nullptr);
        ASSERT_NE(buttons->button(button), nullptr);
        buttons->button(button)->click();
    }

    void save(const QString& path)
    {
        type(path);
        press(QDialogButtonBox::Save);
        deleteFinished();
    }

    void open(const QString& path)
    {
        type(path);
        press(QDialogButtonBox::Open);
        deleteFinished();
    }

    [[nodiscard]] ZLExportAdviceView* adviceView() const { return m_flow->dialog()->findChild<ZLExportAdviceView*>(); }
    [[nodiscard]] QStringList advice() const { return adviceView() ? adviceView()->lines() : QStringList(); }

    static QMessageBox* shownAlert()
    {
        const auto widgets = QApplication::topLevelWidgets();
        for (QWidget* widget : widgets) {
            if (auto* box = qobject_cast<QMessageBox*>(widget); box && box->isVisible())
                return box;
        }
        return nullptr;
    }

    static void deleteFinished() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QString at(const QString& name) const { return m_folder.filePath(name); }
    QByteArray contentsOf(const QString& name) const
    {
        const auto bytes = ZLAtomicFile::read(at(name));
        return bytes ? bytes.value() : "no file " + name.toUtf8();
    }
    QStringList filesInFolder() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    const QString m_previousFolder = QDir::currentPath();
    QTemporaryDir m_folder;
    std::unique_ptr<ZLChapterDocument> m_document = std::make_unique<ZLChapterDocument>(ZLDocumentEnvironment {});
    QPointer<ZLExportFlow> m_flow;
    QStringList m_written;
    QStringList m_failures;
    QStringList m_opened;
};

TEST_F(ZLExportFlowTest, ShowsASaveDialogThatBlocksNothing)
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

TEST_F(ZLExportFlowTest, WritesTheChaptersOfTheMomentOfConfirming)
{
    start<ZLSimpleChaptersExporter>(m_document.get());
    addChapter(2, u"Later added, earlier in time"_s);

    save(at(u"out.psc"_s));

    EXPECT_EQ(m_written, QStringList { at(u"out.psc"_s) });
    EXPECT_TRUE(m_failures.isEmpty());
    EXPECT_EQ(contentsOf(u"out.psc"_s),
        QByteArray(emptyChapters)
            .replace("</",
                "<psc:chapter start=\"00:00:02.000\" title=\"Later added, earlier in time\" />\n"
                "<psc:chapter start=\"00:00:05.000\" title=\"One &amp; only\" />\n</"));
    EXPECT_EQ(filesInFolder(), QStringList { u"out.psc"_s });
    EXPECT_TRUE(m_flow.isNull()) << "nothing outlives the export";
}

TEST_F(ZLExportFlowTest, TakesTheTypedNameAlsoWhenTheProposedFileExists)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"Episode 12.psc"_s), "precious").isOk());
    start<ZLSimpleChaptersExporter>(m_document.get());

    save(at(u"other.psc"_s));

    EXPECT_EQ(contentsOf(u"Episode 12.psc"_s), "precious");
    EXPECT_EQ(m_written, QStringList { at(u"other.psc"_s) });
}

TEST_F(ZLExportFlowTest, AppendsTheExtensionThatIsMissing)
{
    start<ZLSimpleChaptersExporter>(m_document.get());
    save(at(u"out"_s));
    EXPECT_EQ(filesInFolder(), QStringList { u"out.psc"_s });
}

TEST_F(ZLExportFlowTest, CancellingWritesAndReportsNothing)
{
    start<ZLSimpleChaptersExporter>(m_document.get());
    type(at(u"out.psc"_s));

    press(QDialogButtonBox::Cancel);
    deleteFinished();

    EXPECT_TRUE(filesInFolder().isEmpty());
    EXPECT_TRUE(m_written.isEmpty());
    EXPECT_TRUE(m_failures.isEmpty());
    EXPECT_TRUE(m_flow.isNull());
}

TEST_F(ZLExportFlowTest, OverwritesAfterTheOneQuestionOfTheDialog)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"out.psc"_s), QByteArray(100000, 'x')).isOk());
    start<ZLSimpleChaptersExporter>(nullptr);
    type(at(u"out.psc"_s));
    int questions = 0;
    QTimer answering;
    QObject::connect(&answering, &QTimer::timeout, &answering, [&questions] {
        if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            ++questions;
            question->button(QMessageBox::Yes)->click();
        }
    });
    answering.start(0);

    press(QDialogButtonBox::Save);

    EXPECT_EQ(questions, 1);
    EXPECT_EQ(contentsOf(u"out.psc"_s), emptyChapters);
    EXPECT_EQ(m_written.size(), 1);
    deleteFinished();
}

TEST_F(ZLExportFlowTest, ReportsAFileThatCannotBeWritten)
{
    start<ZLSimpleChaptersExporter>(m_document.get());

    // Not even the administrator can make a file there.
    save(u"/proc/zelta-export.psc"_s);

    EXPECT_TRUE(m_written.isEmpty());
    ASSERT_EQ(m_failures.size(), 1);
    EXPECT_TRUE(m_failures.constFirst().startsWith("/proc/zelta-export.psc: "_L1))
        << qPrintable(m_failures.constFirst());
    EXPECT_FALSE(m_document->chapterManager().allChapters().isEmpty());
    EXPECT_TRUE(m_flow.isNull());
}

TEST_F(ZLExportFlowTest, LeavesNothingBehindInAFolderThatWentAway)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"gone"_s));
    start<ZLSimpleChaptersExporter>(m_document.get());
    type(at(u"gone/out.psc"_s));
    ASSERT_TRUE(QDir(m_folder.path()).rmdir(u"gone"_s));

    press(QDialogButtonBox::Save);
    deleteFinished();

    EXPECT_EQ(m_failures.size(), 1);
    EXPECT_TRUE(filesInFolder().isEmpty());
}

TEST_F(ZLExportFlowTest, WritesTheEmptyFileWithoutADocument)
{
    start<ZLSimpleChaptersExporter>(nullptr);
    EXPECT_EQ(QFileInfo(m_flow->dialog()->selectedFiles().value(0)).fileName(), u"Untitled.psc"_s);

    save(at(u"none.psc"_s));

    EXPECT_EQ(contentsOf(u"none.psc"_s), emptyChapters);
    EXPECT_EQ(m_written.size(), 1);
}

TEST_F(ZLExportFlowTest, WritesNothingForADocumentThatWasClosed)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"old.note"_s), "precious").isOk());
    start<ZLSimpleChaptersExporter>(m_document.get());
    m_document.reset();

    save(at(u"out.psc"_s));

    EXPECT_EQ(m_failures.size(), 1);
    EXPECT_TRUE(m_written.isEmpty());
    EXPECT_EQ(filesInFolder(), QStringList { u"old.note"_s });
}

TEST_F(ZLExportFlowTest, GoesWithTheWindowInFrontOfWhichItStands)
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

TEST_F(ZLExportFlowTest, ClosesItsDialogWhenItsOwnerGoes)
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

TEST_F(ZLExportFlowTest, OffersTheCheckboxOfAFormatThatHasOne)
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

TEST_F(ZLExportFlowTest, DoesNotRememberTheCheckbox)
{
    start<NotingExporter>(m_document.get());
    m_flow->dialog()->findChild<QCheckBox*>()->click();
    save(at(u"first.note"_s));

    start<NotingExporter>(m_document.get());
    save(at(u"second.note"_s));

    EXPECT_EQ(contentsOf(u"second.note"_s), "1 0 0 second");
}

TEST_F(ZLExportFlowTest, HandsOverTheRecordedDuration)
{
    m_document->readFromData(ZLDocumentFile::encode({ .chapters = {}, .duration = 12.5, .templates = {} }));
    start<NotingExporter>(m_document.get());
    save(at(u"long.note"_s));
    EXPECT_EQ(contentsOf(u"long.note"_s), "0 12.5 0 long");
}

TEST_F(ZLExportFlowTest, RewritesAnExistingFileInPlace)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"my.session"_s), "session ").isOk());
    start<AppendingExporter>(m_document.get());
    EXPECT_EQ(m_flow->dialog()->acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(m_flow->dialog()->fileMode(), QFileDialog::ExistingFile);

    type(at(u"my.session"_s));
    press(QDialogButtonBox::Open);
    deleteFinished();

    EXPECT_EQ(contentsOf(u"my.session"_s), "session 1");
    EXPECT_EQ(m_written.size(), 1);
}

TEST_F(ZLExportFlowTest, LeavesAFileAloneThatTheFormatRefuses)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"my.session"_s), "poetry").isOk());
    start<AppendingExporter>(m_document.get());

    type(at(u"my.session"_s));
    press(QDialogButtonBox::Open);
    deleteFinished();

    EXPECT_EQ(m_failures, QStringList { u"No session."_s });
    EXPECT_EQ(contentsOf(u"my.session"_s), "poetry");
}

TEST_F(ZLExportFlowTest, ShowsNoDialogForTheBaseClass)
{
    start<ZLExporter>(m_document.get());
    EXPECT_EQ(m_flow->dialog(), nullptr);
    deleteFinished();
    EXPECT_TRUE(m_flow.isNull());
    EXPECT_TRUE(m_written.isEmpty() && m_failures.isEmpty());
}

TEST_F(ZLExportFlowTest, TellsInTheDialogWhatTheDestinationWillNotLike)
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

TEST_F(ZLExportFlowTest, TheAdviceFollowsTheDocument)
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

TEST_F(ZLExportFlowTest, TheAdviceFollowsTheTypedName)
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

TEST_F(ZLExportFlowTest, OpensTheYouTubeListAfterwards)
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

TEST_F(ZLExportFlowTest, OpensNoOtherFormatAndNothingAfterCancelling)
{
    start<ZLSimpleChaptersExporter>(m_document.get());
    save(at(u"out.psc"_s));
    start<ZLYouTubeExporter>(m_document.get());
    press(QDialogButtonBox::Cancel);
    deleteFinished();
    EXPECT_EQ(m_opened, QStringList());
}

TEST_F(ZLExportFlowTest, PutsMarkersIntoASession)
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

TEST_F(ZLExportFlowTest, AlertsWhereThereIsNoSession)
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

TEST_F(ZLExportFlowTest, SaysWhyMarkersAreAbandoned)
{
    ASSERT_TRUE(ZLAtomicFile::write(at(u"my.nhsx"_s), "<S><Markers></Session>").isOk());
    start<ZLHindenburgExporter>(m_document.get());
    open(at(u"my.nhsx"_s));
    EXPECT_EQ(shownAlert(), nullptr);
    EXPECT_EQ(m_failures, QStringList { u"The markers of this session have no end."_s });
    EXPECT_EQ(contentsOf(u"my.nhsx"_s), "<S><Markers></Session>");
}
