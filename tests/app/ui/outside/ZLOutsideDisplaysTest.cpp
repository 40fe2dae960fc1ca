#include "app/ZLApplication.h"
#include "app/ui/ZLDesktopFixture.h"
#include "app/ui/outside/ZLOutsideNewsDisplay.h"
#include "app/ui/outside/ZLOutsideTargetDisplay.h"

using namespace Qt::StringLiterals;

/// Two documents of one program in windows, and commands from outside.
class ZLOutsideDisplaysTest : public testing::Test {
protected:
    ZLOutsideDisplaysTest()
    {
        ZLSettingsManager::setCreateNewChapterOnStart(false);
        QObject::connect(&controller(), &ZLDocumentController::didOpenDocument, &m_target,
            [this](ZLChapterDocument* document) { m_target.addWindow(window(document)); });
        m_first = controller().newDocument();
        m_first->setDisplayName(u"Old"_s);
    }

    [[nodiscard]] ZLDocumentControllerSetup setup()
    {
        const auto runAtOnce = [](const std::function<void()>& task) { task(); };
        ZLDocumentControllerSetup result;
        result.environment.hostClock = m_clock;
        result.machinery.executor = runAtOnce;
        result.stateFolder = m_folder.path();
        result.sessionExecutor = runAtOnce;
        return result;
    }

    void openSecond()
    {
        m_second = controller().newDocument();
        m_second->setDisplayName(u"Show"_s);
        controller().setCurrentDocument(nullptr);
    }
    QString send(const QString& word)
    {
        return m_application.oscController().performMessage(
            ZLOSCMessage(ZLRemoteActions::withCommandWord(word)->oscAddress, { 1.0F }), u"zelta send"_s);
    }
    [[nodiscard]] ZLDocumentController& controller() { return m_application.documentController(); }
    [[nodiscard]] ZLOutsideCommands& commands() { return m_application.outsideCommands(); }
    [[nodiscard]] ZLChapterDocumentWindow& window(ZLChapterDocument* document) { return *m_windows.windowOf(document); }
    /// What the status line says of commands from outside.
    [[nodiscard]] QString statusOf(ZLChapterDocument* document)
    {
        const auto* part = window(document).statusLine().findChild<QToolButton*>(u"outsideTarget"_s);
        return part->isHidden() ? QString() : part->text();
    }
    [[nodiscard]] QAction* item(ZLChapterDocument* document)
    {
        return window(document).findChild<QAction*>(u"outsideCommandsComeHere"_s);
    }
    [[nodiscard]] QString barOf(ZLChapterDocument* document)
    {
        return window(document).messageBar().texts().join(u'\n');
    }

    ZLTemporarySettings m_settings;
    QTemporaryDir m_folder;
    std::shared_ptr<ZLFakeHostClock> m_clock = std::make_shared<ZLFakeHostClock>();
    ZLApplication m_application { setup() };
    ZLDocumentWindows m_windows { controller() };
    ZLOutsideTargetDisplay m_target { m_application };
    ZLOutsideNewsDisplay m_news { commands(), m_windows };
    ZLChapterDocument* m_first = nullptr;
    ZLChapterDocument* m_second = nullptr;
};

TEST_F(ZLOutsideDisplaysTest, TheWindowThatTheyReachSaysSoWhileMoreThanOneDocumentIsOpen)
{
    EXPECT_EQ(statusOf(m_first), QString());
    openSecond();
    EXPECT_EQ(statusOf(m_first), u"Outside commands come here"_s);
    EXPECT_EQ(statusOf(m_second), QString());
    controller().setCurrentDocument(m_second);
    EXPECT_EQ(statusOf(m_first), QString());
    EXPECT_EQ(statusOf(m_second), u"Outside commands come here"_s);
    const auto* part = window(m_second).statusLine().findChild<QToolButton*>(u"outsideTarget"_s);
    EXPECT_TRUE(part->toolTip().contains(u"“Old”"_s)) << qPrintable(part->toolTip());
    ASSERT_TRUE(controller().closeDocument(m_first, ZLClosing::Discard));
    EXPECT_EQ(statusOf(m_second), QString());
}

TEST_F(ZLOutsideDisplaysTest, TheMenuItemPinsThemAndTheStatusLineToo)
{
    openSecond();
    item(m_second)->trigger();
    EXPECT_EQ(commands().pinnedDocument(), m_second);
    EXPECT_EQ(statusOf(m_second), u"Outside commands stay here"_s);
    EXPECT_EQ(statusOf(m_first), QString());
    item(m_first)->trigger();
    EXPECT_TRUE(item(m_first)->isChecked());
    EXPECT_FALSE(item(m_second)->isChecked()) << "they are pinned to one document at most";
    item(m_first)->trigger();
    EXPECT_EQ(commands().pinnedDocument(), nullptr);
    window(m_first).statusLine().findChild<QToolButton*>(u"outsideTarget"_s)->click();
    EXPECT_EQ(commands().pinnedDocument(), m_first);
    ASSERT_TRUE(controller().closeDocument(m_first, ZLClosing::Discard));
    EXPECT_EQ(commands().pinnedDocument(), nullptr);
}

TEST_F(ZLOutsideDisplaysTest, AMarkFromOutsideIsToldInTheStatusLineOfItsWindow)
{
    openSecond();
    commands().pinTo(m_second);
    m_second->recordButtonPressed();
    m_clock->advance(751.48);
    send(u"newChapter"_s);
    EXPECT_EQ(window(m_second).statusLine().passingMessage(), u"Chapter 1 at 00:12:31, from zelta send"_s);
    EXPECT_EQ(window(m_first).statusLine().passingMessage(), QString());
    m_clock->advance(1.0);
    m_application.oscController().receivedOSCMessage(
        { ZLOSCMessage(u"/zl/newChapter"_s, { 1.0F }), { QHostAddress::LocalHost, 9 }, 0 });
    EXPECT_EQ(window(m_second).statusLine().passingMessage(), u"Chapter 2 at 00:12:32, from OSC"_s);
    window(m_second).statusLine().hidePassingMessage();
    m_second->addChapterButtonPressed();
    EXPECT_EQ(window(m_second).statusLine().passingMessage(), QString()) << "one's own mark needs no telling";
}

TEST_F(ZLOutsideDisplaysTest, ACommandThatWentElsewhereInVainIsToldInTheRecordingWindow)
{
    openSecond();
    send(u"newChapter"_s);
    EXPECT_EQ(barOf(m_first) + barOf(m_second), QString()) << "nothing records";
    m_second->recordButtonPressed();
    send(u"newChapter"_s);
    EXPECT_EQ(barOf(m_second),
        u"“New Chapter”, from zelta send, went to “Old” and could do nothing there: the clock is not running."_s);
    EXPECT_EQ(barOf(m_first), QString());
    const auto buttons = window(m_second).messageBar().findChildren<QPushButton*>();
    const auto comeHere = std::ranges::find(buttons, u"Commands From Outside Come Here"_s,
        [](const QPushButton* button) { return button->text().remove(u'&'); });
    ASSERT_NE(comeHere, buttons.end());
    (*comeHere)->click();
    EXPECT_EQ(barOf(m_second), QString());
    EXPECT_EQ(send(u"newChapter"_s), u"added a chapter"_s);
    EXPECT_EQ(m_second->chapterManager().count(), 1);
}

TEST_F(ZLOutsideDisplaysTest, TheBarGoesWhenCommandsReachTheRecordingDocument)
{
    openSecond();
    m_second->recordButtonPressed();
    send(u"newChapter"_s);
    EXPECT_NE(barOf(m_second), QString());
    item(m_second)->trigger();
    EXPECT_EQ(barOf(m_second), QString()) << "they were pinned to it by the menu";

    item(m_second)->trigger();
    send(u"newChapter"_s);
    EXPECT_NE(barOf(m_second), QString());
    controller().setCurrentDocument(m_second);
    EXPECT_NE(barOf(m_second), QString()) << "nothing has come here yet";
    send(u"newChapter"_s);
    EXPECT_EQ(barOf(m_second), QString()) << "a mark came here";
}
