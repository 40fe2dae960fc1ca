#include "document/ui/ZLWindowFixture.h"

#include "templates/ui/ZLTemplatesTableView.h"

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class ZLChapterDocumentWindowTest : public ZLWindowFixture {
protected:
    [[nodiscard]] QMessageBox* alert() { return m_window->findChild<QMessageBox*>(); }
    /// A window manager gives the keyboard back to the window of the alert, and the field there stands open again.
    void comeBackFromAlert()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !alert(); }));
        m_window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        EXPECT_TRUE(QTest::qWaitFor([this] { return field() != nullptr; }));
    }
    /// The window once more, as it comes back when it was left with its drawer closed.
    void comeBackWithClosedDrawer()
    {
        m_window->toggleDrawer();
        EXPECT_TRUE(m_window->close());
        ZLWindowFixture::SetUp();
        ASSERT_FALSE(m_window->isDrawerOpen());
    }
    [[nodiscard]] QDialog* moveDialog() { return m_window->findChild<QDialog*>(u"moveChaptersDialog"_s); }
};

TEST_F(ZLChapterDocumentWindowTest, ATypedTimeMovesTheChapter)
{
    const auto chapter = addChapterAt(10.0);
    editTo(timeCell(0), u"01:02:03.004"_s);
    EXPECT_DOUBLE_EQ(chapter->timeStamp(), double(0.004F) + 3723.0);
    editTo(timeCell(0), u"-00:00:02.500"_s);
    EXPECT_DOUBLE_EQ(chapter->timeStamp(), -2.5);
    EXPECT_FALSE(chapter->isEnabled());
    EXPECT_FALSE(alert());
}

TEST_F(ZLChapterDocumentWindowTest, AnUnreadableTimeShowsAnAlertAndChangesNothing)
{
    const auto chapter = addChapterAt(10.0);
    editTo(timeCell(0), u"1:2"_s);
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->text(), u"Invalid Timestamp"_s);
    EXPECT_EQ(alert()->informativeText(), u"The timestamp you have entered is not valid!"_s);
    ASSERT_EQ(alert()->buttons().size(), 1);
    EXPECT_EQ(alert()->buttons().first()->text(), u"OK"_s);
    EXPECT_EQ(alert()->windowModality(), Qt::WindowModal);
    EXPECT_DOUBLE_EQ(chapter->timeStamp(), 10.0);
    EXPECT_EQ(m_window->findChildren<QMessageBox*>().size(), 1);
    QTest::mouseClick(alert()->buttons().first(), Qt::LeftButton);
    comeBackFromAlert();
}

TEST_F(ZLChapterDocumentWindowTest, MovingAsksForMilliseconds)
{
    const auto chapter = addChapterAt(3.0);
    action(u"moveChapters"_s)->trigger();
    ASSERT_TRUE(moveDialog());
    EXPECT_EQ(moveDialog()->findChild<QLabel*>()->text(), u"Please enter the time in milliseconds (1s = 1000ms)"_s);
    auto* offset = moveDialog()->findChild<QLineEdit*>();
    EXPECT_EQ(offset->text(), QString());
    EXPECT_EQ(offset->width(), 200);
    EXPECT_EQ(offset->minimumHeight(), 24);
    QStringList answers;
    for (const QPushButton* button : moveDialog()->findChildren<QPushButton*>())
        answers.append(button->text() + (button->isDefault() ? u" by Return"_s : u""_s));
    EXPECT_EQ(answers, (QStringList { u"OK by Return"_s, u"Cancel"_s }));
    QTest::keyClicks(offset, u"-5000"_s);
    QTest::keyClick(offset, Qt::Key_Return);
    EXPECT_DOUBLE_EQ(chapter->timeStamp(), -2.0);
    EXPECT_FALSE(chapter->isEnabled());
    EXPECT_EQ(action(u"undo"_s)->text(), u"&Undo Move Chapters"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !moveDialog() && m_window->focusWidget() == &table(); }));
}

TEST_F(ZLChapterDocumentWindowTest, TheAgeOfTheLastChapterFollowsAMoveWhilePaused)
{
    record(90.0);
    const auto chapter = addChapterAt(60.0);
    const auto* age = bar().findChild<QLabel*>(u"ageLabel"_s);
    ASSERT_EQ(age->text(), u"00:00:30"_s);
    m_document.moveChaptersByMilliseconds(-5000.0F);
    EXPECT_EQ(age->text(), u"00:00:35"_s);
    m_document.undoManager().undo();
    EXPECT_EQ(age->text(), u"00:00:30"_s);
    m_document.updateChapterToTime(chapter, 10.0);
    EXPECT_EQ(age->text(), u"00:01:20"_s);
}

TEST_F(ZLChapterDocumentWindowTest, CancellingAMoveChangesNothing)
{
    const auto chapter = addChapterAt(3.0);
    action(u"moveChapters"_s)->trigger();
    ASSERT_TRUE(moveDialog());
    QTest::keyClicks(moveDialog()->findChild<QLineEdit*>(), u"1000"_s);
    moveDialog()->reject();
    EXPECT_DOUBLE_EQ(chapter->timeStamp(), 3.0);
}

TEST_F(ZLChapterDocumentWindowTest, AMoveByATextThatIsNoNumberIsAMoveByNothing)
{
    const auto chapter = addChapterAt(3.0);
    action(u"moveChapters"_s)->trigger();
    ASSERT_TRUE(moveDialog());
    QTest::keyClicks(moveDialog()->findChild<QLineEdit*>(), u"soon"_s);
    moveDialog()->accept();
    EXPECT_DOUBLE_EQ(chapter->timeStamp(), 3.0);
}

TEST_F(ZLChapterDocumentWindowTest, DurationsFollowTheNextChapter)
{
    addChapterAt(10.0);
    EXPECT_EQ(text(0, ZLChapterTableModel::DurationColumn), QString());
    addChapterAt(75.9);
    EXPECT_EQ(text(0, ZLChapterTableModel::DurationColumn), u"00:01:05"_s);
}

TEST_F(ZLChapterDocumentWindowTest, ClosingIsRefusedWhileRecordingAndSaysWhy)
{
    bool wasAsked = false;
    m_window->setCloseGuard([&wasAsked] { return wasAsked = true; });
    start();
    EXPECT_FALSE(m_window->close());
    EXPECT_FALSE(wasAsked);
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(m_window->statusLine().passingMessage(), u"Pause the recording before closing this window."_s);
    m_document.recordButtonPressed();
    EXPECT_EQ(m_window->statusLine().passingMessage(), QString()) << "it is paused now";
    EXPECT_TRUE(m_window->close());
    EXPECT_TRUE(wasAsked);
}

TEST_F(ZLChapterDocumentWindowTest, TheGuardMayKeepTheWindowOpen)
{
    bool answer = false;
    m_window->setCloseGuard([&answer] { return answer; });
    const QSignalSpy closing(m_window.get(), &ZLChapterDocumentWindow::willClose);
    EXPECT_FALSE(m_window->close());
    EXPECT_EQ(closing.count(), 0);
    answer = true;
    EXPECT_TRUE(m_window->close());
    EXPECT_EQ(closing.count(), 1);
}

TEST_F(ZLChapterDocumentWindowTest, TypedTextIsWrittenBeforeTheGuardIsAsked)
{
    addChapterAt(0.0);
    table().beginEditing(titleCell(0));
    type(u"Late"_s);
    QStringList seen;
    m_window->setCloseGuard([&] {
        seen = titles();
        return true;
    });
    m_window->close();
    EXPECT_EQ(seen, QStringList { u"Late"_s });
}

TEST_F(ZLChapterDocumentWindowTest, TheTitleNamesTheDocumentAndItsChanges)
{
    m_document.setDisplayName(u"Episode [*] 12.zelta"_s);
    EXPECT_EQ(m_window->windowTitle(), u"Episode [*][*] 12.zelta[*] — Zelta"_s);
    EXPECT_FALSE(m_window->isWindowModified());
    addChapterAt(0.0);
    EXPECT_TRUE(m_window->isWindowModified());
    m_document.setDocumentEdited(false);
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(ZLChapterDocumentWindowTest, TheDrawerOpensAndCloses)
{
    auto* dock = m_window->findChild<QDockWidget*>();
    EXPECT_TRUE(dock->isVisible()) << "at the very first start it shows what it is for";
    m_window->toggleDrawer();
    EXPECT_FALSE(dock->isVisible());
    m_window->toggleDrawer();
    EXPECT_TRUE(dock->isVisible());
    EXPECT_TRUE(bar().drawerButton()->isChecked());
    EXPECT_TRUE(action(u"toggleDrawer"_s)->isChecked());
    EXPECT_EQ(m_window->dockWidgetArea(dock), Qt::RightDockWidgetArea);
    dock->close();
    EXPECT_FALSE(bar().drawerButton()->isChecked());
    EXPECT_FALSE(action(u"toggleDrawer"_s)->isChecked());
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(ZLChapterDocumentWindowTest, TheKeyOfTheDrawerMovesTheKeyboardIntoIt)
{
    auto* dock = m_window->findChild<QDockWidget*>();
    press(Qt::Key_F9);
    ASSERT_FALSE(dock->isVisible());
    EXPECT_TRUE(table().hasFocus());
    press(Qt::Key_F9);
    ASSERT_TRUE(dock->isVisible());
    EXPECT_TRUE(dock->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(ZLChapterDocumentWindowTest, ADrawerThatWasLeftClosedIsFilledWhenItIsOpened)
{
    addTemplate(u"first"_s);
    comeBackWithClosedDrawer();
    const auto* dock = m_window->findChild<QDockWidget*>();
    EXPECT_FALSE(dock->widget()) << "it would cost the window as much as its table";
    EXPECT_EQ(bar().findChild<QLabel*>(u"nextTitle"_s)->text(), u"first"_s);
    press(Qt::Key_F9);
    const QWidget* contents = dock->widget();
    ASSERT_TRUE(contents);
    EXPECT_TRUE(m_window->findChild<ZLTemplatesTableView*>()->hasFocus());
    QGuiApplication::clipboard()->setText(u"- second"_s);
    action(u"paste"_s)->trigger();
    EXPECT_EQ(templates().count(), 2);
    press(Qt::Key_F2);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), u"first"_s);
    press(Qt::Key_Escape);
    press(Qt::Key_F9);
    press(Qt::Key_F9);
    EXPECT_EQ(dock->widget(), contents) << "once is enough";
}

TEST_F(ZLChapterDocumentWindowTest, ImportingFillsADrawerThatWasLeftClosed)
{
    comeBackWithClosedDrawer();
    QGuiApplication::clipboard()->setText(u"- One\n- Two\n"_s);
    action(u"importTemplates"_s)->trigger();
    EXPECT_TRUE(m_window->findChild<ZLTemplatesTableView*>()->isVisible());
    EXPECT_EQ(templates().count(), 2);
}

TEST_F(ZLChapterDocumentWindowTest, F2ReturnAndDeleteActOnTheListThatHasTheKeyboard)
{
    addChapterAt(1.0, u"chapter"_s);
    table().finishEditing();
    addTemplate(u"first"_s);
    addTemplate(u"second"_s);
    ASSERT_TRUE(m_window->isDrawerOpen());
    auto* list = m_window->findChild<ZLTemplatesTableView*>();
    list->setFocus();
    for (const auto key : { Qt::Key_F2, Qt::Key_Return }) {
        press(key);
        ASSERT_TRUE(field());
        EXPECT_EQ(field()->text(), u"first"_s);
        press(Qt::Key_Escape);
    }
    press(Qt::Key_Delete);
    EXPECT_EQ(templates().count(), 1);
    EXPECT_EQ(titles(), QStringList(u"chapter"_s));
    table().setFocus();
    for (const auto key : { Qt::Key_F2, Qt::Key_Return }) {
        press(key);
        ASSERT_TRUE(field());
        EXPECT_EQ(field()->text(), u"chapter"_s);
        press(Qt::Key_Escape);
    }
    press(Qt::Key_Delete);
    EXPECT_EQ(titles(), QStringList());
    EXPECT_EQ(templates().count(), 1);
}

TEST_F(ZLChapterDocumentWindowTest, PasteGoesToTheListThatHasTheKeyboard)
{
    QGuiApplication::clipboard()->setText(u"- Intro\n- News"_s);
    const QSignalSpy chapterPaste(&m_window->editMenu(), &ZLEditMenu::chapterPasteRequested);
    table().setFocus();
    ASSERT_TRUE(action(u"paste"_s)->isEnabled());
    action(u"paste"_s)->trigger();
    EXPECT_EQ(chapterPaste.count(), 1);
    EXPECT_EQ(templates().count(), 0);
    m_window->findChild<ZLTemplatesTableView*>()->setFocus();
    ASSERT_TRUE(action(u"paste"_s)->isEnabled());
    action(u"paste"_s)->trigger();
    EXPECT_EQ(templates().count(), 2);
    EXPECT_EQ(history().undoActionName(), u"Import Templates"_s);
    EXPECT_EQ(chapterPaste.count(), 1);
}

TEST_F(ZLChapterDocumentWindowTest, TheMenuOfAChapterOpensAndCopiesItsLink)
{
    addChapterAt(1.0, u"plain"_s);
    const auto chapter = addChapterAt(2.0, u"linked"_s);
    chapter->setLink(u"example.org/news"_s);
    table().finishEditing();
    auto* menu = m_window->findChild<QMenu*>(u"chapterContextMenu"_s);
    const QSignalSpy opened(&table(), &ZLChapterTableView::linkActivated);
    const auto showAt = [this](int row) {
        select(row);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(&table(), &event);
    };
    QObject::disconnect(&table(), &ZLChapterTableView::linkActivated, m_window.get(), nullptr);
    showAt(0);
    ASSERT_TRUE(menu->isVisible());
    EXPECT_FALSE(action(u"openLink"_s)->isEnabled());
    EXPECT_FALSE(action(u"copyLink"_s)->isEnabled());
    menu->hide();
    showAt(1);
    action(u"copyLink"_s)->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"example.org/news"_s);
    action(u"openLink"_s)->trigger();
    ASSERT_EQ(opened.count(), 1);
    EXPECT_EQ(opened.at(0).at(0).toUrl(), QUrl(u"https://example.org/news"_s));
}

TEST_F(ZLChapterDocumentWindowTest, AnImportSaysWhatItBrought)
{
    const auto importText = [this](const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        action(u"importTemplates"_s)->trigger();
        return m_window->statusLine().passingMessage();
    };
    auto* button = m_window->statusLine().findChild<QToolButton*>(u"passingMessageButton"_s);
    EXPECT_EQ(importText(u"- a\n- b\n- c"_s), u"3 templates imported"_s);
    EXPECT_EQ(importText(u"- d"_s), u"1 template imported"_s);
    EXPECT_FALSE(button->isVisible());
    EXPECT_EQ(importText(u""_s), u"No line begins with “- ”"_s);
    EXPECT_FALSE(button->isVisible()) << "there is nothing to offer";
    EXPECT_EQ(importText(u"* e\n* f"_s), u"No line begins with “- ”"_s);
    EXPECT_EQ(templates().count(), 4);
    ASSERT_TRUE(button->isVisible());
    EXPECT_EQ(button->text(), u"Import the 2 Lines"_s);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(templates().count(), 6);
    EXPECT_EQ(templates().chapterAtIndex(5)->title(), u"f"_s);
    EXPECT_EQ(m_window->statusLine().passingMessage(), u"2 templates imported"_s);
    EXPECT_EQ(history().undoActionName(), u"Import Templates"_s);
}

TEST_F(ZLChapterDocumentWindowTest, AChapterIsInsertedAtATypedTime)
{
    addChapterAt(10.0, u"One"_s);
    addChapterAt(30.0, u"Two"_s);
    table().finishEditing();
    select(0);
    action(u"insertChapter"_s)->trigger();
    auto* dialog = m_window->findChild<QDialog*>(u"insertChapterDialog"_s);
    ASSERT_TRUE(dialog);
    auto* time = dialog->findChild<QLineEdit*>();
    auto* insert = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    EXPECT_EQ(time->text(), u"00:00:20.000"_s);
    EXPECT_EQ(time->selectedText(), time->text());
    time->setText(u"soon"_s);
    EXPECT_FALSE(insert->isEnabled());
    time->setText(u"00:00:15.500"_s);
    ASSERT_TRUE(insert->isEnabled());
    insert->click();
    EXPECT_EQ(times(), (QList<double> { 10.0, 15.5, 30.0 }));
    EXPECT_EQ(history().undoActionName(), u"Create Chapter"_s);
    EXPECT_EQ(table().currentIndex(), titleCell(1));
    EXPECT_TRUE(table().isEditing());
}

TEST_F(ZLChapterDocumentWindowTest, AltWithAnArrowMovesTheSelectedChapter)
{
    EXPECT_FALSE(action(u"moveEarlier"_s)->isEnabled());
    const auto chapter = addChapterAt(10.0);
    table().finishEditing();
    press(Qt::Key_Right, Qt::AltModifier);
    press(Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_DOUBLE_EQ(chapter->timeStamp(), 11.1);
    press(Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_DOUBLE_EQ(chapter->timeStamp(), 10.0);
    EXPECT_EQ(history().undoActionName(), u"Change Time"_s);
    history().undo();
    EXPECT_EQ(history().undoActionName(), u"Create Chapter"_s) << "quick presses are one step";
}

TEST_F(ZLChapterDocumentWindowTest, TitlesAreTidiedTogetherWithWhatIsBeingTyped)
{
    addChapterAt(1.0, u"News\r"_s);
    addChapterAt(2.0);
    table().beginEditing(titleCell(1));
    type(u" Mail"_s);
    action(u"tidyTitles"_s)->trigger();
    EXPECT_EQ(titles(), (QStringList { u"News"_s, u"Mail"_s }));
    EXPECT_EQ(m_window->statusLine().passingMessage(), u"2 chapters tidied"_s);
    action(u"tidyTitles"_s)->trigger();
    EXPECT_EQ(m_window->statusLine().passingMessage(), u"All titles are tidy."_s);
}

TEST_F(ZLChapterDocumentWindowTest, TheFormOfATimeIsShownWhileOneIsTyped)
{
    addChapterAt(10.0);
    table().beginEditing(timeCell(0));
    EXPECT_EQ(m_window->statusLine().hint(), u"HH:MM:SS.mmm"_s);
    EXPECT_TRUE(m_window->statusLine().findChild<QLabel*>(u"hint"_s)->isVisible());
    EXPECT_EQ(field()->toolTip(), u"HH:MM:SS.mmm"_s);
    table().beginEditing(titleCell(0));
    EXPECT_EQ(m_window->statusLine().hint(), QString());
    table().finishEditing();
    ZLSettingsManager::setShowAbsoluteTime(true);
    table().beginEditing(timeCell(0));
    EXPECT_EQ(m_window->statusLine().hint(), u"HH:MM:SS.mmm YYYY-MM-DD"_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(m_window->statusLine().hint(), QString());
    ZLSettingsManager::setShowAbsoluteTime(false);
}

TEST_F(ZLChapterDocumentWindowTest, TheFormOfATimeTakesThePlaceOfAnOlderMessage)
{
    addChapterAt(10.0);
    const auto* form = m_window->statusLine().findChild<QLabel*>(u"hint"_s);
    m_window->statusLine().showPassingMessage(u"1 chapter tidied"_s);
    table().beginEditing(timeCell(0));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(m_window->statusLine().passingMessage(), QString());
    // What comes meanwhile is told, and the form stands there again afterwards.
    m_window->statusLine().showPassingMessage(u"Chapter 2 at 00:00:12, from OSC"_s);
    EXPECT_FALSE(form->isVisible());
    m_window->statusLine().hidePassingMessage();
    EXPECT_TRUE(form->isVisible());
}

TEST_F(ZLChapterDocumentWindowTest, ARejectedTimeIsOpenAgainWithWhatWasTypedSelected)
{
    const auto chapter = addChapterAt(10.0);
    editTo(timeCell(0), u"1:2"_s);
    ASSERT_TRUE(alert());
    alert()->buttons().first()->click();
    comeBackFromAlert();
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), u"1:2"_s);
    EXPECT_EQ(field()->selectedText(), u"1:2"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(alert()) << "what was typed is still none";
    alert()->buttons().first()->click();
    comeBackFromAlert();
    type(u"00:00:12.000"_s);
    press(Qt::Key_Return);
    EXPECT_FALSE(alert());
    EXPECT_EQ(chapter->timeStamp(), 12.0);
}

TEST_F(ZLChapterDocumentWindowTest, ImportedTemplatesAreSeen)
{
    m_window->toggleDrawer();
    QGuiApplication::clipboard()->setText(u"- One\n- Two\n"_s);
    action(u"importTemplates"_s)->trigger();
    EXPECT_TRUE(m_window->isDrawerOpen());
    EXPECT_EQ(m_document.templateViewController().chapterManager().count(), 2);
}

TEST_F(ZLChapterDocumentWindowTest, SizeDrawerAndColumnsAreRemembered)
{
    EXPECT_EQ(m_window->size(), QSize(1000, 620));
    m_window->resize(760, 520);
    m_window->toggleDrawer();
    QCoreApplication::processEvents();
    table().horizontalHeader()->resizeSection(
        ZLChapterTableModel::TitleColumn, table().columnWidth(ZLChapterTableModel::TitleColumn) + 20);
    const int titleWidth = table().columnWidth(ZLChapterTableModel::TitleColumn);
    EXPECT_TRUE(m_window->close());

    m_window = makeWindow();
    m_window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    EXPECT_EQ(m_window->size(), QSize(760, 520));
    EXPECT_FALSE(m_window->isDrawerOpen());
    EXPECT_FALSE(bar().drawerButton()->isChecked());
    EXPECT_NEAR(table().columnWidth(ZLChapterTableModel::TitleColumn), titleWidth, 1);
}

TEST_F(ZLChapterDocumentWindowTest, TheWindowIsUsableWhenSmall)
{
    m_window->resize(640, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_window->size(), QSize(640, 400));
    for (const QToolButton* button :
        { bar().recordButton(), bar().addButton(), bar().deleteButton(), bar().drawerButton() }) {
        const QRect place(button->mapTo(m_window.get(), QPoint()), button->size());
        EXPECT_TRUE(m_window->rect().contains(place)) << button->objectName().toStdString();
    }
}

TEST_F(ZLChapterDocumentWindowTest, DroppedFilesAreAnnounced)
{
    const QSignalSpy dropped(m_window.get(), &ZLChapterDocumentWindow::filesDropped);
    QMimeData data;
    data.setUrls({ QUrl::fromLocalFile(u"/shows/one.zelta"_s), QUrl(u"https://example.org"_s) });
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &drop);
    ASSERT_EQ(dropped.count(), 1);
    EXPECT_EQ(dropped.first().first().toStringList(), QStringList { u"/shows/one.zelta"_s });
}

TEST_F(ZLChapterDocumentWindowTest, EveryControlHasANameForScreenReaders)
{
    addChapterAt(0.0);
    m_window->messageBar().showMessage(u"name"_s, u"Sentence."_s, { { u"Button"_s, {} } });
    m_window->statusLine().setSaveStatus(u"Saved"_s, u"Saved a moment ago"_s);
    table().beginEditing(titleCell(0));
    const auto widgets = m_window->findChildren<QWidget*>();
    int controls = 0;
    for (QWidget* widget : widgets) {
        const bool isControl =
            widget->focusPolicy() != Qt::NoFocus && widget->isVisible() && !widget->objectName().startsWith("qt_"_L1);
        if (!isControl || qobject_cast<QMainWindow*>(widget))
            continue;
        ++controls;
        const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
            << widget->metaObject()->className() << " " << widget->objectName().toStdString();
    }
    EXPECT_GE(controls, 9);
}
