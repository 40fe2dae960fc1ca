#include "app/ui/ZLPreferences.h"

#include "app/ZLApplication.h"
#include "platform/sound/ZLNullSoundServer.h"
#include "remote/ZLRecordingHotKeyCenter.h"
#include "settings/ui/ZLShortcutRecorder.h"
#include "support/ZLTemporarySettings.h"

#include <QCheckBox>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// The preferences of a program that has system-wide hot keys and no sound.
class ZLPreferencesTest : public testing::Test {
protected:
    [[nodiscard]] ZLDocumentControllerSetup setup() const
    {
        const auto runAtOnce = [](const std::function<void()>& task) { task(); };
        ZLDocumentControllerSetup result;
        result.machinery.executor = runAtOnce;
        result.stateFolder = m_folder.path();
        result.sessionExecutor = runAtOnce;
        return result;
    }

    [[nodiscard]] QString shownPane() const
    {
        return m_preferences.prefsController()->selectedViewController()->identifier();
    }
    [[nodiscard]] QMainWindow& window() const { return m_preferences.prefsController()->window(); }

    ZLTemporarySettings m_settings;
    QTemporaryDir m_folder;
    ZLRecordingHotKeyCenter m_hotKeys;
    ZLNullSoundServer m_sound;
    ZLApplication m_application { setup(), 10.0F, { .hotKeyCenter = &m_hotKeys, .oscPort = 0 } };
    ZLPreferences m_preferences { m_application, m_sound };
};

TEST_F(ZLPreferencesTest, TheWindowIsMadeWhenItIsFirstWantedAndKept)
{
    EXPECT_EQ(m_preferences.prefsController(), nullptr);
    m_preferences.openPreferences();
    const MASPreferencesWindowController* controller = m_preferences.prefsController();
    ASSERT_NE(controller, nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    EXPECT_EQ(shownPane(), u"GeneralPreferences"_s);
    EXPECT_TRUE(window().close());
    m_preferences.openPreferences();
    EXPECT_EQ(m_preferences.prefsController(), controller);
    EXPECT_TRUE(window().isVisible());
}

TEST_F(ZLPreferencesTest, ThePanesAreGeneralShortcutsAGapAndAbout)
{
    m_preferences.openPreferences();
    QToolBar* toolbar = window().findChild<QToolBar*>(u"toolbar"_s);
    ASSERT_NE(toolbar, nullptr);
    QStringList labels;
    for (QAction* item : toolbar->actions()) {
        const bool stretches =
            toolbar->widgetForAction(item)->sizePolicy().horizontalPolicy() == QSizePolicy::Expanding;
        labels.append(stretches ? u"(space)"_s : item->text());
    }
    EXPECT_EQ(labels, (QStringList { u"General"_s, u"Shortcuts"_s, u"(space)"_s, u"About"_s }));
    QStringList shown;
    for (const qsizetype index : { 0, 1, 2, 3 }) {
        m_preferences.prefsController()->selectControllerAtIndex(index);
        shown.append(shownPane());
    }
    EXPECT_EQ(shown,
        (QStringList { u"GeneralPreferences"_s, u"ShortcutPreferences"_s, u"ShortcutPreferences"_s, u"About"_s }));
}

TEST_F(ZLPreferencesTest, NextGoesFromTheShortcutsOverTheGapToAboutAndRoundToGeneral)
{
    m_preferences.openShortcuts();
    EXPECT_EQ(shownPane(), u"ShortcutPreferences"_s);
    m_preferences.prefsController()->goNextTab();
    EXPECT_EQ(shownPane(), u"About"_s);
    m_preferences.prefsController()->goNextTab();
    EXPECT_EQ(shownPane(), u"GeneralPreferences"_s);
}

TEST_F(ZLPreferencesTest, AboutIsAPaneOfTheSameWindow)
{
    m_preferences.openAboutView();
    EXPECT_EQ(shownPane(), u"About"_s);
    EXPECT_EQ(m_preferences.prefsController()->indexOfSelectedController(), 3);
    EXPECT_TRUE(window().isVisible());
}

TEST_F(ZLPreferencesTest, TickingSystemWideShortcutsRegistersThemAtOnceAndUntickingTakesAllAway)
{
    ZLSettingsManager::setKeyCombo(
        { { u"keyCode"_s, 46 }, { u"modifierFlags"_s, 0x180000U } }, ZLKeyComboKey::NewChapter);
    m_preferences.openShortcuts();
    auto* box = window().findChild<QCheckBox*>(u"globalButton"_s);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(m_application.hotkeyController(), nullptr);
    box->click();
    ASSERT_NE(m_application.hotkeyController(), nullptr);
    ASSERT_EQ(m_hotKeys.allHotKeys().size(), 1);
    EXPECT_EQ(m_hotKeys.allHotKeys().first().keyCombo, (ZLKeyCombo { 46, 0x900 }));
    box->click();
    EXPECT_EQ(m_application.hotkeyController(), nullptr);
    EXPECT_TRUE(m_hotKeys.allHotKeys().isEmpty());
    EXPECT_TRUE(m_hotKeys.active.isEmpty());
}

TEST_F(ZLPreferencesTest, AShortcutThatTheSystemRefusesSaysSoBesideItsField)
{
    m_hotKeys.held.append({ 46, ZLHotKeyModifier::command });
    ZLSettingsManager::setGlobalHotkeys(true);
    m_preferences.openShortcuts();
    ZLSettingsManager::setKeyCombo(
        { { u"keyCode"_s, 46 }, { u"modifierFlags"_s, 0x100000U } }, ZLKeyComboKey::NewChapter);
    m_preferences.prefsController()->goNextTab();
    m_preferences.openShortcuts();
    const auto* recorder = window().findChild<ZLShortcutRecorder*>(u"createChapterControl"_s);
    ASSERT_NE(recorder, nullptr);
    EXPECT_EQ(recorder->notice(), u"Another program has it."_s);
}
