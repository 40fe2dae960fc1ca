#include "document/ZLChapterDocument.h"

#include "platform/archive/ZLKeyedArchiver.h"
#include "support/ZLChangeSpy.h"
#include "support/ZLDocumentFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using Settings = ZLSettingsManager;

class ZLChapterDocumentTest : public ZLDocumentFixture {
protected:
    [[nodiscard]] ZLDocumentContents saved() { return ZLDocumentFile::decode(m_document.dataOfType()).value(); }

    [[nodiscard]] static QByteArray fileWith(const QVariantMap& root) { return ZLKeyedArchiver::archivedData(root); }

    [[nodiscard]] static QVariantMap dictionaryAt(double seconds, const QString& title = u""_s)
    {
        return ZLTestChapters::chapterAt(seconds, title)->dictionaryRepresentation();
    }
};

TEST_F(ZLChapterDocumentTest, ANewDocumentSavesEmptyListsAndNoTime)
{
    EXPECT_EQ(saved(), ZLDocumentContents());
    EXPECT_TRUE(ZLChapterDocument::autosavesInPlace());
    EXPECT_EQ(m_document.displayName(), u"Untitled"_s);
    EXPECT_FALSE(m_document.isDocumentEdited());
}

TEST_F(ZLChapterDocumentTest, ASavedDocumentIsReadBackCompletely)
{
    const auto chapter = addChapterAt(10.0, u"Intro ☕"_s);
    chapter->setLink(u"https://example.org"_s);
    chapter->setTags(u"a, b"_s);
    chapter->setRealDate(m_wallClock);
    addChapterAt(-5.0);
    addTemplate(u"Zebra"_s);
    addTemplate(u"Ant"_s);
    record(65.5);
    ZLChapterDocument other(environment());
    EXPECT_TRUE(other.readFromData(m_document.dataOfType()));
    EXPECT_EQ(other.chapterManager().chaptersForSaving(), chapters().chaptersForSaving());
    EXPECT_EQ(other.templateViewController().chaptersForSaving(), templates().chaptersForSaving());
    EXPECT_EQ(other.currentDuration(), 65.5);
    EXPECT_EQ(other.dataOfType(), m_document.dataOfType());
}

TEST_F(ZLChapterDocumentTest, SavingWhileRecordingStoresTheReadingAndGoesOn)
{
    m_document.recordButtonPressed();
    advance(42.5);
    const QByteArray bytes = m_document.dataOfType();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(m_document.duration(), 0.0);
    advance(1.0);
    EXPECT_EQ(m_document.currentDuration(), 43.5);
    ZLChapterDocument other(environment());
    ASSERT_TRUE(other.readFromData(bytes));
    EXPECT_FALSE(other.isRecording());
    EXPECT_EQ(other.currentDuration(), 42.5);
    EXPECT_EQ(other.clockText(), u"00:00:42.5"_s);
}

TEST_F(ZLChapterDocumentTest, ADocumentThatWasReadResumesWhereItStood)
{
    ASSERT_TRUE(m_document.readFromData(fileWith({ { u"Duration"_s, 65.5 } })));
    advance(100.0);
    EXPECT_EQ(m_document.currentDuration(), 65.5);
    m_document.recordButtonPressed();
    advance(1.0);
    EXPECT_EQ(m_document.currentDuration(), 66.5);
}

TEST_F(ZLChapterDocumentTest, ChaptersAreSortedOnReadingAndTemplatesAreNot)
{
    ASSERT_TRUE(m_document.readFromData(
        fileWith({ { u"Chapters"_s, QVariantList { dictionaryAt(30.0), dictionaryAt(10.0), dictionaryAt(20.0) } },
            { u"Templates"_s, QVariantList { dictionaryAt(9.0, u"z"_s), dictionaryAt(1.0, u"a"_s) } } })));
    EXPECT_EQ(times(), QList<double>({ 10.0, 20.0, 30.0 }));
    EXPECT_EQ(ZLTestChapters::titles(templates().allChapters()), QStringList({ u"z"_s, u"a"_s }));
}

TEST_F(ZLChapterDocumentTest, AMissingUUIDIsReplacedAndThenKept)
{
    QVariantMap withoutUUID = dictionaryAt(1.0);
    withoutUUID.remove(u"UUID"_s);
    ASSERT_TRUE(m_document.readFromData(fileWith({ { u"Chapters"_s, QVariantList { withoutUUID } } })));
    const QString uuid = chapters().lastChapter()->uuid();
    EXPECT_EQ(uuid.size(), 36);
    ASSERT_TRUE(m_document.readFromData(m_document.dataOfType()));
    EXPECT_EQ(chapters().lastChapter()->uuid(), uuid);
}

TEST_F(ZLChapterDocumentTest, AChapterWithoutALinkIsSavedWithoutItsLaterEntries)
{
    QVariantMap withoutLink = dictionaryAt(1.0, u"x"_s);
    withoutLink.remove(u"Link"_s);
    ASSERT_TRUE(m_document.readFromData(fileWith({ { u"Chapters"_s, QVariantList { withoutLink } } })));
    EXPECT_EQ(saved().chapters.first().toMap().keys(), QStringList({ u"Enabled"_s, u"TimeStamp"_s, u"Title"_s }));
}

TEST_F(ZLChapterDocumentTest, MissingEntriesEmptyWhatTheDocumentHeld)
{
    addChapterAt(1.0);
    addTemplate(u"News"_s);
    record(5.0);
    ASSERT_TRUE(m_document.readFromData(fileWith({})));
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_EQ(templates().count(), 0);
    EXPECT_EQ(m_document.currentDuration(), 0.0);
}

TEST_F(ZLChapterDocumentTest, AnEntryThatIsNoDictionaryBecomesAnEmptyDisabledChapter)
{
    ASSERT_TRUE(m_document.readFromData(
        fileWith({ { u"Duration"_s, u"65.5"_s }, { u"Chapters"_s, QVariantList { 5, dictionaryAt(3.0) } } })));
    EXPECT_EQ(m_document.currentDuration(), 65.5);
    ASSERT_EQ(times(), QList<double>({ 0.0, 3.0 }));
    EXPECT_FALSE(chapters().chapterAtIndex(0)->isEnabled());
    EXPECT_TRUE(chapters().chapterAtIndex(0)->title().isNull());
}

TEST_F(ZLChapterDocumentTest, UnreadableBytesLeaveEverythingAsItWas)
{
    addChapterAt(1.0, u"Intro"_s);
    addTemplate(u"News"_s);
    m_document.recordButtonPressed();
    advance(5.0);
    m_document.setDocumentEdited(false);
    const QByteArray before = m_document.dataOfType();
    const ZLChangeSpy contents(m_document, ZLDocumentChange::Contents);
    for (const QByteArray& bytes :
        { QByteArray(), QByteArray("hello"), before.chopped(1), ZLKeyedArchiver::archivedData(u"just a text"_s) }) {
        ZLFileOperationError error;
        EXPECT_FALSE(m_document.readFromData(bytes, {}, &error));
        EXPECT_FALSE(error.message.isEmpty());
        EXPECT_FALSE(m_document.readFromData(bytes));
    }
    EXPECT_EQ(m_document.dataOfType(), before);
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_TRUE(history().canUndo());
    EXPECT_FALSE(m_document.isDocumentEdited());
    EXPECT_EQ(contents.size(), 0);
}

TEST_F(ZLChapterDocumentTest, ASuccessfulReadLeavesAMeaninglessErrorBehind)
{
    ZLFileOperationError error;
    EXPECT_TRUE(m_document.readFromData(fileWith({}), u"any type at all"_s, &error));
    EXPECT_EQ(error.domain, u"NSOSStatusErrorDomain"_s);
    EXPECT_EQ(error.code, -4);
    EXPECT_TRUE(error.message.isEmpty());
    EXPECT_TRUE(m_document.readFromData(fileWith({}), {}, nullptr));
}

TEST_F(ZLChapterDocumentTest, ReadingStopsTheClockEmptiesTheHistoryAndSelectsTheFirstRow)
{
    addChapterAt(1.0);
    addChapterAt(2.0);
    m_document.recordButtonPressed();
    const QByteArray bytes = m_document.dataOfType();
    const ZLChangeSpy states(m_document, ZLDocumentChange::Recording);
    ASSERT_TRUE(m_document.readFromData(bytes));
    EXPECT_FALSE(m_document.isRecording());
    EXPECT_FALSE(history().canUndo());
    EXPECT_FALSE(history().canRedo());
    EXPECT_EQ(m_document.selectedRow(), 0);
    EXPECT_FALSE(m_document.isDocumentEdited());
    EXPECT_GE(states.size(), 1);
}

TEST_F(ZLChapterDocumentTest, OpeningAFileIsNoChangeThatIsWorthSaving)
{
    addChapterAt(1.0);
    addTemplate(u"News"_s);
    ZLChapterDocument other(environment());
    const ZLChangeSpy contents(other, ZLDocumentChange::Contents);
    const QSignalSpy edited(&other, &ZLChapterDocument::editedStateDidChange);
    ASSERT_TRUE(other.readFromData(m_document.dataOfType()));
    EXPECT_EQ(contents.size(), 0);
    EXPECT_EQ(edited.size(), 0);
}

TEST_F(ZLChapterDocumentTest, RevertingIsOneUndoableStep)
{
    const auto kept = addChapterAt(10.0, u"Kept"_s);
    addTemplate(u"News"_s);
    const ZLDocumentContents contents = saved();
    m_document.updateChapterToTitle(kept, u"Changed"_s);
    addChapterAt(20.0, u"Added"_s);
    record(5.0);
    m_document.adoptContents(contents);
    EXPECT_EQ(titles(), QStringList({ u"Kept"_s }));
    EXPECT_EQ(m_document.currentDuration(), 0.0);
    EXPECT_EQ(m_document.selectedRow(), 0);
    EXPECT_EQ(saved(), contents);
    history().undo();
    EXPECT_EQ(titles(), QStringList({ u"Changed"_s, u"Added"_s }));
    EXPECT_EQ(m_document.currentDuration(), 5.0);
    EXPECT_EQ(chapters().chapterAtIndex(0), kept);
    history().redo();
    EXPECT_EQ(saved(), contents);
    history().undo();
    // The steps from before the revert still find their chapters.
    for (int step = 0; step < 3; ++step)
        history().undo();
    history().undo();
    EXPECT_EQ(kept->title(), u"Kept"_s);
    EXPECT_EQ(titles(), QStringList({ u"Kept"_s }));
}

TEST_F(ZLChapterDocumentTest, EditingATemplateInItsTableDoesNotMarkTheDocumentButIsWorthSaving)
{
    addTemplate(u"News"_s);
    auto& table = m_document.templateViewController().tableModel();
    const ZLChangeSpy contents(m_document, ZLDocumentChange::Contents);
    EXPECT_TRUE(table.setData(table.index(0, ZLTemplatesTableModel::TitleColumn), u"Weather"_s, Qt::EditRole));
    EXPECT_FALSE(m_document.isDocumentEdited());
    EXPECT_EQ(contents.size(), 1);
    EXPECT_FALSE(history().canUndo());
    EXPECT_EQ(templates().chapterAtIndex(0)->title(), u"Weather"_s);
}

TEST_F(ZLChapterDocumentTest, TheDrawersButtonsMarkTheDocument)
{
    auto& controller = m_document.templateViewController();
    const ZLChangeSpy faces(m_document, ZLDocumentChange::AddButton | ZLDocumentChange::Templates);
    const auto expectMarked = [this](const char* what) {
        EXPECT_TRUE(m_document.isDocumentEdited()) << what;
        m_document.setDocumentEdited(false);
    };
    controller.addChapterButtonPressed();
    expectMarked("add");
    controller.importFromPasteboard({ u"- Intro\n- News"_s });
    expectMarked("import");
    controller.moveTemplate(0, 2);
    expectMarked("move");
    controller.removeChapterButtonPressed();
    expectMarked("remove");
    EXPECT_EQ(faces.size(), 4);
    for (const char* what : { "undone remove", "undone move", "undone import", "undone add" }) {
        history().undo();
        expectMarked(what);
    }
    EXPECT_EQ(faces.size(), 8);
}

TEST_F(ZLChapterDocumentTest, TheEditedStateIsAnnouncedWhenItChanges)
{
    const QSignalSpy edited(&m_document, &ZLChapterDocument::editedStateDidChange);
    addChapterAt(1.0);
    addChapterAt(2.0);
    EXPECT_EQ(edited.size(), 1);
    m_document.setDocumentEdited(false);
    m_document.setDocumentEdited(false);
    EXPECT_EQ(edited.size(), 2);
    history().undo();
    EXPECT_TRUE(m_document.isDocumentEdited());
}

TEST_F(ZLChapterDocumentTest, ANewNameIsAnnounced)
{
    const QSignalSpy names(&m_document, &ZLChapterDocument::displayNameDidChange);
    m_document.setDisplayName(u"Episode 12.zelta"_s);
    EXPECT_EQ(m_document.displayName(), u"Episode 12.zelta"_s);
    EXPECT_EQ(names.size(), 1);
}

TEST_F(ZLChapterDocumentTest, TheClockShowsTruncatedTenths)
{
    ASSERT_TRUE(m_document.readFromData(fileWith({ { u"Duration"_s, 65.38 } })));
    EXPECT_EQ(m_document.clockText(), u"00:01:05.3"_s);
    ASSERT_TRUE(m_document.readFromData(fileWith({ { u"Duration"_s, 360000.99 } })));
    EXPECT_EQ(m_document.clockText(), u"100:00:00.9"_s);
    ASSERT_TRUE(m_document.readFromData(fileWith({ { u"Duration"_s, -5.0 } })));
    EXPECT_EQ(m_document.clockText(), u"00:00:00.0"_s);
    ASSERT_TRUE(m_document.readFromData(fileWith({ { u"Duration"_s, 1e300 } })));
    EXPECT_FALSE(m_document.clockText().isEmpty());
}

TEST_F(ZLChapterDocumentTest, TheAgeOfTheLastChapterIsShownWhenThereIsOne)
{
    m_document.recordButtonPressed();
    advance(100.0);
    EXPECT_TRUE(m_document.lastChapterAgeText().isEmpty());
    addChapterAt(30.5);
    addChapterAt(10.0);
    EXPECT_EQ(m_document.lastChapterAgeText(), u"00:01:09"_s);
}

TEST_F(ZLChapterDocumentTest, TheAddButtonShowsNextForTemplatesUnlessOptionIsHeld)
{
    EXPECT_EQ(m_document.addButtonFace(), ZLAddButtonFace::Add);
    addTemplate(u"News"_s);
    EXPECT_EQ(m_document.addButtonFace(), ZLAddButtonFace::Next);
    m_isOptionKeyHeld = true;
    EXPECT_EQ(m_document.addButtonFace(), ZLAddButtonFace::Add);
    m_isOptionKeyHeld = false;
    EXPECT_EQ(m_document.addButtonFace(), ZLAddButtonFace::Next);
}

TEST_F(ZLChapterDocumentTest, TakingATemplateAndPuttingItBackRefreshTheAddButton)
{
    addTemplate(u"News"_s);
    m_document.recordButtonPressed();
    QList<ZLAddButtonFace> faces;
    QObject::connect(
        &m_document, &ZLChapterDocument::changed, &m_document, [this, &faces](const ZLDocumentChange& change) {
            if (change.concerns(ZLDocumentChange::Templates))
                faces.append(m_document.addButtonFace());
        });
    m_document.addChapterButtonPressed();
    ASSERT_FALSE(faces.isEmpty());
    EXPECT_EQ(faces.last(), ZLAddButtonFace::Add);
    history().undo();
    EXPECT_EQ(faces.last(), ZLAddButtonFace::Next);
}

TEST_F(ZLChapterDocumentTest, ChaptersCanBeAddedWhileRecordingAndDeletedWhileOneIsSelected)
{
    EXPECT_FALSE(m_document.canAddChapter());
    EXPECT_FALSE(m_document.canDeleteChapter());
    m_document.recordButtonPressed();
    EXPECT_TRUE(m_document.canAddChapter());
    m_document.addChapterButtonPressed();
    EXPECT_TRUE(m_document.canDeleteChapter());
}

TEST_F(ZLChapterDocumentTest, AChangedSelectionTellsTheControllers)
{
    addChapterAt(1.0);
    addChapterAt(2.0);
    const ZLChangeSpy informs(m_document, ZLDocumentChange::concerningControllers);
    m_document.selectLastChapter();
    EXPECT_EQ(informs.size(), 1);
}

TEST_F(ZLChapterDocumentTest, ACommandIsToldOnceWithAllThatItChanged)
{
    addTemplate(u"News"_s);
    ZLSettingsManager::setCreateNewChapterOnStart(true);
    const ZLChangeSpy changes(m_document, ~ZLDocumentChange::Parts());
    m_document.recordButtonPressed();
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes.changes().last().parts,
        ZLDocumentChange::Rows | ZLDocumentChange::Selection | ZLDocumentChange::Templates | ZLDocumentChange::Recording
            | ZLDocumentChange::Contents);
    history().undo();
    ASSERT_EQ(changes.size(), 2);
    const auto chapter = addChapterAt(20.0);
    m_document.updateChapterToTime(chapter, -1.0);
    ASSERT_EQ(changes.size(), 4);
    EXPECT_EQ(changes.changes().last().parts,
        ZLDocumentChange::Times | ZLDocumentChange::EnabledStates | ZLDocumentChange::Contents);
    EXPECT_TRUE(changes.changes().last().chapters.contains(chapter));
    m_document.updateAddButton();
    EXPECT_EQ(changes.changes().last().parts, ZLDocumentChange::Parts(ZLDocumentChange::AddButton));
}

TEST_F(ZLChapterDocumentTest, TheSelectionFollowsItsChapterWhenTheOrderChanges)
{
    const auto first = addChapterAt(1.0);
    addChapterAt(2.0);
    select(0);
    m_document.updateChapterToTime(first, 10.0);
    EXPECT_EQ(m_document.selectedRow(), 1);
}
