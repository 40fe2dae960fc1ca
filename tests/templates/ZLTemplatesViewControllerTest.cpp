#include "templates/TemplatesFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

using ZLTemplatesViewControllerTest = TemplatesFixture;

TEST_F(ZLTemplatesViewControllerTest, BeginsEmptyAndUnsorted)
{
    EXPECT_EQ(controller.chapterManager().count(), 0);
    EXPECT_FALSE(controller.chapterManager().wantsSortedChapters());
    EXPECT_EQ(controller.selectedRow(), -1);
    EXPECT_EQ(controller.chaptersForSaving(), QVariantList());
}

TEST_F(ZLTemplatesViewControllerTest, AddingWithTheThirdRowSelectedInsertsTheFourthAndOpensItsTitle)
{
    addTemplates({ u"a"_s, u"b"_s, u"c"_s, u"d"_s });
    select(2);
    const QSignalSpy editing(&controller, &ZLTemplatesViewController::wantsEditing);
    controller.addChapterButtonPressed();
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"b"_s, u"c"_s, u""_s, u"d"_s }));
    EXPECT_EQ(controller.selectedRow(), 3);
    ASSERT_EQ(editing.count(), 1);
    EXPECT_EQ(editing.at(0).at(0).value<QModelIndex>(), model.index(3, ZLTemplatesTableModel::TitleColumn));
    EXPECT_EQ(delegate.updateCount, 1);
    EXPECT_EQ(delegate.lastController, &controller);
}

TEST_F(ZLTemplatesViewControllerTest, AddingToAnEmptyListAppends)
{
    controller.addChapterButtonPressed();
    EXPECT_EQ(controller.chapterManager().count(), 1);
    EXPECT_EQ(controller.selectedRow(), 0);
    EXPECT_EQ(delegate.updateCount, 1);
}

TEST_F(ZLTemplatesViewControllerTest, TheTitleIsOpenedBeforeTheDelegateIsTold)
{
    int updatesAtEditing = -1;
    QObject::connect(&controller, &ZLTemplatesViewController::wantsEditing, &controller,
        [&] { updatesAtEditing = delegate.updateCount; });
    controller.addChapterButtonPressed();
    EXPECT_EQ(updatesAtEditing, 0);
}

TEST_F(ZLTemplatesViewControllerTest, RemovingTakesTheSelectedRowAndSelectsItsNeighbour)
{
    addTemplates({ u"a"_s, u"b"_s, u"c"_s });
    select(1);
    controller.removeChapterButtonPressed();
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"c"_s }));
    EXPECT_EQ(controller.selectedRow(), 1);
    controller.removeChapterButtonPressed();
    EXPECT_EQ(titles(), QStringList(u"a"_s));
    EXPECT_EQ(controller.selectedRow(), 0);
    controller.removeChapterButtonPressed();
    EXPECT_EQ(controller.selectedRow(), -1);
    EXPECT_EQ(delegate.updateCount, 3);
}

TEST_F(ZLTemplatesViewControllerTest, RemovingWithNothingSelectedTellsNobody)
{
    controller.removeChapterButtonPressed();
    EXPECT_EQ(delegate.updateCount, 0);
}

TEST_F(ZLTemplatesViewControllerTest, EditingACellDoesNotCountAsAnUpdate)
{
    addTemplates({ u"a"_s });
    const QSignalSpy changed(&controller, &ZLTemplatesViewController::templateDidChangeInPlace);
    model.setData(model.index(0, 0), u"News"_s);
    model.setData(model.index(0, 1), u"example.com"_s);
    EXPECT_EQ(delegate.updateCount, 0);
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(ZLTemplatesViewControllerTest, ImportAppendsTheOutlinesOfAllTextsEachOnItsOwn)
{
    addTemplates({ u"a"_s });
    controller.importFromPasteboard({ u"example.org\n- Intro\n- News"_s, u"example.com\n- Mail"_s });
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"Intro"_s, u"News"_s, u"Mail"_s }));
    EXPECT_EQ(links(), (QStringList { u""_s, u""_s, u""_s, u""_s }))
        << "what stands before the first heading of a text belongs to no chapter, not even of the text before";
    EXPECT_EQ(delegate.updateCount, 1);
}

TEST_F(ZLTemplatesViewControllerTest, AnImportOfNothingIsStillToldToTheDelegate)
{
    addTemplates({ u"a"_s });
    controller.importFromPasteboard({});
    EXPECT_EQ(delegate.updateCount, 1);
    controller.importFromPasteboard({ u"no heading"_s });
    EXPECT_EQ(delegate.updateCount, 2);
    EXPECT_EQ(titles(), QStringList(u"a"_s));
}

TEST_F(ZLTemplatesViewControllerTest, AnImportIntoAnEmptyListSelectsTheFirst)
{
    controller.importFromPasteboard({ u"- Intro\n- News"_s });
    EXPECT_EQ(controller.selectedRow(), 0);
}

TEST_F(ZLTemplatesViewControllerTest, MovingDownEndsOneBeforeTheGapAndMovingUpInTheGap)
{
    addTemplates({ u"a"_s, u"b"_s, u"c"_s, u"d"_s });
    controller.moveTemplate(0, 3);
    EXPECT_EQ(titles(), (QStringList { u"b"_s, u"c"_s, u"a"_s, u"d"_s }));
    EXPECT_EQ(controller.selectedRow(), 2);
    controller.moveTemplate(3, 0);
    EXPECT_EQ(titles(), (QStringList { u"d"_s, u"b"_s, u"c"_s, u"a"_s }));
    EXPECT_EQ(controller.selectedRow(), 0);
    controller.moveTemplate(0, 4);
    EXPECT_EQ(titles(), (QStringList { u"b"_s, u"c"_s, u"a"_s, u"d"_s }));
    EXPECT_EQ(delegate.updateCount, 3);
}

TEST_F(ZLTemplatesViewControllerTest, AMovedTemplateIsStillTheSameChapter)
{
    addTemplates({ u"a"_s, u"b"_s });
    const auto chapter = controller.chapterManager().chapterAtIndex(0);
    controller.moveTemplate(0, 2);
    EXPECT_EQ(controller.chapterManager().chapterAtIndex(1), chapter);
}

TEST_F(ZLTemplatesViewControllerTest, AMoveFromOrToNowhereChangesNothing)
{
    addTemplates({ u"a"_s, u"b"_s });
    controller.moveTemplate(-1, 0);
    controller.moveTemplate(2, 0);
    controller.moveTemplate(0, 3);
    controller.moveTemplate(0, -1);
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"b"_s }));
    EXPECT_EQ(delegate.updateCount, 0);
}

TEST_F(ZLTemplatesViewControllerTest, TemplatesKeepTheOrderTheyAreGivenWhateverTheirTimes)
{
    addTemplates({ u"late"_s, u"early"_s });
    controller.chapterManager().chapterAtIndex(0)->setTimeStamp(30.0);
    controller.chapterManager().chapterAtIndex(1)->setTimeStamp(-5.0);
    const QVariantList saved = controller.chaptersForSaving();
    EXPECT_EQ(titles(), (QStringList { u"late"_s, u"early"_s }));

    ZLTemplatesViewController other(nullptr, history);
    other.loadChapters(saved);
    EXPECT_EQ(other.chapterManager().chapterAtIndex(0)->title(), u"late"_s);
    EXPECT_FALSE(other.chapterManager().wantsSortedChapters());
    EXPECT_EQ(other.chaptersForSaving(), saved);
}

TEST_F(ZLTemplatesViewControllerTest, LoadingReplacesTheListSelectsItsFirstRowAndTellsNobody)
{
    addTemplates({ u"a"_s, u"b"_s });
    ZLTemplatesViewController other(nullptr, history);
    other.importFromPasteboard({ u"- Intro\n- News\n- Outro"_s });
    select(1);
    controller.loadChapters(other.chaptersForSaving());
    EXPECT_EQ(titles(), (QStringList { u"Intro"_s, u"News"_s, u"Outro"_s }));
    EXPECT_EQ(controller.selectedRow(), 0);
    controller.loadChapters({});
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(controller.selectedRow(), -1);
    EXPECT_EQ(delegate.updateCount, 0);
}

TEST_F(ZLTemplatesViewControllerTest, ARowStaysSelectedWhenTheDocumentTakesAndReturnsTheFirstTemplate)
{
    addTemplates({ u"a"_s, u"b"_s });
    select(0);
    const auto first = controller.chapterManager().chapterAtIndex(0);
    controller.chapterManager().removeChapter(first);
    EXPECT_EQ(controller.selectedRow(), 0);
    controller.chapterManager().removeChapterAtIndex(0);
    EXPECT_EQ(controller.selectedRow(), -1);
    controller.chapterManager().insertChapterAtIndex(first, 0);
    EXPECT_EQ(controller.selectedRow(), 0);
    EXPECT_EQ(delegate.updateCount, 0);
}

TEST_F(ZLTemplatesViewControllerTest, EveryInsertionAndRemovalIsReportedByTheList)
{
    const QSignalSpy changed(&controller.chapterManager(), &ZLChapterManager::chaptersDidChange);
    controller.addChapterButtonPressed();
    EXPECT_EQ(changed.count(), 1);
    controller.importFromPasteboard({ u"- Intro\n- News"_s });
    EXPECT_EQ(changed.count(), 3);
    controller.removeChapterButtonPressed();
    EXPECT_EQ(changed.count(), 4);
}

TEST_F(ZLTemplatesViewControllerTest, WorksWithoutADelegate)
{
    ZLTemplatesViewController alone(nullptr, history);
    alone.addChapterButtonPressed();
    alone.importFromPasteboard({ u"- Intro"_s });
    alone.moveTemplate(0, 2);
    alone.removeChapterButtonPressed();
    EXPECT_EQ(alone.chapterManager().count(), 1);
}

TEST_F(ZLTemplatesViewControllerTest, EachButtonIsAStepThatIsUndoneAndRedoneUnderItsOwnName)
{
    const auto expectStep = [this](const QString& name, const QStringList& before, const QStringList& after) {
        EXPECT_EQ(history.undoActionName(), name);
        EXPECT_EQ(titles(), after);
        const int told = delegate.updateCount;
        history.undo();
        EXPECT_EQ(titles(), before) << qPrintable(name);
        EXPECT_EQ(delegate.updateCount, told + 1) << qPrintable(name);
        EXPECT_EQ(history.redoActionName(), name);
        history.redo();
        EXPECT_EQ(titles(), after) << qPrintable(name);
        EXPECT_EQ(delegate.updateCount, told + 2) << qPrintable(name);
        EXPECT_EQ(history.undoActionName(), name);
    };
    addTemplates({ u"a"_s, u"b"_s });
    select(0);
    controller.addChapterButtonPressed();
    expectStep(u"Add Template"_s, { u"a"_s, u"b"_s }, { u"a"_s, u""_s, u"b"_s });
    controller.removeChapterButtonPressed();
    expectStep(u"Remove Template"_s, { u"a"_s, u""_s, u"b"_s }, { u"a"_s, u"b"_s });
    controller.importFromPasteboard({ u"- Intro\n- News"_s });
    expectStep(u"Import Templates"_s, { u"a"_s, u"b"_s }, { u"a"_s, u"b"_s, u"Intro"_s, u"News"_s });
    controller.moveTemplate(3, 1);
    expectStep(
        u"Move Template"_s, { u"a"_s, u"b"_s, u"Intro"_s, u"News"_s }, { u"a"_s, u"News"_s, u"b"_s, u"Intro"_s });
}

TEST_F(ZLTemplatesViewControllerTest, AnImportOfNothingAMoveToTheSamePlaceAndAnEditedCellAreNoSteps)
{
    addTemplates({ u"a"_s, u"b"_s });
    controller.importFromPasteboard({ u"no heading"_s });
    controller.moveTemplate(0, 1);
    model.setData(model.index(0, 0), u"News"_s);
    EXPECT_FALSE(history.canUndo());
}

TEST_F(ZLTemplatesViewControllerTest, RedoBringsTheSameObjectBackWithTheTextTypedLast)
{
    controller.addChapterButtonPressed();
    const auto chapter = controller.chapterManager().chapterAtIndex(0);
    model.setData(model.index(0, 0), u"News"_s);
    model.setData(model.index(0, 1), u"example.com"_s);
    history.undo();
    EXPECT_EQ(controller.chapterManager().count(), 0);
    history.redo();
    EXPECT_EQ(controller.chapterManager().chapterAtIndex(0), chapter);
    EXPECT_EQ(titles(), QStringList(u"News"_s));
    EXPECT_EQ(links(), QStringList(u"example.com"_s));
}

TEST_F(ZLTemplatesViewControllerTest, WhatAnUndoBringsBackIsSelected)
{
    addTemplates({ u"a"_s, u"b"_s, u"c"_s });
    select(1);
    controller.removeChapterButtonPressed();
    select(0);
    history.undo();
    EXPECT_EQ(controller.selectedRow(), 1);
    controller.moveTemplate(0, 3);
    history.undo();
    EXPECT_EQ(controller.selectedRow(), 0);
}
