#include "settings/ui/ZLShortcutPrefsViewController.h"

#include "settings/ZLSettingsManager.h"
#include "settings/ui/ZLShortcutField.h"
#include "settings/ui/ZLShortcutRecorder.h"
#include "support/ZLTemporarySettings.h"

#include <QCheckBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Manager = ZLSettingsManager;

class ZLShortcutPrefsViewControllerTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_pane.setKeyboardLayout(ZLKeyboardLayout::us());
        m_pane.viewWillAppear();
        m_pane.show();
        m_pane.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_pane));
    }

    [[nodiscard]] ZLShortcutRecorder& recorder(const QString& name)
    {
        return *m_pane.findChild<ZLShortcutRecorder*>(name);
    }
    void record(const QString& name, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        auto* field = recorder(name).findChild<ZLShortcutField*>();
        field->click();
        QTest::keyClick(field, key, modifiers);
    }
    void clear(const QString& name) { recorder(name).findChild<QToolButton*>(u"clearButton"_s)->click(); }
    [[nodiscard]] QCheckBox& globalButton() { return *m_pane.findChild<QCheckBox*>(u"globalButton"_s); }

    /// Names of the recorders, in the order of their settings keys.
    const QStringList m_names { u"toggleControl"_s, u"createChapterControl"_s, u"removeControl"_s,
        u"removeLastControl"_s, u"selectLastControl"_s, u"selectNextControl"_s };
    ZLTemporarySettings m_settings;
    ZLShortcutPrefsViewController m_pane;
    QSignalSpy m_changes { &Manager::notifications(), &ZLSettingsNotifications::ZLShortcutsDidChange };
};

TEST_F(ZLShortcutPrefsViewControllerTest, SaysWhatItIs)
{
    EXPECT_EQ(m_pane.identifier(), u"ShortcutPreferences"_s);
    EXPECT_EQ(m_pane.toolbarItemLabel(), u"Shortcuts"_s);
    EXPECT_EQ(m_pane.toolbarItemImage().name(), u"Advanced"_s);
    EXPECT_FALSE(m_pane.hasResizableWidth());
}

TEST_F(ZLShortcutPrefsViewControllerTest, EachLabelIsAtTheHeightOfItsField)
{
    const auto recorders = m_pane.findChildren<ZLShortcutRecorder*>();
    ASSERT_EQ(recorders.size(), 6);
    const auto labels = m_pane.findChildren<QLabel*>(Qt::FindDirectChildrenOnly);
    for (const QLabel* label : labels) {
        const QWidget* recorder = label->buddy();
        const QWidget* standsBeside = recorder ? recorder : label;
        EXPECT_EQ(label->geometry().center().y(), standsBeside->geometry().center().y()) << qPrintable(label->text());
    }
}

TEST_F(ZLShortcutPrefsViewControllerTest, EachRecorderStoresUnderItsKey)
{
    const QStringList keys = Manager::allKeyComboKeys();
    for (int i = 0; i < m_names.size(); ++i) {
        record(m_names.at(i), Qt::Key(Qt::Key_F2 + i), Qt::ControlModifier);
        const auto stored = Manager::keyComboForKey(keys.at(i));
        ASSERT_TRUE(stored) << qPrintable(keys.at(i));
        EXPECT_EQ(ZLKeyCombo::fromShortcutDictionary(*stored), recorder(m_names.at(i)).keyCombo());
        EXPECT_EQ(stored->value(u"modifierFlags"_s).toUInt(), 0x40000U);
    }
    EXPECT_EQ(m_changes.size(), 6);
}

TEST_F(ZLShortcutPrefsViewControllerTest, ShowsWhatIsStoredEachTimeItAppears)
{
    const QVariantMap shortcut { { u"keyCode"_s, 97 }, { u"modifierFlags"_s, 0x100000U }, { u"more"_s, 1 } };
    Manager::setKeyCombo(shortcut, ZLKeyComboKey::SelectNextChapter);
    Manager::setGlobalHotkeys(true);
    m_changes.clear();
    m_pane.viewWillAppear();
    EXPECT_EQ(recorder(u"selectNextControl"_s).objectValue(), shortcut);
    EXPECT_EQ(recorder(u"toggleControl"_s).objectValue(), std::nullopt);
    EXPECT_TRUE(globalButton().isChecked());
    Manager::removeKeyComboForKey(ZLKeyComboKey::SelectNextChapter);
    Manager::setGlobalHotkeys(false);
    m_changes.clear();
    m_pane.viewWillAppear();
    EXPECT_EQ(recorder(u"selectNextControl"_s).objectValue(), std::nullopt);
    EXPECT_FALSE(globalButton().isChecked());
    EXPECT_EQ(m_changes.size(), 0);
}

TEST_F(ZLShortcutPrefsViewControllerTest, ClearingRemovesTheShortcutAndRecordingStoresItAgain)
{
    record(u"createChapterControl"_s, Qt::Key_F6);
    clear(u"createChapterControl"_s);
    EXPECT_EQ(Manager::keyComboForKey(ZLKeyComboKey::NewChapter), std::nullopt);
    EXPECT_EQ(m_changes.size(), 2);
    record(u"createChapterControl"_s, Qt::Key_F7);
    ASSERT_TRUE(Manager::keyComboForKey(ZLKeyComboKey::NewChapter));
    EXPECT_EQ(Manager::keyComboForKey(ZLKeyComboKey::NewChapter)->value(u"keyCode"_s).toInt(), 98);
}

TEST_F(ZLShortcutPrefsViewControllerTest, AStrangersRecorderStandsForTheEmptyKey)
{
    ZLShortcutRecorder stranger;
    const QVariantMap shortcut { { u"keyCode"_s, 97 }, { u"modifierFlags"_s, 0U } };
    stranger.setObjectValue(shortcut);
    m_pane.shortcutRecorderDidEndRecording(stranger);
    EXPECT_EQ(Manager::keyComboForKey(u""_s), shortcut);
    EXPECT_EQ(m_changes.size(), 1);
    stranger.setObjectValue(std::nullopt);
    m_pane.shortcutRecorderDidEndRecording(stranger);
    EXPECT_EQ(Manager::keyComboForKey(u""_s), std::nullopt);
    EXPECT_EQ(m_changes.size(), 2);
}

TEST_F(ZLShortcutPrefsViewControllerTest, TheCheckBoxIsStoredAsItShows)
{
    const QSignalSpy changes(&Manager::notifications(), &ZLSettingsNotifications::ZLGlobalHotkeysDidChange);
    globalButton().click();
    EXPECT_TRUE(Manager::globalHotkeys());
    // What is stored does not count here, only what the box shows.
    Manager::setGlobalHotkeys(false);
    globalButton().click();
    EXPECT_FALSE(Manager::globalHotkeys());
    EXPECT_EQ(changes.size(), 3);
}

TEST_F(ZLShortcutPrefsViewControllerTest, TwoShortcutsWithTheSameKeysAreBothMarked)
{
    record(u"toggleControl"_s, Qt::Key_F6);
    record(u"removeControl"_s, Qt::Key_F6);
    EXPECT_EQ(recorder(u"toggleControl"_s).notice(), u"“Delete Chapter” has the same keys."_s);
    EXPECT_EQ(recorder(u"removeControl"_s).notice(), u"“Start or Pause Recording” has the same keys."_s);
    EXPECT_EQ(recorder(u"createChapterControl"_s).notice(), u""_s);
    clear(u"toggleControl"_s);
    EXPECT_EQ(recorder(u"removeControl"_s).notice(), u""_s);
}

TEST_F(ZLShortcutPrefsViewControllerTest, WhatTheSystemRefusedStandsBesideItsField)
{
    record(u"toggleControl"_s, Qt::Key_F6);
    m_pane.setSystemNotices(
        { { ZLKeyComboKey::ToggleRecording, u"Another program has these keys."_s } }, u"Nothing works here."_s);
    EXPECT_EQ(recorder(u"toggleControl"_s).notice(), u"Another program has these keys."_s);
    EXPECT_EQ(m_pane.findChild<QLabel*>(u"globalNotice"_s)->text(), u"Nothing works here."_s);
    EXPECT_EQ(globalButton().accessibleDescription(), u"Nothing works here."_s);
    m_pane.setSystemNotices({}, {});
    EXPECT_EQ(recorder(u"toggleControl"_s).notice(), u""_s);
    EXPECT_EQ(m_pane.findChild<QLabel*>(u"globalNotice"_s)->text(), u""_s);
}

TEST_F(ZLShortcutPrefsViewControllerTest, ANoticeMakesNoRoomForItself)
{
    const QSize before = m_pane.sizeHint();
    record(u"toggleControl"_s, Qt::Key_F6);
    record(u"removeControl"_s, Qt::Key_F6);
    m_pane.setSystemNotices({}, u"This window system has no global shortcuts."_s);
    EXPECT_EQ(m_pane.sizeHint(), before);
}

TEST_F(ZLShortcutPrefsViewControllerTest, TheChangeIsStoredBeforeTheRecordingStops)
{
    bool wasStored = false;
    bool wasRecording = false;
    QObject::connect(
        &m_pane, &ZLShortcutPrefsViewController::recordingDidStart, [&] { wasRecording = m_pane.isRecording(); });
    QObject::connect(&m_pane, &ZLShortcutPrefsViewController::recordingDidStop,
        [&] { wasStored = Manager::keyComboForKey(ZLKeyComboKey::NewChapter).has_value(); });
    record(u"createChapterControl"_s, Qt::Key_F6);
    EXPECT_TRUE(wasRecording);
    EXPECT_TRUE(wasStored);
    EXPECT_FALSE(m_pane.isRecording());
}

TEST_F(ZLShortcutPrefsViewControllerTest, TheKeyboardReachesEveryControlInOrder)
{
    QStringList reached;
    recorder(u"toggleControl"_s).setFocus();
    for (int i = 0; i < 7; ++i) {
        const QWidget* focused = m_pane.focusWidget();
        reached.append(
            focused->objectName() == u"field"_s ? focused->parentWidget()->objectName() : focused->objectName());
        QTest::keyClick(m_pane.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(reached, m_names + QStringList { u"globalButton"_s });
}

TEST_F(ZLShortcutPrefsViewControllerTest, KeysWithAltForWhatMakesChaptersSayWhatAltDoes)
{
    for (const QString& name : m_names)
        record(name, Qt::Key(Qt::Key_F2 + m_names.indexOf(name)), Qt::AltModifier | Qt::ControlModifier);
    for (const QString& name : m_names) {
        const bool makesChapters = name == u"toggleControl"_s || name == u"createChapterControl"_s;
        EXPECT_EQ(recorder(name).notice(), makesChapters ? u"With Alt: adds a blank chapter"_s : QString());
    }
    record(u"toggleControl"_s, Qt::Key_F6, Qt::ControlModifier);
    EXPECT_EQ(recorder(u"toggleControl"_s).notice(), QString());
    m_pane.setSystemNotices({ { ZLKeyComboKey::NewChapter, u"Another program has it."_s } }, {});
    EXPECT_EQ(recorder(u"createChapterControl"_s).notice(), u"Another program has it."_s) << "that is more urgent";
}
