#include "document/ui/ZLWindowTyping.h"

#include "document/ui/ZLWindowFixture.h"

#include <QMessageBox>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

/// A recording with two chapters and three templates, and commands from outside while a person types.
class ZLWindowTypingTest : public ZLWindowFixture {
protected:
    void SetUp() override
    {
        ZLWindowFixture::SetUp();
        start();
        for (const double seconds : { 1.0, 2.0 })
            addChapterAt(seconds);
        press(Qt::Key_Escape);
        ASSERT_FALSE(table().isEditing());
        advance(60);
    }

    void fromOutside(void (ZLChapterDocument::*operation)())
    {
        const QScopedValueRollback isFromOutside(m_isCommandFromOutside, true);
        (m_document.*operation)();
    }
    void markFromOutside() { fromOutside(&ZLChapterDocument::addChapterButtonPressed); }

    void typeTime(int row, const QString& text)
    {
        table().beginEditing(timeCell(row));
        type(text);
        ASSERT_NE(field(), nullptr);
        ASSERT_EQ(field()->text(), text);
    }
    void typeIntoTemplate(int row, const QString& text)
    {
        for (const QString& title : { u"One"_s, u"Two"_s, u"Three"_s })
            addTemplate(title);
        if (!m_window->isDrawerOpen())
            m_window->toggleDrawer();
        auto* list = m_window->findChild<QWidget*>(u"templateDrawer"_s)->findChild<QAbstractItemView*>();
        list->setFocus();
        list->setCurrentIndex(list->model()->index(row, 0));
        list->edit(list->currentIndex());
        type(text);
        ASSERT_NE(field(), nullptr);
        ASSERT_TRUE(list->isAncestorOf(field()));
    }
    /// A field in the drawer moves with its row, and ends, at the next turn of the event loop.
    void pressReturnInDrawer()
    {
        QCoreApplication::processEvents();
        press(Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QStringList templateTitles() { return ZLTestChapters::titles(templates().allChapters()); }
    [[nodiscard]] bool hasAlert() { return m_window->findChild<QMessageBox*>() != nullptr; }
};

TEST_F(ZLWindowTypingTest, AHalfTypedTimeStaysOpenWhileMarksComeFromOutside)
{
    typeTime(0, u"00:0"_s);
    markFromOutside();
    markFromOutside();
    EXPECT_EQ(chapters().count(), 4);
    EXPECT_EQ(m_document.selectedRow(), 3);
    ASSERT_NE(field(), nullptr);
    EXPECT_EQ(field()->text(), u"00:0"_s);
    EXPECT_FALSE(hasAlert());
    type(u"0:01.500"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(times().first(), 1.5);
    EXPECT_FALSE(hasAlert());
}

TEST_F(ZLWindowTypingTest, AHalfTypedTimeStaysOpenWhileAnotherWindowHasTheKeyboard)
{
    typeTime(0, u"00:0"_s);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_FALSE(hasAlert());
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    ASSERT_NE(field(), nullptr);
    type(u"0:01.500"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(times().first(), 1.5);
    EXPECT_FALSE(hasAlert());
}

TEST_F(ZLWindowTypingTest, OtherCommandsFromOutsideLeaveItOpenToo)
{
    typeTime(1, u"00:0"_s);
    fromOutside(&ZLChapterDocument::selectLastChapter);
    EXPECT_EQ(m_document.selectedRow(), 0);
    fromOutside(&ZLChapterDocument::deleteButtonPressed);
    EXPECT_EQ(chapters().count(), 1);
    ASSERT_NE(field(), nullptr);
    EXPECT_EQ(field()->text(), u"00:0"_s);
    type(u"0:09.000"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(times(), QList<double> { 9.0 });
}

TEST_F(ZLWindowTypingTest, WhereItsRowGoesAHalfTypedTimeIsDroppedWithoutAWord)
{
    typeTime(0, u"00:0"_s);
    fromOutside(&ZLChapterDocument::deleteButtonPressed);
    EXPECT_EQ(times(), QList<double> { 2.0 });
    EXPECT_FALSE(table().isEditing());
    EXPECT_FALSE(hasAlert());
    history().undo();
    EXPECT_EQ(times(), (QList<double> { 1.0, 2.0 }));
    press(Qt::Key_Escape);

    typeTime(1, u"nonsense"_s);
    m_document.deleteLastChapter();
    EXPECT_EQ(times(), QList<double> { 1.0 });
    EXPECT_FALSE(hasAlert()) << "the window's own command drops it as well";
}

TEST_F(ZLWindowTypingTest, UndoingTheMarkDropsTheTimeThatIsTypedInItsRow)
{
    for (const bool hasTemplate : { false, true }) {
        if (hasTemplate)
            addTemplate(u"One"_s);
        m_document.addChapterButtonPressed();
        typeTime(2, u"00:0"_s);
        history().undo();
        EXPECT_EQ(times(), (QList<double> { 1.0, 2.0 }));
        EXPECT_FALSE(table().isEditing());
        EXPECT_FALSE(hasAlert());
    }
}

TEST_F(ZLWindowTypingTest, AMarkOfTheWindowsOwnWritesTheTimeAndOpensTheNewTitle)
{
    typeTime(0, u"00:00:01.500"_s);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(times().first(), 1.5);
    EXPECT_EQ(table().currentIndex(), titleCell(2));
    EXPECT_TRUE(table().isEditing());
    EXPECT_FALSE(table().isEditingTime());
}

TEST_F(ZLWindowTypingTest, ATitleIsWrittenAndTheNewOneOpenedAlsoByAMarkFromOutside)
{
    table().beginEditing(titleCell(0));
    type(u"Welc"_s);
    markFromOutside();
    EXPECT_EQ(titles().first(), u"Welc"_s);
    EXPECT_EQ(table().currentIndex(), titleCell(2));
    EXPECT_TRUE(table().isEditing());
}

TEST_F(ZLWindowTypingTest, TypingIntoATemplateGoesOnUndisturbed)
{
    typeIntoTemplate(1, u"Two and"_s);
    const QLineEdit* before = field();
    markFromOutside();
    EXPECT_EQ(titles().last(), u"One"_s);
    EXPECT_EQ(field(), before);
    EXPECT_EQ(field()->text(), u"Two and"_s);
    press(Qt::Key_Delete);
    type(u" more"_s);
    EXPECT_EQ(chapters().count(), 3) << "the key was meant for the text";
    pressReturnInDrawer();
    EXPECT_EQ(templateTitles().first(), u"Two and more"_s);
    EXPECT_FALSE(templateTitles().contains(u"Two and"_s));
}

TEST_F(ZLWindowTypingTest, WhoTypesIntoTheTemplateThatBecomesTheChapterGoesOnThere)
{
    typeIntoTemplate(1, u"Intro "_s);
    markFromOutside();
    EXPECT_EQ(titles().last(), u"One"_s);
    markFromOutside();
    EXPECT_EQ(titles().last(), u"Intro "_s) << "its row has become the first meanwhile";
    EXPECT_TRUE(table().isEditing());
    press(Qt::Key_Delete);
    type(u"and more"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(titles().last(), u"Intro and more"_s);
    EXPECT_EQ(chapters().count(), 4);
    EXPECT_EQ(templateTitles(), QStringList { u"Three"_s });
}

TEST_F(ZLWindowTypingTest, ABlankChapterFromOutsideLeavesTheFirstTemplateBeingTyped)
{
    typeIntoTemplate(0, u"Intro "_s);
    m_isOptionKeyHeld = true;
    markFromOutside();
    EXPECT_EQ(titles().last(), u""_s);
    type(u"and more"_s);
    pressReturnInDrawer();
    EXPECT_EQ(templateTitles().first(), u"Intro and more"_s);
}
