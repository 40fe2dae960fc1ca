#include "document/saving/SavingFixture.h"

#include <list>

using namespace Qt::StringLiterals;

/// A command is journaled whole and told once, whatever it consists of: a kill finds it done or not begun.
class ZLJournaledCommandsTest : public SavingFixture {
protected:
    ZLJournaledCommandsTest()
        : saver(titledSaver(filePath("show.zelta")))
    {
        QObject::connect(&document, &ZLChapterDocument::changed, saver.get(), [this](const ZLDocumentChange& change) {
            if (!change.concerns(ZLDocumentChange::concerningControllers))
                return;
            ++informs;
            stateTold = document.dataOfType();
            EXPECT_EQ(journaledBytes(), stateTold) << "told of what a kill could lose";
        });
        document.startRecordingWithTime(clock->seconds);
        clock->seconds += 10.0;
    }

    QByteArray journaledBytes() const { return ZLDocumentFile::encode(journaled().contents); }

    qsizetype recordCount() const
    {
        const auto bytes = ZLBoundedFile::read(
            recoveryFolder.journaledFiles().value(0) + ZLRecoveryFile::JournalSuffix, ZLFileBound::Document);
        return bytes ? ZLJournalRecords::decoded(bytes.value()).records.size() : -1;
    }

    /// Says that `command` is one record, after which the journal holds the whole of it, and how often it was told.
    void expectOneRecord(const char* name, int expectedInforms, const std::function<void()>& command)
    {
        SCOPED_TRACE(name);
        clock->seconds += 1.0;
        const qsizetype before = recordCount();
        informs = 0;
        command();
        EXPECT_EQ(recordCount(), before + 1);
        EXPECT_EQ(journaledBytes(), document.dataOfType());
        EXPECT_EQ(informs, expectedInforms);
        if (expectedInforms > 0) {
            EXPECT_EQ(stateTold, document.dataOfType()) << "told before the command was done";
        }
    }

    void expectOneRecordEachWay(const char* name, int expectedInforms, const std::function<void()>& command)
    {
        expectOneRecord(name, expectedInforms, command);
        expectOneRecord("undone", expectedInforms, [this] { document.undoManager().undo(); });
        expectOneRecord("redone", expectedInforms, [this] { document.undoManager().redo(); });
    }

    void importTemplates(const QString& outline)
    {
        document.templateViewController().importFromPasteboard({ outline });
    }

    void edit(int row, int column, const QString& text)
    {
        EXPECT_TRUE(document.tableModel().setData(document.tableModel().index(row, column), text, Qt::EditRole));
    }

    std::unique_ptr<ZLDocumentSaver> saver;
    int informs = 0;
    QByteArray stateTold;
};

TEST_F(ZLJournaledCommandsTest, MarksAndTheirRemoval)
{
    expectOneRecordEachWay("blank", 1, [this] { document.addChapterButtonPressed(); });
    expectOneRecord("import", 1, [this] { importTemplates(u"- Intro\n- News\n- Outro"_s); });
    expectOneRecordEachWay("from a template", 1, [this] { document.addChapterButtonPressed(); });
    expectOneRecordEachWay("last one deleted", 1, [this] { document.deleteLastChapter(); });
    expectOneRecordEachWay("selected one deleted", 1, [this] { document.deleteButtonPressed(); });
}

TEST_F(ZLJournaledCommandsTest, StartsAndStops)
{
    ZLSettingsManager::setCreateNewChapterOnStart(true);
    ZLSettingsManager::setCreateNewChapterAfterPause(true);
    importTemplates(u"- Intro\n- News"_s);
    expectOneRecordEachWay("stop", 1, [this] { document.recordButtonPressed(); });
    expectOneRecordEachWay("start with a chapter", 1, [this] { document.recordButtonPressed(); });
    document.recordButtonPressed();
    document.setInterruptedRecording(ZLInterruptedRecording { 12.0, QDateTime::currentDateTimeUtc() });
    expectOneRecordEachWay("continued", 1, [this] { document.continueInterruptedRecording(); });
}

TEST_F(ZLJournaledCommandsTest, Edits)
{
    addChapter("One");
    addChapter("Two");
    expectOneRecordEachWay("title", 1, [this] { edit(1, ZLChapterTableModel::TitleColumn, u"Second"_s); });
    expectOneRecordEachWay(
        "link", 1, [this] { edit(1, ZLChapterTableModel::LinkColumn, u"https://second.example"_s); });
    const ZLChapterPointer first = document.chapterManager().chapterAtIndex(0);
    expectOneRecordEachWay("title of a reply", 1, [&] { document.updateChapterToTitle(first, u"First"_s); });
    // Disabled, moved to the front and dated back, all at once.
    expectOneRecordEachWay("time", 1, [this] { edit(1, ZLChapterTableModel::TimeColumn, u"-00:00:05.000"_s); });
    expectOneRecordEachWay("move", 1, [this] { document.moveChaptersByMilliseconds(-5000.0F); });
    expectOneRecordEachWay("revert", 1, [this] { document.adoptContents({ {}, 3.0, { QVariantMap {} } }); });
}

TEST_F(ZLJournaledCommandsTest, WhatTheDocumentKeepsBesides)
{
    addChapter("One");
    const QString uuid = document.chapterManager().chapterAtIndex(0)->uuid();
    ZLDocumentExtras& extras = document.extras();
    expectOneRecordEachWay("a value", 0, [&] { extras.change(u"Sound"_s, QByteArray("abc")); });
    expectOneRecordEachWay("a value that goes", 0, [&] { extras.change(u"Sound"_s, {}); });
    expectOneRecordEachWay("a note", 0, [&] { extras.changeOfChapter(uuid, u"Moved"_s, 0.5); });
    expectOneRecordEachWay(
        "all of it", 1, [this] { document.adoptContents({ {}, 3.0, {}, { { u"Theirs"_s, QVariantList { 1 } } } }); });
    expectOneRecord("no step", 0, [&] { extras.keep(u"Sound"_s, 1); });
}

TEST_F(ZLJournaledCommandsTest, TheDrawersButtons)
{
    ZLTemplatesViewController& drawer = document.templateViewController();
    expectOneRecordEachWay("add", 1, [&] { drawer.addChapterButtonPressed(); });
    expectOneRecordEachWay("import", 1, [this] { importTemplates(u"- Intro\n- News\n- Outro"_s); });
    // Without the template that is on its way, the list would be wrong.
    expectOneRecordEachWay("move", 1, [&] { drawer.moveTemplate(3, 0); });
    expectOneRecordEachWay("remove", 1, [&] { drawer.removeChapterButtonPressed(); });
    expectOneRecord("edit", 0,
        [&] { drawer.tableModel().setData(drawer.tableModel().index(0, ZLTemplatesTableModel::TitleColumn), u"x"_s); });
    EXPECT_EQ(document.undoManager().undoActionName(), u"Remove Template"_s) << "an edited cell is no step";
}

TEST_F(ZLJournaledCommandsTest, ASelectionIsToldAtOnceAndIsNoRecord)
{
    addChapter("One");
    addChapter("Two");
    const qsizetype before = recordCount();
    informs = 0;
    document.selectLastChapter();
    EXPECT_EQ(informs, 1);
    EXPECT_EQ(recordCount(), before);
}

/// No listener hears of a command before the journal has it, in any order of connections: the parameter is the place of
/// the saver among three listeners.
class ZLJournalBeforeListenersTest : public SavingFixture, public testing::WithParamInterface<int> {
protected:
    static constexpr int listenerCount = 3;

    void listen()
    {
        QObject::connect(&document, &ZLChapterDocument::changed, &listeners.emplace_back(), [this] {
            ++tellings;
            EXPECT_EQ(ZLDocumentFile::encode(journaled().contents), document.dataOfType());
        });
    }

    std::unique_ptr<ZLDocumentSaver> saver;
    std::list<QObject> listeners;
    int tellings = 0;
};

TEST_P(ZLJournalBeforeListenersTest, NobodyHearsOfWhatIsNotJournaled)
{
    for (int place = 0; place <= listenerCount; ++place) {
        if (place == GetParam())
            saver = titledSaver(filePath("show.zelta"));
        if (place < listenerCount)
            listen();
    }
    document.startRecordingWithTime(clock->seconds);
    clock->seconds += 10.0;
    addChapter("One");
    tellings = 0;
    document.addChapterButtonPressed();
    document.updateChapterToTitle(document.chapterManager().lastChapter(), u"Intro"_s);
    document.selectLastChapter();
    document.undoManager().undo();
    document.recordButtonPressed();
    EXPECT_EQ(tellings, listenerCount * 5);
}

INSTANTIATE_TEST_SUITE_P(EveryOrder, ZLJournalBeforeListenersTest, testing::Range(0, 4));
