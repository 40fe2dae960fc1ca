#include "app/ui/shortcuts/ZLShortcutList.h"

#include "app/ZLApplication.h"
#include "app/ui/ZLDesktopFixture.h"
#include "app/ui/shortcuts/ZLShortcutListDisplay.h"
#include "app/ui/shortcuts/ZLShortcutListWindow.h"
#include "document/ui/menus/ZLActionHelp.h"
#include "platform/hotkey/ZLHotKeyCenter.h"
#include "platform/hotkey/ZLKeyboardLayout.h"

#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

/// A desktop that says of each key what the test wants it to.
class ZLAnsweringHotKeyCenter : public ZLHotKeyCenter {
    Q_OBJECT

public:
    [[nodiscard]] QString backendName() const override { return u"test"_s; }
    [[nodiscard]] QString unavailabilityReason() const override { return {}; }

    ZLHotKey::State answer = ZLHotKey::State::Registered;
    QString trigger;

protected:
    void activateHotKey(const ZLHotKey& hotKey) override
    {
        setHotKeyState(hotKey.identifier, answer, u"taken"_s, trigger);
    }
    void deactivateHotKey(const ZLHotKey&) override { }
};

class ZLShortcutListTest : public ZLDesktopFixture {
protected:
    void SetUp() override
    {
        ZLDesktopFixture::SetUp();
        m_document = newDocument();
        ZLDocumentControllerSetup other = setup();
        other.stateFolder = filePath(u"other state"_s);
        constexpr quint16 anyPort = 0;
        m_application = std::make_unique<ZLApplication>(
            std::move(other), ZLApplication::StandardFontSize, ZLRemoteSetup { &m_center, anyPort });
    }

    static void recordForNewChapter(QKeyCombination keys)
    {
        ZLSettingsManager::setKeyCombo(
            ZLKeyboardLayout::current().keyComboForKeyCombination(keys)->shortcutDictionary(),
            ZLKeyComboKey::NewChapter);
        flush();
    }

    /// Titles of groups, and the rows below them as "command: keys".
    [[nodiscard]] static QStringList lines(const QList<ZLShortcutList::Group>& groups)
    {
        QStringList lines;
        for (const ZLShortcutList::Group& group : groups) {
            lines.append(group.title);
            for (const ZLShortcutList::Row& row : group.rows)
                lines.append(u"%1: %2"_s.arg(row.command, row.keys));
        }
        return lines;
    }
    [[nodiscard]] QStringList menuLines() { return lines(ZLShortcutList::ofMenus(*windowOf(m_document).menuBar())); }
    [[nodiscard]] QStringList systemLines() { return lines({ ZLShortcutList::ofWholeSystem(*m_application) }); }

    void connectKeysOf(ZLShortcutListDisplay& display)
    {
        QObject::connect(m_windows.get(), &ZLDocumentWindows::keysRequested, &display, &ZLShortcutListDisplay::showFor);
    }
    /// What stands beside the command, in each group that has it.
    [[nodiscard]] static QStringList shownKeysOf(const ZLShortcutListWindow& window, const QString& command)
    {
        QStringList keys;
        const auto items = window.findChild<QTreeWidget*>()->findItems(command, Qt::MatchExactly | Qt::MatchRecursive);
        for (const QTreeWidgetItem* item : items)
            keys.append(item->text(1));
        return keys;
    }

    ZLAnsweringHotKeyCenter m_center;
    ZLChapterDocument* m_document = nullptr;
    std::unique_ptr<ZLApplication> m_application;
};

TEST_F(ZLShortcutListTest, EveryKeyOfTheMenusIsListed)
{
    const QStringList listed = menuLines();
    int keys = 0;
    const auto menus = windowOf(m_document).menuBar()->actions();
    for (const QAction* menu : menus) {
        for (const QAction* item : menu->menu()->actions()) {
            const QString key = item->shortcut().toString(QKeySequence::NativeText);
            keys += key.isEmpty() ? 0 : 1;
            EXPECT_TRUE(key.isEmpty() || !listed.filter(u": "_s + key).isEmpty()) << qPrintable(item->text());
        }
    }
    EXPECT_GE(keys, 25);
    EXPECT_TRUE(listed.contains(u"New Chapter: Ctrl+Return"_s));
    EXPECT_TRUE(listed.contains(u"Keyboard Shortcuts: Ctrl+F1"_s));
}

TEST_F(ZLShortcutListTest, TheMenusStandInTheirOrder)
{
    QStringList titles;
    for (const ZLShortcutList::Group& group : ZLShortcutList::ofMenus(*windowOf(m_document).menuBar()))
        titles.append(group.title);
    EXPECT_EQ(titles, (QStringList { u"File"_s, u"Edit"_s, u"Recording"_s, u"View"_s, u"Window"_s, u"Help"_s }));
}

TEST_F(ZLShortcutListTest, AKeyIsListedUnderTheNameOfItsCommandAndNotOfTheNextStep)
{
    addChapter(m_document, u"Mine"_s);
    ASSERT_TRUE(action(m_document, u"undo"_s)->text().contains("Create Chapter"_L1));
    EXPECT_TRUE(menuLines().filter(u"Create Chapter"_s).isEmpty());
    EXPECT_TRUE(menuLines().contains(u"Undo: Ctrl+Z"_s));
}

TEST_F(ZLShortcutListTest, AnItemInASubmenuIsListedToo)
{
    auto* submenu = windowOf(m_document).menuBar()->actions().first()->menu()->addMenu(u"More"_s);
    ZLActionHelp::addAction(*submenu, u"deep"_s, u"Deep &Down…"_s, QKeySequence(u"Ctrl+Alt+D"_s));
    EXPECT_TRUE(menuLines().contains(u"Deep Down: Ctrl+Alt+D"_s));
}

TEST_F(ZLShortcutListTest, TheSixCommandsOfTheWholeSystemSayHowItStandsWithThem)
{
    EXPECT_EQ(systemLines(),
        (QStringList { u"Global Shortcuts (Off)"_s, u"Start or Pause Recording: none"_s, u"New Chapter: none"_s,
            u"Delete Chapter: none"_s, u"Delete Last Chapter: none"_s, u"Select Previous Chapter: none"_s,
            u"Select Next Chapter: none"_s }));
    recordForNewChapter(Qt::CTRL | Qt::Key_F7);
    EXPECT_EQ(systemLines().value(2), u"New Chapter: Ctrl+F7"_s);
    ZLSettingsManager::setGlobalHotkeys(true);
    EXPECT_EQ(systemLines().value(0), u"Global Shortcuts"_s);
    EXPECT_EQ(systemLines().value(2), u"New Chapter: Ctrl+F7"_s);
    m_center.answer = ZLHotKey::State::Refused;
    recordForNewChapter(Qt::CTRL | Qt::Key_F8);
    EXPECT_EQ(systemLines().value(2), u"New Chapter: Ctrl+F8 (refused)"_s);
    m_center.answer = ZLHotKey::State::Registered;
    m_center.trigger = u"Press Meta+M"_s;
    recordForNewChapter(Qt::CTRL | Qt::Key_F9);
    EXPECT_EQ(systemLines().value(2), u"New Chapter: Press Meta+M"_s);
}

TEST_F(ZLShortcutListTest, TheWindowShowsThemAndFollowsWhatIsRecorded)
{
    ZLShortcutListDisplay display(*m_application);
    connectKeysOf(display);
    trigger(m_document, u"showKeys"_s);
    trigger(m_document, u"showKeys"_s);
    ASSERT_EQ(windowOf(m_document).findChildren<ZLShortcutListWindow*>().size(), 1);
    auto* window = windowOf(m_document).findChild<ZLShortcutListWindow*>();
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(window->isModal());
    EXPECT_EQ(shownKeysOf(*window, u"New Chapter"_s), (QStringList { u"Ctrl+Return"_s, u"none"_s }));
    recordForNewChapter(Qt::CTRL | Qt::Key_F7);
    EXPECT_EQ(shownKeysOf(*window, u"New Chapter"_s).last(), u"Ctrl+F7"_s);

    const QSignalSpy changes(&display, &ZLShortcutListDisplay::changeRequested);
    window->findChild<QPushButton*>(u"changeButton"_s)->click();
    EXPECT_EQ(changes.size(), 1);
    QTest::keyClick(window, Qt::Key_Escape);
    flush();
    EXPECT_EQ(windowOf(m_document).findChild<ZLShortcutListWindow*>(), nullptr);
}

TEST_F(ZLShortcutListTest, TheRowThatIsReadStaysTheCurrentOne)
{
    ZLShortcutListDisplay display(*m_application);
    connectKeysOf(display);
    trigger(m_document, u"showKeys"_s);
    auto& list = *windowOf(m_document).findChild<QTreeWidget*>();
    list.setCurrentItem(list.topLevelItem(2)->child(1));
    const QString command = list.currentItem()->text(0);
    recordForNewChapter(Qt::CTRL | Qt::Key_F7);
    EXPECT_EQ(list.currentItem()->text(0), command);
}

#include "ZLShortcutListTest.moc"
