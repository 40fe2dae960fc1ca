#include "app/ui/menus/ZLCopyAsMenu.h"

#include "app/ui/ZLDesktopFixture.h"
#include "export/formats/ZLRegisterExporters.h"
#include "export/lists/ZLListExporter.h"

#include <QClipboard>

using namespace Qt::StringLiterals;

class ZLCopyAsMenuTest : public ZLDesktopFixture {
protected:
    ZLCopyAsMenuTest()
    {
        if (ZLExporter::allExporters().isEmpty())
            ZLRegisterExporters();
        m_windows = std::make_unique<ZLDocumentWindows>(m_controller);
    }

    QString copied(const QString& item)
    {
        trigger(m_document, u"copyAs"_s + item);
        return QApplication::clipboard()->text();
    }

    ZLChapterDocument* m_document = nullptr;
};

TEST_F(ZLCopyAsMenuTest, TheClipboardHoldsWhatTheFileWould)
{
    m_document = newDocument();
    m_document->addChapter(ZLTestChapters::chapterAt(61, u"News"_s));
    EXPECT_EQ(copied(u"YouTube"_s), u"01:01 News\n"_s);
    EXPECT_EQ(copied(u"Markdown"_s), u"*   News\n"_s);
    EXPECT_EQ(copied(u"MarkdownWithOption"_s), u"*   00:01:01 – News\n"_s);
    EXPECT_EQ(copied(u"mp4chaps"_s), u"00:01:01.000 News\n"_s);
    EXPECT_EQ(copied(u"ShowNotes"_s), u"(1:01) News\n"_s);
}

TEST_F(ZLCopyAsMenuTest, TheProposedNameStandsWhereAFilesNameIsPartOfIt)
{
    m_document = openFile(storedFile(u"Episode 5.zelta"_s));
    EXPECT_TRUE(copied(u"FinalCutProX"_s).contains(u"name=\"Episode 5\""_s));
    EXPECT_TRUE(copied(u"CUESheet"_s).contains(u"FILE \"Episode 5.wav\""_s));
}

TEST_F(ZLCopyAsMenuTest, EveryFormatButTheSessionIsThere)
{
    m_document = newDocument();
    const auto exporters = ZLExporter::allExporters() + ZLListExporter::allForms();
    for (const ZLExporterClass& exporter : exporters) {
        const QString name = u"copyAs"_s + QString(exporter.format().name).remove(u' ');
        const bool isText = exporter.format().dialogKind == ZLExportDialogKind::Save;
        EXPECT_EQ(action(m_document, name) != nullptr, isText) << qPrintable(name);
        EXPECT_EQ(action(m_document, name + u"WithOption"_s) != nullptr, isText && exporter.format().hasOption())
            << qPrintable(name);
    }
    EXPECT_EQ(action(m_document, u"copyAsHindenburg"_s), nullptr);
}

TEST_F(ZLCopyAsMenuTest, TheStatusLineSaysWhatTheDestinationWillNotLike)
{
    m_document = newDocument();
    m_document->addChapter(ZLTestChapters::chapterAt(61, u"News"_s));
    (void)copied(u"PodloveSimpleChapters"_s);
    EXPECT_EQ(passingMessage(m_document), u"Copied as Podlove Simple Chapters."_s);
    (void)copied(u"YouTube"_s);
    EXPECT_TRUE(passingMessage(m_document).startsWith(u"Copied as YouTube. YouTube will ignore"_s));
}
