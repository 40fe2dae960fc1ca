#include "app/ui/ZLDesktopFixture.h"
#include "export/formats/ZLRegisterExporters.h"
#include "support/ZLAsksSaver.h"

using namespace Qt::StringLiterals;

class ZLExportAgainDisplayTest : public ZLDesktopFixture {
protected:
    ZLExportAgainDisplayTest()
    {
        if (ZLExporter::allExporters().isEmpty())
            ZLRegisterExporters();
        m_windows = std::make_unique<ZLDocumentWindows>(m_controller);
    }

    void SetUp() override
    {
        ZLDesktopFixture::SetUp();
        m_document = openFile(storedFile(u"show.zelta"_s));
    }

    void askFor(const QString& format)
    {
        makeCurrent(m_document);
        const auto menus = QApplication::allWidgets();
        for (QWidget* widget : menus) {
            if (auto* item = widget->objectName().startsWith(u"export"_s)
                    ? widget->findChild<QAction*>(u"export"_s + format)
                    : nullptr) {
                item->trigger();
                break;
            }
        }
    }
    void exportTo(const QString& format, const QString& name)
    {
        askFor(format);
        choose(exportDialog(), filePath(name));
    }
    QByteArray contents(const QString& name) const
    {
        const auto bytes = ZLBoundedFile::read(filePath(name), ZLFileBound::Document);
        return bytes ? bytes.value() : QByteArray("no file");
    }

    ZLChapterDocument* m_document = nullptr;
};

TEST_F(ZLExportAgainDisplayTest, WritesTheSameFormatsToTheSamePlacesInOneStep)
{
    exportTo(u"YouTube"_s, u"a.txt"_s);
    exportTo(u"mp4chaps"_s, u"b.txt"_s);
    addChapter(m_document, u"New"_s);
    trigger(m_document, u"exportAgain"_s);
    EXPECT_EQ(contents(u"a.txt"_s), "00:00 Stored\n00:00 New\n");
    EXPECT_EQ(contents(u"b.txt"_s), "00:00:00.000 Stored\n00:00:00.000 New\n");
    EXPECT_EQ(passingMessage(m_document), u"Exported again: a.txt, b.txt."_s);
    EXPECT_EQ(barText(m_document), QString());
    EXPECT_EQ(exportDialog(), nullptr);
}

TEST_F(ZLExportAgainDisplayTest, AsksInOneBarAboutWhatWasChangedOrIsGone)
{
    exportTo(u"YouTube"_s, u"a.txt"_s);
    exportTo(u"mp4chaps"_s, u"b.txt"_s);
    exportTo(u"Markdown"_s, u"c.mdown"_s);
    ASSERT_TRUE(ZLAtomicFile::write(filePath(u"a.txt"_s), "edited").isOk());
    ASSERT_TRUE(QFile::remove(filePath(u"b.txt"_s)));
    addChapter(m_document, u"New"_s);
    trigger(m_document, u"exportAgain"_s);
    EXPECT_EQ(barText(m_document), u"“a.txt” was changed by another program. “b.txt” is gone."_s);
    EXPECT_EQ(barButtons(m_document), (QStringList { u"Write All"_s, u"Write the Others"_s, u"Cancel"_s }));
    EXPECT_EQ(contents(u"c.mdown"_s), "*   Stored\n") << "nothing is written before the answer";
    pressInBar(m_document, u"Write the Others"_s);
    EXPECT_EQ(contents(u"a.txt"_s), "edited");
    EXPECT_EQ(contents(u"b.txt"_s), "no file");
    EXPECT_EQ(contents(u"c.mdown"_s), "*   Stored\n*   New\n");

    trigger(m_document, u"exportAgain"_s);
    pressInBar(m_document, u"Write All"_s);
    EXPECT_EQ(contents(u"a.txt"_s), "00:00 Stored\n00:00 New\n");
    EXPECT_NE(contents(u"b.txt"_s), "no file");
    trigger(m_document, u"exportAgain"_s);
    EXPECT_EQ(barText(m_document), QString()) << "what was written is known again";
}

TEST_F(ZLExportAgainDisplayTest, ASingleFileIsAskedAboutByItself)
{
    exportTo(u"YouTube"_s, u"a.txt"_s);
    ASSERT_TRUE(ZLAtomicFile::write(filePath(u"a.txt"_s), "edited").isOk());
    trigger(m_document, u"exportAgain"_s);
    EXPECT_EQ(barButtons(m_document), (QStringList { u"Write"_s, u"Cancel"_s }));
    pressInBar(m_document, u"Write"_s);
    EXPECT_EQ(contents(u"a.txt"_s), "00:00 Stored\n");
}

TEST_F(ZLExportAgainDisplayTest, SessionsAreLeftOutWithALine)
{
    ASSERT_TRUE(ZLAtomicFile::write(filePath(u"show.nhsx"_s), "<Session>\n</Session>\n").isOk());
    exportTo(u"Hindenburg"_s, u"show.nhsx"_s);
    exportTo(u"YouTube"_s, u"a.txt"_s);
    const QByteArray before = contents(u"show.nhsx"_s);
    trigger(m_document, u"exportAgain"_s);
    EXPECT_EQ(contents(u"show.nhsx"_s), before);
    EXPECT_EQ(passingMessage(m_document),
        u"Exported again: a.txt. Left out, as chapters in a session would come twice: show.nhsx."_s);
}

TEST_F(ZLExportAgainDisplayTest, ADocumentThatWasNeverExportedSaysSo)
{
    trigger(m_document, u"exportAgain"_s);
    EXPECT_EQ(passingMessage(m_document), u"This document has not been exported to a file yet."_s);
}

TEST_F(ZLExportAgainDisplayTest, AnUntitledDocumentHasItsTargetsAndKeepsThemWhenItGetsAFile)
{
    ZLChapterDocument* untitled = newDocument();
    addChapter(untitled, u"Untitled"_s);
    m_document = untitled;
    exportTo(u"YouTube"_s, u"a.txt"_s);
    trigger(untitled, u"exportAgain"_s);
    EXPECT_EQ(passingMessage(untitled), u"Exported again: a.txt."_s);

    ASSERT_TRUE(ZLAsksSaver::savedAs(*m_controller.saverOf(untitled), filePath(u"new.zelta"_s)).isOk());
    addChapter(untitled, u"New"_s);
    trigger(untitled, u"exportAgain"_s);
    EXPECT_EQ(contents(u"a.txt"_s), "00:00 Untitled\n00:00 New\n");

    ZLChapterDocument* other = newDocument();
    addChapter(other, u"Other"_s);
    trigger(other, u"exportAgain"_s);
    EXPECT_EQ(passingMessage(other), u"This document has not been exported to a file yet."_s);
}

TEST_F(ZLExportAgainDisplayTest, AFileThatIsWrittenAgainTakesTheFailureOfItsFormatAway)
{
    exportTo(u"YouTube"_s, u"a.txt"_s);
    askFor(u"YouTube"_s);
    exportDialog()->selectFile(filePath(u"show.zelta"_s));
    Q_EMIT exportDialog()->finished(QDialog::Accepted);
    flush();
    EXPECT_TRUE(barText(m_document).startsWith("The export failed. "_L1)) << qPrintable(barText(m_document));
    trigger(m_document, u"exportAgain"_s);
    EXPECT_EQ(passingMessage(m_document), u"Exported again: a.txt."_s);
    EXPECT_EQ(barText(m_document), QString());
}
