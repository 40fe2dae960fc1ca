#include "document/ui/ZLRecordingColors.h"
#include "document/ui/ZLWindowFixture.h"
#include "templates/ui/ZLReadableColors.h"

#include <QLabel>

using namespace Qt::StringLiterals;

class ZLDocumentToolbarTest : public ZLWindowFixture {
protected:
    [[nodiscard]] QLabel* label(const QString& name) { return bar().findChild<QLabel*>(name); }
    [[nodiscard]] QColor lineColor()
    {
        const QImage image = bar().grab().toImage();
        return image.pixelColor(image.width() / 2, image.height() - 1);
    }
};

TEST_F(ZLDocumentToolbarTest, TheRecordButtonShowsWhatItDoesNext)
{
    EXPECT_EQ(bar().recordButton()->text(), u"Start"_s);
    EXPECT_EQ(bar().recordButton()->icon().name(), u"StartButton"_s);
    QTest::mouseClick(bar().recordButton(), Qt::LeftButton);
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(bar().recordButton()->text(), u"Pause"_s);
    EXPECT_EQ(bar().recordButton()->icon().name(), u"StopButton"_s);
    QTest::mouseClick(bar().recordButton(), Qt::LeftButton);
    EXPECT_EQ(bar().recordButton()->text(), u"Start"_s);
    EXPECT_EQ(bar().recordButton()->icon().name(), u"StartButton"_s);
}

TEST_F(ZLDocumentToolbarTest, UndoAndRedoOfAStartShowToo)
{
    start();
    history().undo();
    EXPECT_EQ(bar().recordButton()->text(), u"Start"_s);
    history().redo();
    EXPECT_EQ(bar().recordButton()->text(), u"Pause"_s);
}

TEST_F(ZLDocumentToolbarTest, ADocumentThatWasSavedWhileRecordingIsReadAsPaused)
{
    start();
    advance(42.5);
    ASSERT_TRUE(m_document.readFromData(m_document.dataOfType()));
    EXPECT_EQ(bar().recordButton()->text(), u"Start"_s);
    EXPECT_EQ(bar().recordButton()->icon().name(), u"StartButton"_s);
    EXPECT_FALSE(bar().addButton()->isEnabled());
    EXPECT_EQ(label(u"clockLabel"_s)->text(), u"00:00:42.5"_s);
}

TEST_F(ZLDocumentToolbarTest, ItemsAreValidatedByTag)
{
    EXPECT_EQ(bar().addButton()->property("tag").toInt(), 3);
    EXPECT_EQ(bar().deleteButton()->property("tag").toInt(), 2);
    EXPECT_FALSE(bar().addButton()->isEnabled());
    EXPECT_FALSE(bar().deleteButton()->isEnabled());
    EXPECT_TRUE(bar().recordButton()->isEnabled());
    start();
    EXPECT_TRUE(bar().addButton()->isEnabled());
    EXPECT_FALSE(bar().deleteButton()->isEnabled());
    QTest::mouseClick(bar().addButton(), Qt::LeftButton);
    EXPECT_EQ(chapters().count(), 1);
    EXPECT_TRUE(bar().deleteButton()->isEnabled());
    m_document.recordButtonPressed();
    EXPECT_FALSE(bar().addButton()->isEnabled());
    QTest::mouseClick(bar().deleteButton(), Qt::LeftButton);
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_FALSE(bar().deleteButton()->isEnabled());
}

TEST_F(ZLDocumentToolbarTest, AButtonThatGoesOutOfServiceGivesTheKeyboardToTheTable)
{
    addChapterAt(0.0);
    table().finishEditing();
    bar().deleteButton()->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(ZLDocumentToolbarTest, WhileTheBeepPlaysNothingCanBeAdded)
{
    ZLSettingsManager::setPlaySoundBeforeRecording(true);
    QTest::mouseClick(bar().recordButton(), Qt::LeftButton);
    ASSERT_TRUE(m_sound);
    EXPECT_EQ(bar().recordButton()->text(), u"Start"_s);
    EXPECT_FALSE(bar().addButton()->isEnabled());
    EXPECT_FALSE(m_window->statusLine().passingMessage().isEmpty());
    advance(2.0);
    m_sound->finish();
    EXPECT_EQ(bar().recordButton()->text(), u"Pause"_s);
    EXPECT_TRUE(bar().addButton()->isEnabled());
    EXPECT_TRUE(m_window->statusLine().passingMessage().isEmpty());
    EXPECT_EQ(label(u"clockLabel"_s)->text(), u"00:00:00.0"_s);
}

TEST_F(ZLDocumentToolbarTest, TheClockIsTruncatedToTenths)
{
    start();
    advance(65.38);
    m_document.updateDisplay();
    EXPECT_EQ(label(u"clockLabel"_s)->text(), u"00:01:05.3"_s);
    EXPECT_TRUE(label(u"ageLabel"_s)->isHidden());
    m_document.addChapterButtonPressed();
    EXPECT_TRUE(label(u"ageLabel"_s)->isVisible());
    EXPECT_EQ(label(u"ageLabel"_s)->text(), u"00:00:00"_s);
    advance(65.0);
    m_document.updateDisplay();
    EXPECT_EQ(label(u"ageLabel"_s)->text(), u"00:01:05"_s);
}

TEST_F(ZLDocumentToolbarTest, TheClockKeepsItsWidth)
{
    start();
    const int width = label(u"clockLabel"_s)->width();
    EXPECT_GT(label(u"clockLabel"_s)->font().pointSizeF(), 2.0 * bar().font().pointSizeF());
    for (int i = 0; i < 20; ++i) {
        advance(1111.1);
        m_document.updateDisplay();
        QCoreApplication::processEvents();
        EXPECT_EQ(label(u"clockLabel"_s)->width(), width);
        EXPECT_LE(label(u"clockLabel"_s)->fontMetrics().horizontalAdvance(label(u"clockLabel"_s)->text()), width);
    }
}

TEST_F(ZLDocumentToolbarTest, AThousandHoursAreNotCut)
{
    m_document.startRecordingWithTime(m_hostClock->now() - 1000.0 * 3600.0);
    m_document.updateDisplay();
    QCoreApplication::processEvents();
    const QLabel* clock = label(u"clockLabel"_s);
    EXPECT_EQ(clock->text(), u"1000:00:00.0"_s);
    EXPECT_GE(clock->width(), clock->fontMetrics().horizontalAdvance(clock->text()));
}

TEST_F(ZLDocumentToolbarTest, TheAddButtonFollowsTemplatesAndTheOptionKey)
{
    EXPECT_EQ(bar().addButton()->text(), u"Add"_s);
    EXPECT_EQ(bar().addButton()->icon().name(), u"AddButton"_s);
    addTemplate(u"News"_s);
    m_document.updateAddButton();
    EXPECT_EQ(bar().addButton()->text(), u"Next"_s);
    EXPECT_EQ(bar().addButton()->icon().name(), u"NextChapter"_s);
    m_isOptionKeyHeld = true;
    m_document.updateAddButton();
    EXPECT_EQ(bar().addButton()->text(), u"Add"_s);
    m_isOptionKeyHeld = false;
    m_document.updateAddButton();
    EXPECT_EQ(bar().addButton()->text(), u"Next"_s);
}

TEST_F(ZLDocumentToolbarTest, RecordingIsRedAndPausedIsNot)
{
    const QColor red = ZLRecordingColors::red(bar().palette());
    EXPECT_NE(lineColor(), red);
    start();
    EXPECT_EQ(lineColor(), red);
    EXPECT_TRUE(bar().recordButton()->font().bold());
    m_document.recordButtonPressed();
    EXPECT_NE(lineColor(), red);
    EXPECT_FALSE(bar().recordButton()->font().bold());
}

TEST_F(ZLDocumentToolbarTest, TheRedStandsOutInLightAndDark)
{
    for (const QColor& window :
        { QColor(0xefefef), QColor(Qt::white), QColor(0x353535), QColor(0x1e1e1e), QColor(Qt::black) }) {
        QPalette palette;
        palette.setColor(QPalette::Window, window);
        palette.setColor(QPalette::Button, window);
        const QColor red = ZLRecordingColors::red(palette);
        EXPECT_GE(ZLReadableColors::contrast(red, window), 4.5) << window.name().toStdString();
    }
    EXPECT_NEAR(ZLReadableColors::contrast(Qt::black, Qt::white), 21.0, 0.01);
}

TEST_F(ZLDocumentToolbarTest, ToolTipsNameTheKey)
{
    EXPECT_TRUE(bar().recordButton()->toolTip().contains("Ctrl+R"_L1));
    EXPECT_TRUE(bar().addButton()->toolTip().contains("Ctrl+Return"_L1));
    EXPECT_TRUE(bar().deleteButton()->toolTip().contains("Ctrl+D"_L1));
    EXPECT_TRUE(bar().drawerButton()->toolTip().contains("F9"_L1));
    m_window->recordingMenu().actionWithTag(2)->setShortcut(QKeySequence(u"Ctrl+K"_s));
    EXPECT_TRUE(bar().addButton()->toolTip().contains("Ctrl+K"_L1));
}

TEST_F(ZLDocumentToolbarTest, TheNextTitleStandsUnderTheButtonWhoseLabelStays)
{
    const QLabel* next = label(u"nextTitle"_s);
    EXPECT_EQ(next->text(), QString());
    addTemplate(u"News & weather"_s);
    m_document.updateAddButton();
    EXPECT_EQ(bar().addButton()->text(), u"Next"_s);
    EXPECT_EQ(next->text(), u"News & weather"_s);
    const QPoint button = bar().addButton()->mapTo(&bar(), bar().addButton()->rect().bottomLeft());
    const QPoint title = next->mapTo(&bar(), next->rect().topLeft());
    EXPECT_EQ(title.x(), button.x());
    EXPECT_GT(title.y(), button.y());
    EXPECT_LT(title.y() - button.y(), 12);
    m_isOptionKeyHeld = true;
    m_document.updateAddButton();
    EXPECT_EQ(next->text(), QString()) << "the press would add a blank chapter";
}

TEST_F(ZLDocumentToolbarTest, ALongNextTitleIsCutAndMovesNothing)
{
    const int width = bar().sizeHint().width();
    addTemplate(QString(5000, u'W'));
    m_document.updateAddButton();
    EXPECT_TRUE(label(u"nextTitle"_s)->text().endsWith(u'…'));
    EXPECT_EQ(bar().sizeHint().width(), width);
}

TEST_F(ZLDocumentToolbarTest, ARunningClockLooksDifferent)
{
    const QLabel* clock = label(u"clockLabel"_s);
    const QColor paused = clock->palette().color(QPalette::WindowText);
    EXPECT_FALSE(clock->font().bold());
    start();
    EXPECT_TRUE(clock->font().bold());
    EXPECT_EQ(clock->palette().color(QPalette::WindowText), ZLRecordingColors::red(bar().palette()));
    m_document.recordButtonPressed();
    EXPECT_FALSE(clock->font().bold());
    EXPECT_EQ(clock->palette().color(QPalette::WindowText), paused);
}

TEST_F(ZLDocumentToolbarTest, AfterAPauseTheButtonSaysThatItGoesOn)
{
    EXPECT_TRUE(bar().recordButton()->toolTip().startsWith("Start the recording"_L1));
    start();
    EXPECT_TRUE(bar().recordButton()->toolTip().startsWith("Pause the recording"_L1));
    advance(5.0);
    m_document.recordButtonPressed();
    EXPECT_TRUE(bar().recordButton()->toolTip().startsWith("Continue the recording"_L1));
}
