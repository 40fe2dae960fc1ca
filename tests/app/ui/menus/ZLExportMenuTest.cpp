#include "app/ui/menus/ZLExportMenu.h"

#include "app/ui/ZLDesktopFixture.h"
#include "app/ui/menus/ZLExports.h"
#include "export/ZLExporter.h"
#include "export/formats/ZLRegisterExporters.h"
#include "export/lists/ZLListExporter.h"

using namespace Qt::StringLiterals;

namespace {

/// Writes the titles, one a line; its name comes before all others.
class TitlesExporter final : public ZLExporter {
public:
    static ZLExportFormat format()
    {
        return {
            .name = u"A List"_s, .dialogKind = ZLExportDialogKind::Save, .fileType = u"list"_s, .optionTitle = {}
        };
    }
    ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override
    {
        return ZLTestChapters::titles(input.chapters).join(u'\n').toUtf8();
    }
};

void registerOnce()
{
    [[maybe_unused]] static const bool isRegistered = [] {
        ZLRegisterExporters();
        ZLExporter::registerExporter(ZLExporterClass::of<TitlesExporter>());
        return true;
    }();
}

}

class ZLExportMenuTest : public ZLDesktopFixture {
protected:
    // The windows ask for the formats once, so these have to be there before.
    ZLExportMenuTest()
    {
        registerOnce();
        m_windows = std::make_unique<ZLDocumentWindows>(m_controller);
    }

    [[nodiscard]] QMenu* menuOf(ZLChapterDocument* document)
    {
        for (const QAction* item : windowOf(document).findChild<QMenu*>(u"fileMenu"_s)->actions()) {
            if (item->menu() && item->menu()->objectName() == "exportMenu"_L1)
                return item->menu();
        }
        return nullptr;
    }
    void exportList(ZLChapterDocument* document) { menuOf(document)->actions().first()->trigger(); }
    /// Confirms the dialog with a folder that has gone.
    void failInDialog()
    {
        const QString folder = filePath(u"gone"_s);
        ASSERT_TRUE(QDir().mkpath(folder));
        exportDialog()->setDirectory(folder);
        ASSERT_TRUE(QDir().rmdir(folder));
        exportDialog()->selectFile(folder + u"/x.list"_s);
        Q_EMIT exportDialog()->finished(QDialog::Accepted);
        flush();
    }
    [[nodiscard]] QByteArray contentsOf(const QString& name) const
    {
        const auto bytes = ZLBoundedFile::read(filePath(name), ZLFileBound::Document);
        return bytes ? bytes.value() : "no file";
    }
};

TEST_F(ZLExportMenuTest, ThereIsOneItemForEachExporterInTheirOrder)
{
    const auto items = menuOf(newDocument())->actions();
    const auto exporters = ZLExporter::allExporters();
    ASSERT_EQ(items.size(), exporters.size());
    ASSERT_GE(items.size(), 2);
    for (int tag = 0; tag < int(items.size()); ++tag) {
        EXPECT_EQ(items.at(tag)->text(), exporters.at(tag).format().name + QChar(0x2026));
        EXPECT_TRUE(items.at(tag)->shortcut().isEmpty());
        EXPECT_EQ(items.at(tag)->property("tag"), QVariant(tag));
    }
    EXPECT_EQ(items.first()->text(), u"A List…"_s);
}

TEST_F(ZLExportMenuTest, EachWindowHasItsOwn)
{
    ZLChapterDocument* first = newDocument();
    ZLChapterDocument* second = newDocument();
    ASSERT_NE(menuOf(first), nullptr);
    EXPECT_NE(menuOf(first), menuOf(second));
    EXPECT_EQ(menuOf(first)->actions().size(), menuOf(second)->actions().size());
}

TEST_F(ZLExportMenuTest, TheCurrentDocumentIsExported)
{
    ZLChapterDocument* first = newDocument();
    ZLChapterDocument* second = newDocument();
    addChapter(first, u"First"_s);
    addChapter(second, u"Second"_s);
    makeCurrent(second);
    exportList(first);
    choose(exportDialog(), filePath(u"current"_s));
    EXPECT_EQ(contentsOf(u"current.list"_s), "Second");
    EXPECT_EQ(passingMessage(second), u"Exported current.list."_s);
    EXPECT_EQ(passingMessage(first), QString());
}

TEST_F(ZLExportMenuTest, ALinePatternIsProposedAgain)
{
    ZLChapterDocument* document = newDocument();
    addChapter(document, u"First"_s);
    const ZLExportMemory memory(m_controller);
    ZLExports exports(m_controller, memory, ZLListExporter::allForms());
    QWidget window;
    auto* item = ZLExportMenu::ofFurtherFormats(exports, &window)->findChild<QAction*>(u"exportShowNotes"_s);
    ASSERT_NE(item, nullptr);
    item->trigger();
    QFileDialog* dialog = exportDialog();
    dialog->findChild<QLineEdit*>(u"linePattern"_s)->setText(u"* {title}"_s);
    choose(dialog, filePath(u"notes.txt"_s));
    EXPECT_EQ(contentsOf(u"notes.txt"_s).trimmed(), "* First");
    item->trigger();
    EXPECT_EQ(exportDialog()->findChild<QLineEdit*>(u"linePattern"_s)->text(), u"* {title}"_s);
}

TEST_F(ZLExportMenuTest, WithoutACurrentDocumentTheOneOpenedFirstIsExported)
{
    ZLChapterDocument* first = newDocument();
    ZLChapterDocument* second = newDocument();
    addChapter(first, u"First"_s);
    addChapter(second, u"Second"_s);
    makeCurrent(second);
    m_windows->applicationDidComeOrGo(false);
    exportList(second);
    choose(exportDialog(), filePath(u"first.list"_s));
    EXPECT_EQ(contentsOf(u"first.list"_s), "First");
}

TEST_F(ZLExportMenuTest, TheMessageComesInTheWindowThatWasExported)
{
    ZLChapterDocument* first = newDocument();
    ZLChapterDocument* second = newDocument();
    makeCurrent(first);
    exportList(first);
    QFileDialog* dialog = exportDialog();
    makeCurrent(second);
    choose(dialog, filePath(u"mine.list"_s));
    EXPECT_EQ(passingMessage(first), u"Exported mine.list."_s);
    EXPECT_EQ(passingMessage(second), QString());
}

TEST_F(ZLExportMenuTest, AnExportReplacesNoOpenDocumentByWhateverPath)
{
    const QString path = storedFile(u"show.zelta"_s);
    ZLChapterDocument* document = openFile(path);
    makeCurrent(document);
    ASSERT_TRUE(QFile::link(path, filePath(u"link.list"_s)));
    ASSERT_TRUE(QDir().mkdir(filePath(u"folder"_s)));
    for (const QString& target : { path, filePath(u"link.list"_s), filePath(u"folder/../show.zelta"_s) }) {
        exportList(document);
        QFileDialog* dialog = exportDialog();
        dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->clearFocus();
        dialog->setDirectory(QFileInfo(target).path());
        dialog->selectFile(target);
        Q_EMIT dialog->finished(QDialog::Accepted);
        flush();
        EXPECT_TRUE(barText(document).contains(" is in use by Zelta. Choose another name."_L1))
            << qPrintable(barText(document));
        EXPECT_EQ(titlesInFile(path), QStringList { u"Stored"_s });
        pressInBar(document, u"Dismiss"_s);
    }
}

TEST_F(ZLExportMenuTest, AFailureIsToldInTheBar)
{
    ZLChapterDocument* document = newDocument();
    makeCurrent(document);
    exportList(document);
    failInDialog();
    EXPECT_TRUE(barText(document).startsWith("The export failed. "_L1)) << qPrintable(barText(document));
    EXPECT_EQ(barButtons(document), QStringList { u"Dismiss"_s });
    EXPECT_EQ(passingMessage(document), QString());
    pressInBar(document, u"Dismiss"_s);
    EXPECT_EQ(barText(document), QString());
}

TEST_F(ZLExportMenuTest, ADialogStartsBesideTheDocumentAndThenWhereItsFormatWasLastWritten)
{
    QFile::remove(ZLStateFolder::path() + u"/export-folders.json"_s);
    ASSERT_TRUE(QDir(filePath({})).mkpath(u"show"_s));
    ASSERT_TRUE(QDir(filePath({})).mkpath(u"feed"_s));
    ZLChapterDocument* document = openFile(storedFile(u"show/show.zelta"_s));
    makeCurrent(document);
    exportList(document);
    EXPECT_EQ(exportDialog()->directory().path(), filePath(u"show"_s));
    choose(exportDialog(), filePath(u"feed/one.list"_s));
    exportList(document);
    EXPECT_EQ(exportDialog()->directory().path(), filePath(u"feed"_s));
    exportDialog()->reject();
    flush();
}

TEST_F(ZLExportMenuTest, AnExportRunsWhoseDocumentIsClosedMeanwhile)
{
    ZLChapterDocument* first = newDocument();
    ZLChapterDocument* second = newDocument();
    addChapter(first, u"First"_s);
    makeCurrent(first);
    exportList(first);
    ASSERT_TRUE(m_controller.closeDocument(first, ZLClosing::Discard));
    flush();
    choose(exportDialog(), filePath(u"closed.list"_s));
    EXPECT_EQ(contentsOf(u"closed.list"_s), "First");
    EXPECT_EQ(passingMessage(second), u"Exported closed.list."_s);
}

TEST_F(ZLExportMenuTest, TheProgramEndsAfterAnExportThatOutlivedTheLastWindow)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    makeCurrent(document);
    exportList(document);
    EXPECT_EQ(ZLProgramRun::run({ [&] { windowOf(document).close(); } }), ZLProgramRun::StillRunning);
    EXPECT_EQ(ZLProgramRun::run({ [&] { choose(exportDialog(), filePath(u"last.list"_s)); } }), 0);
    EXPECT_EQ(contentsOf(u"last.list"_s), "Stored");
}

TEST_F(ZLExportMenuTest, AnExportThatFailsAfterTheLastWindowOpensItAgainToTellSo)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    makeCurrent(document);
    exportList(document);
    windowOf(document).close();
    flush();
    failInDialog();
    ASSERT_EQ(m_controller.documents().size(), 1);
    ZLChapterDocument* again = m_controller.documents().constFirst();
    EXPECT_EQ(titles(again), QStringList { u"Stored"_s });
    EXPECT_TRUE(barText(again).startsWith("The export failed. "_L1)) << qPrintable(barText(again));
}

TEST_F(ZLExportMenuTest, AStartWhileOnlyAnExportIsLeftOpensWhatWasOpen)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    makeCurrent(document);
    exportList(document);
    windowOf(document).close();
    flush();
    openLater({});
    ASSERT_EQ(m_controller.documents().size(), 1);
    EXPECT_EQ(titles(m_controller.documents().constFirst()), QStringList { u"Stored"_s });
    static_cast<QDialog*>(exportDialog())->reject();
}

TEST_F(ZLExportMenuTest, TheNewerOutcomeOfAFormatTakesTheOlderOneAway)
{
    ZLChapterDocument* document = newDocument();
    makeCurrent(document);
    exportList(document);
    failInDialog();
    EXPECT_TRUE(barText(document).startsWith("The export failed. "_L1));
    exportList(document);
    choose(exportDialog(), filePath(u"good.list"_s));
    EXPECT_EQ(barText(document), QString());
    EXPECT_EQ(passingMessage(document), u"Exported good.list."_s);
    exportList(document);
    failInDialog();
    EXPECT_TRUE(barText(document).startsWith("The export failed. "_L1));
    EXPECT_EQ(passingMessage(document), QString());
}
