#include "templates/ui/ZLTemplatesDrawer.h"

#include "templates/TemplatesFixture.h"
#include "templates/ui/ZLTemplatesTableView.h"

#include <QAction>
#include <QClipboard>
#include <QDragMoveEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QShortcut>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

class ZLTemplatesDrawerTest : public TemplatesFixture {
protected:
    void SetUp() override
    {
        drawer.resize(280, 400);
        drawer.show();
        drawer.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&drawer));
        table->setFocus();
        QGuiApplication::clipboard()->clear();
    }

    [[nodiscard]] QToolButton* button(const QString& name) { return drawer.findChild<QToolButton*>(name); }

    /// The open cell editor, or null.
    [[nodiscard]] QLineEdit* editor()
    {
        const auto editors = table->viewport()->findChildren<QLineEdit*>();
        for (QLineEdit* candidate : editors) {
            if (candidate->isVisible())
                return candidate;
        }
        return nullptr;
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        // Return commits after the editor has seen the key itself.
        QCoreApplication::processEvents();
    }

    void type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }

    void click(const QString& buttonName) { QTest::mouseClick(button(buttonName), Qt::LeftButton); }

    void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(
            table->viewport(), Qt::LeftButton, modifiers, table->visualRect(model.index(row, 0)).center());
    }

    [[nodiscard]] bool focusIsInside() const
    {
        const QWidget* focus = QApplication::focusWidget();
        return focus && drawer.isAncestorOf(focus) && focus->isEnabled();
    }

    ZLTemplatesDrawer drawer { controller };
    QTableView* table = drawer.findChild<QTableView*>(u"tableView"_s);
};

TEST_F(ZLTemplatesDrawerTest, AddOpensTheTitleAndTypingWithReturnSetsIt)
{
    addTemplates({ u"a"_s, u"b"_s });
    clickRow(0);
    click(u"addButton"_s);
    ASSERT_TRUE(editor());
    EXPECT_TRUE(editor()->hasFocus());
    type(u"News"_s);
    press(Qt::Key_Return);
    EXPECT_FALSE(editor());
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"News"_s, u"b"_s }));
    EXPECT_TRUE(table->hasFocus());
    EXPECT_EQ(delegate.updateCount, 1) << "typing a title is no update";
}

TEST_F(ZLTemplatesDrawerTest, ReturnInTheLastRowGoesOnAndReturnInAnEmptyNewOneEnds)
{
    QStringList topics;
    press(Qt::Key_Return);
    for (int number = 1; number <= 10; ++number) {
        topics.append(u"topic %1"_s.arg(number));
        ASSERT_TRUE(editor());
        type(topics.last());
        press(Qt::Key_Return);
        EXPECT_EQ(titles(), topics + QStringList(u""_s));
    }
    press(Qt::Key_Return);
    EXPECT_FALSE(editor());
    EXPECT_TRUE(table->hasFocus());
    EXPECT_EQ(titles(), topics);
    EXPECT_EQ(controller.selectedRow(), 9);
    for (int steps = 0; steps < 10; ++steps)
        history.undo();
    EXPECT_FALSE(history.canUndo()) << "what came to nothing is no step";
}

TEST_F(ZLTemplatesDrawerTest, EscapeInAnEmptyNewOneTakesItAwayToo)
{
    addTemplates({ u"a"_s });
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_EQ(model.rowCount(), 2);
    type(u"half a title"_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(titles(), QStringList(u"a"_s));
    EXPECT_TRUE(table->hasFocus());
    EXPECT_FALSE(history.canUndo());
}

TEST_F(ZLTemplatesDrawerTest, AnEmptyNewOneBehindAnotherStepGoesAsAStepOfItsOwn)
{
    addTemplates({ u"a"_s });
    controller.addChapterButtonPressed();
    history.registerStep([] { });
    press(Qt::Key_Escape);
    EXPECT_EQ(titles(), QStringList(u"a"_s));
    EXPECT_EQ(history.undoActionName(), u"Remove Template"_s);
}

TEST_F(ZLTemplatesDrawerTest, AnOldTemplateWithoutATitleStays)
{
    addTemplates({ u""_s, u"b"_s });
    clickRow(0);
    press(Qt::Key_F2);
    press(Qt::Key_Return);
    press(Qt::Key_F2);
    press(Qt::Key_Escape);
    EXPECT_EQ(titles(), (QStringList { u""_s, u"b"_s }));
}

TEST_F(ZLTemplatesDrawerTest, F2OpensTheTitleAndShiftF2TheLinkOfTheSelectedTemplate)
{
    addTemplates({ u"a"_s, u"b"_s });
    press(Qt::Key_End);
    EXPECT_EQ(controller.selectedRow(), 1);
    press(Qt::Key_F2, Qt::ShiftModifier);
    type(u"example.com"_s);
    press(Qt::Key_Escape);
    press(Qt::Key_F2);
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->text(), u"b"_s);
    press(Qt::Key_Escape);
    press(Qt::Key_Home);
    EXPECT_EQ(controller.selectedRow(), 0);
}

TEST_F(ZLTemplatesDrawerTest, TabInTheLastLinkClosesIt)
{
    addTemplates({ u"a"_s, u"b"_s });
    press(Qt::Key_End);
    press(Qt::Key_F2, Qt::ShiftModifier);
    type(u"example.com"_s);
    press(Qt::Key_Tab);
    EXPECT_FALSE(editor());
    EXPECT_EQ(links().constLast(), u"example.com"_s);
    EXPECT_EQ(controller.selectedRow(), 1);
}

TEST_F(ZLTemplatesDrawerTest, PasteImportsAtTheEndWhileNoFieldIsOpen)
{
    addTemplates({ u"a"_s });
    QGuiApplication::clipboard()->setText(u"- Intro\n- News"_s);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"Intro"_s, u"News"_s }));
    button(u"importButton"_s)->setFocus();
    press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(model.rowCount(), 5);
}

TEST_F(ZLTemplatesDrawerTest, LinesThatArePastedIntoATitleBecomeTemplatesBehindIt)
{
    addTemplates({ u"a"_s, u"b"_s });
    clickRow(0);
    QGuiApplication::clipboard()->setText(u"Intro\r\nexample.com\r\nNews\r\nOutlook\r\n"_s);
    press(Qt::Key_F2);
    press(Qt::Key_V, Qt::ControlModifier);
    ASSERT_TRUE(editor()) << "typing goes on";
    EXPECT_EQ(editor()->text(), u"Intro"_s);
    EXPECT_EQ(titles(), (QStringList { u"Intro"_s, u"News"_s, u"Outlook"_s, u"b"_s }));
    type(u" and more"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(titles(), (QStringList { u"Intro and more"_s, u"News"_s, u"Outlook"_s, u"b"_s }));

    history.undo();
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"b"_s })) << "all of it is one step";
    history.redo();
    EXPECT_EQ(titles().sliced(1), (QStringList { u"News"_s, u"Outlook"_s, u"b"_s }));
}

TEST_F(ZLTemplatesDrawerTest, AnOutlineThatIsPastedIntoANewTitleLosesItsMarks)
{
    click(u"addButton"_s);
    QGuiApplication::clipboard()->setText(u"1. Intro https://example.com/show\n2. News"_s);
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Escape);
    EXPECT_EQ(titles().size(), 2);
    EXPECT_TRUE(titles().constFirst().startsWith(u"Intro"_s));
    EXPECT_EQ(titles().constLast(), u"News"_s);
    EXPECT_EQ(links().constFirst(), u"https://example.com/show"_s);
}

TEST_F(ZLTemplatesDrawerTest, ASingleLineThatIsPastedIntoATitleIsTypedText)
{
    addTemplates({ u"a"_s });
    QGuiApplication::clipboard()->setText(u"News\n"_s);
    press(Qt::Key_F2);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(titles(), QStringList { u"a"_s }) << "not before it is kept";
    press(Qt::Key_Return);
    EXPECT_EQ(titles().constFirst(), u"News"_s);
    EXPECT_FALSE(history.canUndo() && history.undoActionName() == u"Import Templates"_s);
}

TEST_F(ZLTemplatesDrawerTest, TextThatIsDroppedAnywhereIsImportedAtTheEnd)
{
    addTemplates({ u"a"_s, u"b"_s });
    QMimeData outline;
    outline.setText(u"- Intro\nexample.com"_s);
    const auto drop = [](QWidget* target, const QPoint& place, const QMimeData& data) {
        QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(target, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &event);
        EXPECT_EQ(event.dropAction(), Qt::CopyAction);
        return true;
    };
    EXPECT_TRUE(drop(table->viewport(), table->visualRect(model.index(0, 0)).center(), outline));
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"b"_s, u"Intro"_s }));
    EXPECT_EQ(links().constLast(), u"example.com"_s);
    EXPECT_TRUE(drop(button(u"addButton"_s), { 3, 3 }, outline));
    press(Qt::Key_F2);
    ASSERT_TRUE(editor());
    EXPECT_TRUE(drop(editor(), { 3, 3 }, outline));
    EXPECT_EQ(model.rowCount(), 5);
    EXPECT_EQ(history.undoActionName(), u"Import Templates"_s);

    QMimeData file;
    file.setUrls({ QUrl::fromLocalFile(u"/somewhere/notes.txt"_s) });
    file.setText(u"- not this"_s);
    EXPECT_FALSE(drop(table->viewport(), { 5, 5 }, file)) << "a file is for the window";
}

TEST_F(ZLTemplatesDrawerTest, AddWhileATitleIsTypedKeepsWhatWasTyped)
{
    click(u"addButton"_s);
    type(u"News"_s);
    click(u"addButton"_s);
    ASSERT_TRUE(editor());
    type(u"Mail"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(titles(), (QStringList { u"News"_s, u"Mail"_s, u""_s }));
}

TEST_F(ZLTemplatesDrawerTest, EscapeLeavesTheTitleAsItWas)
{
    addTemplates({ u"News"_s });
    press(Qt::Key_F2);
    ASSERT_TRUE(editor());
    type(u"Mail"_s);
    press(Qt::Key_Escape);
    EXPECT_FALSE(editor());
    EXPECT_EQ(titles(), QStringList(u"News"_s));
    EXPECT_TRUE(table->hasFocus());
}

TEST_F(ZLTemplatesDrawerTest, TabGoesFromTheTitleToTheLinkAndOnToTheNextTitle)
{
    addTemplates({ u"a"_s, u"b"_s });
    press(Qt::Key_F2);
    type(u"News"_s);
    press(Qt::Key_Tab);
    ASSERT_TRUE(editor());
    type(u"example.com"_s);
    press(Qt::Key_Tab);
    ASSERT_TRUE(editor());
    type(u"Mail"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(titles(), (QStringList { u"News"_s, u"Mail"_s }));
    EXPECT_EQ(links(), (QStringList { u"example.com"_s, u""_s }));
}

TEST_F(ZLTemplatesDrawerTest, AnOpenedCellHasItsTextSelected)
{
    addTemplates({ u"News"_s });
    press(Qt::Key_F2);
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->selectedText(), u"News"_s);
    press(Qt::Key_Escape);
    clickRow(0);
    QTest::mouseDClick(
        table->viewport(), Qt::LeftButton, Qt::NoModifier, table->visualRect(model.index(0, 0)).center());
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->selectedText(), u"News"_s);
}

TEST_F(ZLTemplatesDrawerTest, AnEditorThatWasNotTouchedStoresNothing)
{
    addTemplates({ u"News"_s, u"Mail"_s });
    press(Qt::Key_F2);
    ASSERT_TRUE(editor());
    controller.chapterManager().chapterAtIndex(0)->setTitle(u"Changed meanwhile"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(titles(), (QStringList { u"Changed meanwhile"_s, u"Mail"_s }));
}

TEST_F(ZLTemplatesDrawerTest, RemoveTakesTheSelectedRowAndLeavesTheFocusInTheDrawer)
{
    addTemplates({ u"a"_s, u"b"_s });
    clickRow(1);
    click(u"removeButton"_s);
    EXPECT_EQ(titles(), QStringList(u"a"_s));
    EXPECT_EQ(controller.selectedRow(), 0);
    EXPECT_TRUE(table->hasFocus());
    button(u"removeButton"_s)->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(titles(), QStringList());
    EXPECT_FALSE(button(u"removeButton"_s)->isEnabled());
    EXPECT_TRUE(button(u"addButton"_s)->hasFocus());
    click(u"addButton"_s);
    EXPECT_TRUE(button(u"removeButton"_s)->isEnabled());
}

TEST_F(ZLTemplatesDrawerTest, RemoveWhileATitleIsTypedRemovesThatRow)
{
    addTemplates({ u"a"_s, u"b"_s });
    press(Qt::Key_F2);
    type(u"typed"_s);
    click(u"removeButton"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(titles(), QStringList(u"b"_s));
    EXPECT_FALSE(editor());
    EXPECT_TRUE(focusIsInside());
}

TEST_F(ZLTemplatesDrawerTest, TheDeleteKeyRemovesFromTheTableButEditsInTheEditor)
{
    addTemplates({ u"a"_s, u"b"_s });
    press(Qt::Key_F2);
    press(Qt::Key_Delete);
    EXPECT_EQ(model.rowCount(), 2);
    press(Qt::Key_Return);
    EXPECT_EQ(titles(), (QStringList { u""_s, u"b"_s }));
    press(Qt::Key_Delete);
    EXPECT_EQ(titles(), QStringList(u"b"_s));
    EXPECT_TRUE(table->hasFocus());
    press(Qt::Key_Delete);
    press(Qt::Key_Delete);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(delegate.updateCount, 2);
    EXPECT_TRUE(table->hasFocus());
}

TEST_F(ZLTemplatesDrawerTest, TheTablesKeysGoBeforeTheSameKeysOfTheWindow)
{
    addTemplates({ u"a"_s, u"b"_s });
    const QShortcut shortcut(QKeySequence(Qt::Key_Delete), &drawer);
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    press(Qt::Key_Delete);
    EXPECT_EQ(titles(), QStringList(u"b"_s));
    EXPECT_EQ(activated.count(), 0);
    button(u"addButton"_s)->setFocus();
    press(Qt::Key_Delete);
    EXPECT_EQ(activated.count(), 1);
    EXPECT_EQ(titles(), QStringList(u"b"_s));
}

TEST_F(ZLTemplatesDrawerTest, ControlWithAnArrowMovesTheSelectedTemplateUpToTheEnds)
{
    addTemplates({ u"a"_s, u"b"_s, u"c"_s });
    clickRow(0);
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(delegate.updateCount, 0);
    press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(titles(), (QStringList { u"b"_s, u"a"_s, u"c"_s }));
    press(Qt::Key_Down, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(titles(), (QStringList { u"b"_s, u"c"_s, u"a"_s }));
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(titles(), (QStringList { u"b"_s, u"a"_s, u"c"_s }));
    EXPECT_EQ(controller.selectedRow(), 1);
    EXPECT_EQ(delegate.updateCount, 3);
    EXPECT_TRUE(table->hasFocus());
}

TEST_F(ZLTemplatesDrawerTest, ImportTakesTheOutlineFromTheClipboard)
{
    addTemplates({ u"a"_s });
    QGuiApplication::clipboard()->setText(u"- Intro\n- News\nexample.com"_s);
    const auto actions = button(u"importButton"_s)->menu()->actions();
    ASSERT_EQ(actions.size(), 1);
    EXPECT_EQ(actions.constFirst()->text(), u"Import from Clipboard"_s);
    EXPECT_TRUE(actions.constFirst()->shortcut().isEmpty());
    actions.constFirst()->trigger();
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"Intro"_s, u"News"_s }));
    EXPECT_EQ(links().constLast(), u"example.com"_s);
    EXPECT_EQ(delegate.updateCount, 1);
    QGuiApplication::clipboard()->clear();
    actions.constFirst()->trigger();
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(delegate.updateCount, 2);
}

TEST_F(ZLTemplatesDrawerTest, OneRowStaysSelectedWhateverIsClicked)
{
    addTemplates({ u"a"_s, u"b"_s, u"c"_s });
    clickRow(1);
    EXPECT_EQ(controller.selectedRow(), 1);
    clickRow(1, Qt::ControlModifier);
    EXPECT_EQ(controller.selectedRow(), 1);
    clickRow(2, Qt::ShiftModifier);
    EXPECT_EQ(table->selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(controller.selectedRow(), 2);
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(controller.selectedRow(), 2);
    QTest::mouseClick(
        table->viewport(), Qt::LeftButton, Qt::NoModifier, table->viewport()->rect().bottomLeft() - QPoint(-5, 5));
    EXPECT_EQ(controller.selectedRow(), 2);
    controller.loadChapters(controller.chaptersForSaving());
    EXPECT_EQ(controller.selectedRow(), 0);
}

TEST_F(ZLTemplatesDrawerTest, ALoadWithAnOpenEditorKeepsTheFocusInside)
{
    addTemplates({ u"a"_s });
    press(Qt::Key_F2);
    type(u"typed"_s);
    controller.loadChapters({});
    QCoreApplication::processEvents();
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(editor());
    EXPECT_TRUE(focusIsInside());
}

TEST_F(ZLTemplatesDrawerTest, ADragMovesTheTemplateOnceAndLeavesTheOthersAlone)
{
    addTemplates({ u"a"_s, u"b"_s, u"c"_s });
    EXPECT_EQ(table->dragDropMode(), QAbstractItemView::InternalMove);
    EXPECT_TRUE(table->dragEnabled());
    const std::unique_ptr<QMimeData> data(model.mimeData({ model.index(0, 0), model.index(0, 1) }));
    EXPECT_TRUE(model.dropMimeData(data.get(), Qt::MoveAction, 2, 0, {}));
    EXPECT_EQ(titles(), (QStringList { u"b"_s, u"a"_s, u"c"_s }));
    EXPECT_FALSE(table->dragDropOverwriteMode()) << "or the view would empty the row that was dragged";
    EXPECT_FALSE(model.removeRows(0, 1)) << "or the view would remove a row after the move";
    EXPECT_EQ(controller.selectedRow(), 1);
}

TEST_F(ZLTemplatesDrawerTest, ADragOverTheMiddleOfARowIsRefusedAndShowsNoLine)
{
    // Only the desktop drags into a table.
    struct Table : ZLTemplatesTableView {
        using ZLTemplatesTableView::dragMoveEvent;
        using ZLTemplatesTableView::dropEvent;
    };
    Table target;
    target.setModel(&model);
    target.resize(280, 400);
    target.show();
    addTemplates({ u"a"_s, u"b"_s, u"c"_s });
    const std::unique_ptr<QMimeData> data(model.mimeData({ model.index(0, 0) }));
    const QRect row = target.visualRect(model.index(1, 0));
    const auto dragTo = [&](int y) {
        QDragMoveEvent event({ row.center().x(), y }, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        event.accept();
        target.dragMoveEvent(&event);
        return event.isAccepted();
    };
    EXPECT_FALSE(dragTo(row.center().y()));
    EXPECT_FALSE(target.showDropIndicator());
    dragTo(row.top() + 1);
    EXPECT_TRUE(target.showDropIndicator());
    dragTo(row.center().y());
    QDropEvent drop(row.center(), Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    target.dropEvent(&drop);
    EXPECT_FALSE(drop.isAccepted());
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"b"_s, u"c"_s }));
}

TEST_F(ZLTemplatesDrawerTest, ATitleOfAnyLengthIsEditedWhole)
{
    const QString title(100'000, u'x');
    addTemplates({ title });
    press(Qt::Key_F2);
    ASSERT_TRUE(editor());
    press(Qt::Key_End);
    type(u"!"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(controller.chapterManager().chapterAtIndex(0)->title(), title + u'!');
}

TEST_F(ZLTemplatesDrawerTest, TheTitleHasTwoThirdsOfTheWidth)
{
    addTemplates({ u"a"_s });
    for (const int width : { 280, 500, 200 }) {
        drawer.resize(width, 400);
        QCoreApplication::processEvents();
        const int whole = table->viewport()->width();
        EXPECT_EQ(table->columnWidth(0), whole * 2 / 3);
        EXPECT_EQ(table->columnWidth(0) + table->columnWidth(1), whole);
    }
}

TEST_F(ZLTemplatesDrawerTest, AnEmptyTableSaysWhatItIsFor)
{
    const QString hint = u"Prepare topics here, or import an outline from the clipboard."_s;
    EXPECT_EQ(table->accessibleDescription(), hint);
    const QImage empty = table->viewport()->grab().toImage();
    addTemplates({ u""_s });
    EXPECT_EQ(table->accessibleDescription(), QString());
    controller.loadChapters({});
    EXPECT_EQ(table->accessibleDescription(), hint);
    EXPECT_EQ(table->viewport()->grab().toImage(), empty);
    QImage blank = empty;
    blank.fill(empty.pixel(0, 0));
    EXPECT_NE(empty, blank) << "nothing is written in the empty table";
}

TEST_F(ZLTemplatesDrawerTest, EveryControlHasANameAToolTipAndAPlaceInTheTabOrder)
{
    EXPECT_EQ(drawer.windowTitle(), u"Templates"_s);
    EXPECT_FALSE(table->accessibleName().isEmpty());
    addTemplates({ u"a"_s });
    QWidget* previous = table;
    for (const auto& name : { u"addButton"_s, u"removeButton"_s, u"importButton"_s }) {
        ASSERT_TRUE(button(name)) << qPrintable(name);
        EXPECT_FALSE(button(name)->accessibleName().isEmpty()) << qPrintable(name);
        EXPECT_FALSE(button(name)->toolTip().isEmpty()) << qPrintable(name);
        previous->setFocus();
        press(Qt::Key_Tab);
        EXPECT_TRUE(button(name)->hasFocus()) << qPrintable(name);
        previous = button(name);
    }
    drawer.setFocus();
    EXPECT_TRUE(table->hasFocus());
}
