#include "app/ui/shortcuts/ZLMenuShortcuts.h"

#include "app/ui/ZLDesktopFixture.h"
#include "commands/ZLRemoteActions.h"
#include "document/ui/menus/ZLRecordingMenu.h"

#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 storedControl = 0x40000;
constexpr quint32 storedOption = 0x80000;
constexpr int codeOfJ = 38;
constexpr int codeOfK = 40;
constexpr int codeOfM = 46;

void recordShortcut(const QString& settingsKey, int keyCode, quint32 modifierFlags = storedControl | storedOption)
{
    ZLSettingsManager::setKeyCombo({ { u"keyCode"_s, keyCode }, { u"modifierFlags"_s, modifierFlags } }, settingsKey);
}

}

/// Two windows whose menus carry the recorded shortcuts.
class ZLMenuShortcutsTest : public ZLDesktopFixture {
protected:
    void SetUp() override
    {
        ZLDesktopFixture::SetUp();
        m_first = newDocument();
        m_second = newDocument();
        m_shortcuts.addWindow(windowOf(m_first));
        m_shortcuts.addWindow(windowOf(m_second));
    }

    [[nodiscard]] QString keysOf(const QString& settingsKey, ZLChapterDocument* document)
    {
        for (const ZLRemoteAction& action : ZLRemoteActions::all()) {
            if (action.settingsKey == settingsKey)
                return windowOf(document).recordingMenu().actionWithTag(action.menuTag())->shortcut().toString();
        }
        return u"no such action"_s;
    }
    [[nodiscard]] QString keysOf(const QString& settingsKey) { return keysOf(settingsKey, m_first); }

    /// The keys of all items without a tag.
    [[nodiscard]] QStringList otherKeys()
    {
        QStringList keys;
        for (const QAction* menu : windowOf(m_first).menuBar()->actions()) {
            for (const QAction* item : menu->menu()->actions()) {
                if (!item->property("tag").isValid())
                    keys.append(item->objectName() + u' ' + item->shortcut().toString());
            }
        }
        return keys;
    }

    ZLMenuShortcuts m_shortcuts;
    ZLChapterDocument* m_first = nullptr;
    ZLChapterDocument* m_second = nullptr;
};

TEST_F(ZLMenuShortcutsTest, EachOfTheSixIsShownByItsItemInEveryWindow)
{
    const QStringList before = otherKeys();
    const QStringList keys = ZLSettingsManager::allKeyComboKeys();
    const QList<quint32> modifiers { storedControl, storedOption, storedControl | storedOption };
    for (int index = 0; index < int(keys.size()); ++index)
        recordShortcut(keys.at(index), index % 2 == 0 ? codeOfJ : codeOfK, modifiers.at(index / 2));
    QStringList shown;
    for (const QString& key : keys)
        shown.append(keysOf(key));
    EXPECT_EQ(
        shown, (QStringList { u"Ctrl+J"_s, u"Ctrl+K"_s, u"Alt+J"_s, u"Alt+K"_s, u"Ctrl+Alt+J"_s, u"Ctrl+Alt+K"_s }));
    for (const QString& key : keys)
        EXPECT_EQ(keysOf(key, m_second), keysOf(key));
    EXPECT_EQ(otherKeys(), before) << "items without a tag are not touched";
}

TEST_F(ZLMenuShortcutsTest, ARecordedShortcutGivesTheCommandAtOnce)
{
    recordShortcut(ZLKeyComboKey::ToggleRecording, codeOfM);
    makeCurrent(m_second);
    QTest::keyClick(&windowOf(m_second), Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_TRUE(m_second->isRecording());
    EXPECT_FALSE(m_first->isRecording());
}

TEST_F(ZLMenuShortcutsTest, WithoutARecordedShortcutAnItemKeepsWhatItHad)
{
    EXPECT_EQ(keysOf(ZLKeyComboKey::NewChapter), u"Ctrl+Return"_s);
    recordShortcut(ZLKeyComboKey::NewChapter, codeOfM);
    EXPECT_EQ(keysOf(ZLKeyComboKey::NewChapter), u"Ctrl+Alt+M"_s);
    ZLSettingsManager::removeKeyComboForKey(ZLKeyComboKey::NewChapter);
    EXPECT_EQ(keysOf(ZLKeyComboKey::NewChapter), u"Ctrl+Alt+M"_s) << "a cleared one stays";
    ZLChapterDocument* later = newDocument();
    m_shortcuts.addWindow(windowOf(later));
    EXPECT_EQ(keysOf(ZLKeyComboKey::NewChapter, later), u"Ctrl+Alt+M"_s);
    recordShortcut(ZLKeyComboKey::NewChapter, 500);
    EXPECT_EQ(keysOf(ZLKeyComboKey::NewChapter), u"Ctrl+Alt+M"_s) << "so does one before a code that is no key";
}

TEST_F(ZLMenuShortcutsTest, AnItemLendsItsOwnKeyToTheCommandForWhichItIsRecorded)
{
    ASSERT_EQ(action(m_first, u"moveChapters"_s)->shortcut(), QKeySequence(u"Ctrl+M"_s));
    recordShortcut(ZLKeyComboKey::ToggleRecording, codeOfM, storedControl);
    EXPECT_EQ(keysOf(ZLKeyComboKey::ToggleRecording), u"Ctrl+M"_s);
    EXPECT_TRUE(action(m_first, u"moveChapters"_s)->shortcut().isEmpty());
    recordShortcut(ZLKeyComboKey::ToggleRecording, codeOfJ);
    EXPECT_EQ(action(m_first, u"moveChapters"_s)->shortcut(), QKeySequence(u"Ctrl+M"_s));
}

TEST_F(ZLMenuShortcutsTest, KeysThatWereClearedWorkForTheCommandForWhichTheyAreRecordedNext)
{
    recordShortcut(ZLKeyComboKey::NewChapter, codeOfM);
    ZLSettingsManager::removeKeyComboForKey(ZLKeyComboKey::NewChapter);
    recordShortcut(ZLKeyComboKey::ToggleRecording, codeOfM);
    EXPECT_EQ(keysOf(ZLKeyComboKey::ToggleRecording), u"Ctrl+Alt+M"_s);
    EXPECT_EQ(keysOf(ZLKeyComboKey::NewChapter), u"Ctrl+Return"_s);
    makeCurrent(m_first);
    QTest::keyClick(&windowOf(m_first), Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_TRUE(m_first->isRecording());
}

TEST_F(ZLMenuShortcutsTest, OfTwoCommandsWithTheSameKeysTheFirstHasThem)
{
    recordShortcut(ZLKeyComboKey::NewChapter, codeOfM);
    recordShortcut(ZLKeyComboKey::ToggleRecording, codeOfM);
    EXPECT_EQ(keysOf(ZLKeyComboKey::ToggleRecording), u"Ctrl+Alt+M"_s);
    EXPECT_EQ(keysOf(ZLKeyComboKey::NewChapter), u"Ctrl+Return"_s);
    makeCurrent(m_first);
    QTest::keyClick(&windowOf(m_first), Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_TRUE(m_first->isRecording());
    ZLSettingsManager::removeKeyComboForKey(ZLKeyComboKey::ToggleRecording);
    EXPECT_EQ(keysOf(ZLKeyComboKey::NewChapter), u"Ctrl+Alt+M"_s) << "now it is the only one";
    EXPECT_EQ(keysOf(ZLKeyComboKey::ToggleRecording), u"Ctrl+R"_s);
}
