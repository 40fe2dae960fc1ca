#include "remote/ZLHotkeyController.h"

#include "remote/ZLRecordingDelegate.h"
#include "remote/ZLRecordingHotKeyCenter.h"
#include "support/ZLTemporarySettings.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 storedCommand = 0x100000;
constexpr quint32 storedOption = 0x80000;
constexpr quint32 storedCapsLock = 0x10000;
constexpr quint32 storedFunctionKey = 0x800000;

QVariantMap shortcut(int keyCode, quint32 modifierFlags)
{
    return { { u"keyCode"_s, keyCode }, { u"modifierFlags"_s, modifierFlags } };
}

}

class ZLHotkeyControllerTest : public testing::Test {
protected:
    void record(const QString& key, int keyCode, quint32 modifierFlags = storedCommand)
    {
        ZLSettingsManager::setKeyCombo(shortcut(keyCode, modifierFlags), key);
    }

    void recordAll()
    {
        int keyCode = 0;
        for (const ZLRemoteAction& action : ZLRemoteActions::all())
            record(action.settingsKey, ++keyCode);
    }

    [[nodiscard]] QStringList registered() const
    {
        QStringList identifiers;
        for (const ZLHotKey& hotKey : m_center.allHotKeys())
            identifiers.append(hotKey.identifier);
        return identifiers;
    }

    ZLTemporarySettings m_settings;
    ZLRecordingHotKeyCenter m_center;
    ZLRecordingDelegate m_delegate;
};

TEST_F(ZLHotkeyControllerTest, WithoutARecordedShortcutNothingIsRegistered)
{
    const ZLHotkeyController controller(&m_delegate, m_center);
    EXPECT_TRUE(m_center.allHotKeys().isEmpty());
    EXPECT_EQ(controller.hotKeyForSettingsKey(ZLKeyComboKey::NewChapter), std::nullopt);
}

TEST_F(ZLHotkeyControllerTest, AllSixAreRegisteredAtOnceInTheirOrderAndFire)
{
    recordAll();
    const ZLHotkeyController controller(&m_delegate, m_center);
    QStringList identifiers;
    int keyCode = 0;
    for (const ZLRemoteAction& action : ZLRemoteActions::all()) {
        identifiers.append(action.identifier);
        m_center.press({ ++keyCode, ZLHotKeyModifier::command });
        ASSERT_EQ(m_delegate.actions.size(), keyCode);
        EXPECT_TRUE(ZLRemoteActions::isSameAction(m_delegate.actions.last(), action.identifier));
        EXPECT_EQ(m_delegate.controllers.last(), &controller);
        EXPECT_EQ(m_center.active.value(action.identifier).purpose, action.title());
    }
    EXPECT_EQ(registered(), identifiers);
}

TEST_F(ZLHotkeyControllerTest, OnlyTheFourModifiersAreTakenOver)
{
    record(ZLKeyComboKey::NewChapter, 9, storedCommand | storedOption | storedCapsLock | storedFunctionKey | 0x108);
    const ZLHotkeyController controller(&m_delegate, m_center);
    EXPECT_EQ(m_center.active.value(ZLControllerNewChapterAction).keyCombo, (ZLKeyCombo { 9, 0x900 }));
}

TEST_F(ZLHotkeyControllerTest, AMissingEntryReadsAsZero)
{
    ZLSettingsManager::setKeyCombo({}, ZLKeyComboKey::NewChapter);
    ZLSettingsManager::setKeyCombo({ { u"keyCode"_s, 7 } }, ZLKeyComboKey::SelectNextChapter);
    const ZLHotkeyController controller(&m_delegate, m_center);
    EXPECT_EQ(m_center.active.value(ZLControllerNewChapterAction).keyCombo, (ZLKeyCombo { 0, 0 }));
    EXPECT_EQ(m_center.active.value(ZLControllerSelectNextAction).keyCombo, (ZLKeyCombo { 7, 0 }));
}

TEST_F(ZLHotkeyControllerTest, ARecordedShortcutFiresAtOnceAndARecordedAnewOneLeavesItsOldKeys)
{
    const ZLHotkeyController controller(&m_delegate, m_center);
    record(ZLKeyComboKey::NewChapter, 9);
    m_center.press({ 9, ZLHotKeyModifier::command });
    EXPECT_EQ(m_delegate.actions, QStringList { ZLControllerNewChapterAction });
    record(ZLKeyComboKey::NewChapter, 10);
    m_center.press({ 9, ZLHotKeyModifier::command });
    EXPECT_EQ(m_delegate.actions.size(), 1) << "the keys of before are free again";
    m_center.press({ 10, ZLHotKeyModifier::command });
    EXPECT_EQ(m_delegate.actions.size(), 2);
}

TEST_F(ZLHotkeyControllerTest, AClearedShortcutDisappearsAndTheOtherFiveStay)
{
    recordAll();
    const ZLHotkeyController controller(&m_delegate, m_center);
    ZLSettingsManager::removeKeyComboForKey(ZLKeyComboKey::RemoveLastChapter);
    EXPECT_EQ(m_center.active.size(), 5);
    EXPECT_FALSE(registered().contains(ZLControllerDeleteLastChapterAction));
    m_center.press({ 4, ZLHotKeyModifier::command });
    EXPECT_TRUE(m_delegate.actions.isEmpty());
    m_center.press({ 5, ZLHotKeyModifier::command });
    EXPECT_EQ(m_delegate.actions, QStringList { ZLControllerSelectLastAction });
}

TEST_F(ZLHotkeyControllerTest, HotKeysOfOthersGoWhenItsOwnAreSetUp)
{
    ZLHotKey foreign;
    foreign.identifier = u"foreign"_s;
    foreign.keyCombo = { 20, ZLHotKeyModifier::control };
    m_center.registerHotKey(foreign);
    const ZLHotkeyController controller(&m_delegate, m_center);
    EXPECT_TRUE(m_center.allHotKeys().isEmpty());
}

TEST_F(ZLHotkeyControllerTest, AHotKeyThatIsNoneOfTheSixFiresNothing)
{
    ZLHotkeyController controller(&m_delegate, m_center);
    controller.hotkeyAction(u"foreign"_s);
    controller.hotkeyAction({});
    EXPECT_TRUE(m_delegate.actions.isEmpty());
}

TEST_F(ZLHotkeyControllerTest, TheTextThatADesktopGivesBackBecomesThePublishedConstant)
{
    ZLHotkeyController controller(&m_delegate, m_center);
    controller.hotkeyAction(QString::fromLatin1("ZLControllerNewChapterAction"));
    ASSERT_EQ(m_delegate.actions.size(), 1);
    EXPECT_TRUE(ZLRemoteActions::isSameAction(m_delegate.actions.first(), ZLControllerNewChapterAction));
}

TEST_F(ZLHotkeyControllerTest, WithoutADelegateAPressDoesNothing)
{
    record(ZLKeyComboKey::NewChapter, 9);
    const ZLHotkeyController controller(nullptr, m_center);
    m_center.press({ 9, ZLHotKeyModifier::command });
    EXPECT_EQ(m_center.active.size(), 1);
}

TEST_F(ZLHotkeyControllerTest, ARefusedShortcutIsReportedAndTheOthersWork)
{
    m_center.held.append({ 2, ZLHotKeyModifier::command });
    recordAll();
    const ZLHotkeyController controller(&m_delegate, m_center);
    const auto refused = controller.hotKeyForSettingsKey(ZLKeyComboKey::NewChapter);
    ASSERT_TRUE(refused);
    EXPECT_EQ(refused->state, ZLHotKey::State::Refused);
    EXPECT_EQ(refused->refusalReason, u"Another program has it."_s);
    const auto accepted = controller.hotKeyForSettingsKey(ZLKeyComboKey::ToggleRecording);
    ASSERT_TRUE(accepted);
    EXPECT_EQ(accepted->state, ZLHotKey::State::Registered);
    ASSERT_EQ(controller.refusedHotKeys().size(), 1);
    EXPECT_EQ(controller.refusedHotKeys().first().identifier, ZLControllerNewChapterAction);
    EXPECT_EQ(m_center.active.size(), 5);
}

TEST_F(ZLHotkeyControllerTest, EveryChangeIsAnnouncedAndALateRefusalToo)
{
    const ZLHotkeyController controller(&m_delegate, m_center);
    QSignalSpy changes(&controller, &ZLHotkeyController::hotKeysDidChange);
    record(ZLKeyComboKey::NewChapter, 9);
    EXPECT_GT(changes.size(), 0);
    EXPECT_TRUE(controller.refusedHotKeys().isEmpty());
    changes.clear();
    m_center.refuse(ZLControllerNewChapterAction, u"The desktop took it back."_s);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(controller.hotKeyForSettingsKey(ZLKeyComboKey::NewChapter).value().refusalReason,
        u"The desktop took it back."_s);
    changes.clear();
    ZLSettingsManager::removeKeyComboForKey(ZLKeyComboKey::NewChapter);
    EXPECT_GT(changes.size(), 0);
    EXPECT_EQ(controller.hotKeyForSettingsKey(ZLKeyComboKey::NewChapter), std::nullopt);
}

TEST_F(ZLHotkeyControllerTest, ItsEndLeavesTheHotKeysToWhoeverDropsIt)
{
    record(ZLKeyComboKey::NewChapter, 9);
    {
        const ZLHotkeyController controller(&m_delegate, m_center);
    }
    EXPECT_EQ(m_center.allHotKeys().size(), 1);
    m_center.press({ 9, ZLHotKeyModifier::command });
    EXPECT_TRUE(m_delegate.actions.isEmpty());
    record(ZLKeyComboKey::SelectNextChapter, 10);
    EXPECT_EQ(m_center.allHotKeys().size(), 1) << "a controller that is gone follows no settings";
    ZLHotkeyController::unregisterAllHotKeys(m_center);
    EXPECT_TRUE(m_center.allHotKeys().isEmpty());
    EXPECT_TRUE(m_center.active.isEmpty());
}
