#include "document/ui/ZLWindowFixture.h"

#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

class ZLDocumentMenusTest : public ZLWindowFixture { };

TEST_F(ZLDocumentMenusTest, TheMenusStandInOrder)
{
    QStringList menuTitles;
    for (const QAction* menu : m_window->menuBar()->actions())
        menuTitles.append(menu->text().remove(u'&'));
    EXPECT_EQ(menuTitles, (QStringList { u"Edit"_s, u"Recording"_s, u"View"_s }));
    EXPECT_EQ(m_window->recordingMenu().menu()->menuAction()->property("tag").toInt(), 2);
}

TEST_F(ZLDocumentMenusTest, CommandsCarryTheTagsOfTheirShortcuts)
{
    QStringList byTag;
    for (int tag = 1; tag <= 6; ++tag)
        byTag.append(m_window->recordingMenu().actionWithTag(tag)->text().remove(u'&'));
    EXPECT_EQ(byTag,
        (QStringList { u"Start Recording"_s, u"New Chapter"_s, u"Delete Chapter"_s, u"Delete Last Chapter"_s,
            u"Select Previous Chapter"_s, u"Select Next Chapter"_s }));
    EXPECT_EQ(m_window->recordingMenu().actionWithTag(7), nullptr);
    EXPECT_EQ(m_window->recordingMenu().actionWithTag(0), nullptr);
}

TEST_F(ZLDocumentMenusTest, EveryActionHasANameAndAToolTipWithItsKey)
{
    for (const QMenu* menu :
        { m_window->editMenu().menu(), m_window->recordingMenu().menu(), m_window->viewMenu().menu() }) {
        for (const QAction* item : menu->actions()) {
            if (item->isSeparator() || item->menu())
                continue;
            EXPECT_FALSE(item->objectName().isEmpty()) << item->text().toStdString();
            EXPECT_FALSE(item->shortcut().isEmpty()) << item->text().toStdString();
            EXPECT_TRUE(item->toolTip().contains(item->shortcut().toString(QKeySequence::NativeText)))
                << item->toolTip().toStdString();
        }
    }
}

TEST_F(ZLDocumentMenusTest, NoTwoCommandsShareAKey)
{
    QSet<QKeySequence> keys;
    for (const QMenu* menu :
        { m_window->editMenu().menu(), m_window->recordingMenu().menu(), m_window->viewMenu().menu() }) {
        for (const QAction* item : menu->actions()) {
            EXPECT_FALSE(keys.contains(item->shortcut())) << item->text().toStdString();
            if (!item->shortcut().isEmpty())
                keys.insert(item->shortcut());
        }
    }
    EXPECT_GE(keys.size(), 15);
}

TEST_F(ZLDocumentMenusTest, UndoAndRedoNameTheirStep)
{
    EXPECT_EQ(action(u"undo"_s)->text(), u"&Undo"_s);
    EXPECT_FALSE(action(u"undo"_s)->isEnabled());
    EXPECT_FALSE(action(u"redo"_s)->isEnabled());
    addChapterAt(0.0);
    EXPECT_EQ(action(u"undo"_s)->text(), u"&Undo Create Chapter"_s);
    EXPECT_TRUE(action(u"undo"_s)->isEnabled());
    press(Qt::Key_Escape);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_EQ(action(u"undo"_s)->text(), u"&Undo"_s);
    EXPECT_EQ(action(u"redo"_s)->text(), u"&Redo "_s + history().redoActionName());
    EXPECT_TRUE(table().hasFocus());
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(chapters().count(), 1);
}

TEST_F(ZLDocumentMenusTest, UndoGoesToTheTypedTextFirst)
{
    addChapterAt(0.0, u"One"_s);
    table().beginEditing(titleCell(0));
    type(u"Typed"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), u"One"_s);
    EXPECT_EQ(chapters().count(), 1);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(ZLDocumentMenusTest, TheUndoItemGoesToTheTypedTextFirstToo)
{
    addChapterAt(0.0, u"One"_s);
    table().beginEditing(titleCell(0));
    type(u"Typed"_s);
    action(u"undo"_s)->trigger();
    EXPECT_EQ(field()->text(), u"One"_s);
    m_window->editMenu().validate();
    action(u"redo"_s)->trigger();
    EXPECT_EQ(field()->text(), u"Typed"_s);
}

TEST_F(ZLDocumentMenusTest, ClipboardCommandsWorkOnTheTextField)
{
    addChapterAt(0.0, u"One"_s);
    press(Qt::Key_Escape);
    EXPECT_FALSE(action(u"cut"_s)->isEnabled());
    table().beginEditing(titleCell(0));
    EXPECT_TRUE(action(u"cut"_s)->isEnabled());
    action(u"selectAll"_s)->trigger();
    action(u"cut"_s)->trigger();
    EXPECT_EQ(field()->text(), QString());
    action(u"paste"_s)->trigger();
    action(u"paste"_s)->trigger();
    EXPECT_EQ(field()->text(), u"OneOne"_s);
}

TEST_F(ZLDocumentMenusTest, KeysWorkFromTheTable)
{
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(action(u"toggleRecording"_s)->text().remove(u'&'), u"Pause Recording"_s);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(chapters().count(), 1);
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_FALSE(m_document.isRecording());
    EXPECT_FALSE(action(u"newChapter"_s)->isEnabled());
}

TEST_F(ZLDocumentMenusTest, KeysWorkWhileACellIsBeingEdited)
{
    start();
    press(Qt::Key_Return, Qt::ControlModifier);
    type(u"First"_s);
    advance(10.0);
    press(Qt::Key_Return, Qt::ControlModifier);
    type(u"Second"_s);
    press(Qt::Key_F2, Qt::ShiftModifier);
    type(u"example.org"_s);
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(titles(), (QStringList { u"First"_s, u"Second"_s }));
    EXPECT_EQ(chapters().lastChapter()->link(), u"example.org"_s);
    EXPECT_EQ(m_document.selectedRow(), 0);
    EXPECT_TRUE(table().hasFocus());
    press(Qt::Key_F2);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->selectedText(), u"First"_s);
}

TEST_F(ZLDocumentMenusTest, ABlankChapterLeavesTheTemplatesAlone)
{
    addTemplate(u"News"_s);
    start();
    press(Qt::Key_Return, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(titles(), QStringList { QString(u""_s) });
    EXPECT_EQ(templates().count(), 1);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(templates().count(), 0);
}

TEST_F(ZLDocumentMenusTest, ABlankChapterNeedsARecording)
{
    EXPECT_FALSE(action(u"newBlankChapter"_s)->isEnabled());
    press(Qt::Key_Return, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(chapters().count(), 0);
}

TEST_F(ZLDocumentMenusTest, DeleteRemovesTheSelectedChapterFromTheTableOnly)
{
    addChapterAt(0.0, u"One"_s);
    addChapterAt(1.0, u"Two"_s);
    table().beginEditing(titleCell(1));
    press(Qt::Key_Delete);
    EXPECT_EQ(chapters().count(), 2);
    press(Qt::Key_Escape);
    press(Qt::Key_Delete);
    EXPECT_EQ(titles(), QStringList { u"One"_s });
    EXPECT_EQ(m_document.selectedRow(), 0);
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(ZLDocumentMenusTest, DeletingWordsWhileTypingDeletesNoChapter)
{
    addChapterAt(0.0, u"One two"_s);
    table().beginEditing(titleCell(0));
    for (const Qt::Key key : { Qt::Key_Backspace, Qt::Key_Delete }) {
        press(key, Qt::ControlModifier);
        EXPECT_EQ(chapters().count(), 1);
    }
}

TEST_F(ZLDocumentMenusTest, TheAbsoluteTimeItemTellsTheModeAndNamesTheOther)
{
    QAction* item = action(u"absoluteTimeItem"_s);
    EXPECT_EQ(item->text(), u"Show Absolute Time"_s);
    EXPECT_FALSE(item->isChecked());
    press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_TRUE(ZLSettingsManager::showAbsoluteTime());
    EXPECT_EQ(item->text(), u"Show Relative Time"_s);
    EXPECT_TRUE(item->isChecked());
    ZLSettingsManager::setShowAbsoluteTime(false);
    EXPECT_EQ(item->text(), u"Show Absolute Time"_s);
    EXPECT_FALSE(item->isChecked());
}

TEST_F(ZLDocumentMenusTest, TheAbsoluteTimeItemIsNotRefreshedWhenItIsMade)
{
    ZLSettingsManager::setShowAbsoluteTime(true);
    const auto second = makeWindow();
    EXPECT_EQ(second->viewMenu().absoluteTimeItem()->text(), u"Show Absolute Time"_s);
    EXPECT_FALSE(second->viewMenu().absoluteTimeItem()->isChecked());
}

TEST_F(ZLDocumentMenusTest, ATimeBeingTypedIsReadAsTheKindThatWasShown)
{
    const auto chapter = addChapterAt(10.0);
    table().beginEditing(timeCell(0));
    type(u"00:00:20.000"_s);
    press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(chapter->timeStamp(), 20.0);
}
