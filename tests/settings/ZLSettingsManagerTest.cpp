#include "settings/ZLSettingsManager.h"

#include "support/ZLTemporarySettings.h"

#include <QFile>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Manager = ZLSettingsManager;

class ZLSettingsManagerTest : public testing::Test {
protected:
    [[nodiscard]] QString fileText() const
    {
        QFile file(m_settings.path());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    [[nodiscard]] qsizetype allNotifications() const
    {
        return m_fontSizeChanges.size() + m_shortcutChanges.size() + m_hotkeyChanges.size()
            + m_absoluteTimeChanges.size();
    }

    ZLTemporarySettings m_settings;
    ZLSettingsNotifications& m_notifications = Manager::notifications();
    QSignalSpy m_fontSizeChanges { &m_notifications, &ZLSettingsNotifications::ZLFontSizeSettingDidChange };
    QSignalSpy m_shortcutChanges { &m_notifications, &ZLSettingsNotifications::ZLShortcutsDidChange };
    QSignalSpy m_hotkeyChanges { &m_notifications, &ZLSettingsNotifications::ZLGlobalHotkeysDidChange };
    QSignalSpy m_absoluteTimeChanges { &m_notifications, &ZLSettingsNotifications::ZLShowAbsoluteTimeSettingDidChange };
};

TEST_F(ZLSettingsManagerTest, AFirstLaunchHasTheDefaults)
{
    EXPECT_TRUE(Manager::createNewChapterOnStart());
    EXPECT_FALSE(Manager::createNewChapterAfterPause());
    EXPECT_FALSE(Manager::playSoundBeforeRecording());
    EXPECT_FALSE(Manager::globalHotkeys());
    EXPECT_FALSE(Manager::showAbsoluteTime());
    EXPECT_FALSE(Manager::showQuickEdit());
    EXPECT_EQ(Manager::fontSize(), 10.0F);
    EXPECT_TRUE(Manager::audioOutputDevice().isNull());
    for (const QString& key : Manager::allKeyComboKeys())
        EXPECT_EQ(Manager::keyComboForKey(key), std::nullopt) << qPrintable(key);
}

TEST_F(ZLSettingsManagerTest, DefaultsAreNeverWritten)
{
    EXPECT_TRUE(Manager::createNewChapterOnStart());
    Manager::setShowQuickEdit(true);
    EXPECT_TRUE(fileText().contains(u"ZLShowQuickEditSetting=true"_s));
    EXPECT_FALSE(fileText().contains(u"ZLNewChapterOnStartSetting"_s));
    EXPECT_FALSE(fileText().contains(u"ZLFontSizeSetting"_s));
}

TEST_F(ZLSettingsManagerTest, AWrittenFalseIsNotTheDefault)
{
    Manager::setCreateNewChapterOnStart(false);
    m_settings.relaunch();
    EXPECT_FALSE(Manager::createNewChapterOnStart());
    Manager::setFontSize(0.0F);
    m_settings.relaunch();
    EXPECT_EQ(Manager::fontSize(), 0.0F);
}

TEST_F(ZLSettingsManagerTest, EverySettingOutlivesTheProgram)
{
    Manager::setCreateNewChapterAfterPause(true);
    Manager::setPlaySoundBeforeRecording(true);
    Manager::setGlobalHotkeys(true);
    Manager::setShowAbsoluteTime(true);
    Manager::setShowQuickEdit(true);
    Manager::setFontSize(13.3F);
    Manager::setAudioOutputDevice(u"alsa_output.usb, \"left\" @card=1;äöü"_s);
    m_settings.relaunch();
    EXPECT_TRUE(Manager::createNewChapterAfterPause());
    EXPECT_TRUE(Manager::playSoundBeforeRecording());
    EXPECT_TRUE(Manager::globalHotkeys());
    EXPECT_TRUE(Manager::showAbsoluteTime());
    EXPECT_TRUE(Manager::showQuickEdit());
    EXPECT_EQ(Manager::fontSize(), 13.3F);
    EXPECT_EQ(Manager::audioOutputDevice(), u"alsa_output.usb, \"left\" @card=1;äöü"_s);
}

TEST_F(ZLSettingsManagerTest, EveryChangeIsWrittenAtOnce)
{
    Manager::setPlaySoundBeforeRecording(true);
    EXPECT_TRUE(fileText().contains(u"ZLPlaySoundBeforeRecordingSetting=true"_s));
    Manager::setPlaySoundBeforeRecording(false);
    EXPECT_TRUE(fileText().contains(u"ZLPlaySoundBeforeRecordingSetting=false"_s));
}

TEST_F(ZLSettingsManagerTest, NoOutputDeviceRemovesTheStoredOne)
{
    Manager::setAudioOutputDevice(u"left"_s);
    EXPECT_EQ(Manager::audioOutputDevice(), u"left"_s);
    Manager::setAudioOutputDevice(QString());
    m_settings.relaunch();
    EXPECT_TRUE(Manager::audioOutputDevice().isNull());
    EXPECT_FALSE(fileText().contains(u"ZLAudioOutputDeviceSetting"_s));
}

TEST_F(ZLSettingsManagerTest, AnEmptyOutputDeviceIsStoredAndNotAbsent)
{
    Manager::setAudioOutputDevice(u""_s);
    m_settings.relaunch();
    EXPECT_FALSE(Manager::audioOutputDevice().isNull());
    EXPECT_TRUE(Manager::audioOutputDevice().isEmpty());
}

TEST_F(ZLSettingsManagerTest, AnObserverReadsTheNewValueBeforeTheSetterReturns)
{
    QList<float> seen;
    const QObject context;
    QObject::connect(&m_notifications, &ZLSettingsNotifications::ZLFontSizeSettingDidChange, &context,
        [&seen] { seen.append(Manager::fontSize()); });
    Manager::setFontSize(13.0F);
    EXPECT_EQ(seen, QList<float>({ 13.0F }));
}

TEST_F(ZLSettingsManagerTest, AnUnchangedValueIsAnnouncedAsWell)
{
    Manager::setFontSize(10.0F);
    Manager::setFontSize(10.0F);
    EXPECT_EQ(m_fontSizeChanges.size(), 2);
    Manager::setGlobalHotkeys(false);
    EXPECT_EQ(m_hotkeyChanges.size(), 1);
    Manager::setShowAbsoluteTime(false);
    EXPECT_EQ(m_absoluteTimeChanges.size(), 1);
    EXPECT_EQ(allNotifications(), 4);
}

TEST_F(ZLSettingsManagerTest, TheOtherSettersAnnounceNothing)
{
    Manager::setCreateNewChapterOnStart(false);
    Manager::setCreateNewChapterAfterPause(true);
    Manager::setPlaySoundBeforeRecording(true);
    Manager::setAudioOutputDevice(u"left"_s);
    Manager::setShowQuickEdit(true);
    EXPECT_EQ(allNotifications(), 0);
}

TEST_F(ZLSettingsManagerTest, AShortcutIsReturnedUntouched)
{
    const QVariantMap shortcut { { u"keyCode"_s, 46 }, { u"modifierFlags"_s, 0x180000U }, { u"characters"_s, u"µ"_s },
        { u"nested"_s, QVariantMap { { u"a"_s, 1 } } } };
    Manager::setKeyCombo(shortcut, ZLKeyComboKey::NewChapter);
    m_settings.relaunch();
    EXPECT_EQ(Manager::keyComboForKey(ZLKeyComboKey::NewChapter), shortcut);
    EXPECT_EQ(Manager::keyComboForKey(ZLKeyComboKey::NewChapter)->value(u"modifierFlags"_s).typeId(), QMetaType::UInt);
    EXPECT_EQ(m_shortcutChanges.size(), 1);
}

TEST_F(ZLSettingsManagerTest, AnEmptyShortcutIsStoredAndNotAbsent)
{
    Manager::setKeyCombo({}, ZLKeyComboKey::NewChapter);
    m_settings.relaunch();
    EXPECT_EQ(Manager::keyComboForKey(ZLKeyComboKey::NewChapter), QVariantMap());
}

TEST_F(ZLSettingsManagerTest, AnyKeyTakesAShortcutAndIsAnnounced)
{
    const QVariantMap shortcut { { u"keyCode"_s, 1 } };
    Manager::setKeyCombo(shortcut, u"Some other key/with a slash"_s);
    EXPECT_EQ(Manager::keyComboForKey(u"Some other key/with a slash"_s), shortcut);
    EXPECT_EQ(m_shortcutChanges.size(), 1);
}

TEST_F(ZLSettingsManagerTest, TheEmptyKeyIsAKeyLikeAnyOther)
{
    const QVariantMap shortcut { { u"keyCode"_s, 1 } };
    Manager::setKeyCombo(shortcut, u""_s);
    m_settings.relaunch();
    EXPECT_EQ(Manager::keyComboForKey(u""_s), shortcut);
    Manager::removeKeyComboForKey(u""_s);
    EXPECT_EQ(Manager::keyComboForKey(u""_s), std::nullopt);
}

TEST_F(ZLSettingsManagerTest, WindowsRememberTextsUnderKeysOfTheirOwn)
{
    EXPECT_TRUE(Manager::textForKey(u"MASPreferences Frame Top Left"_s).isNull());
    Manager::setText(u"{80, 640}"_s, u"MASPreferences Frame Top Left"_s);
    m_settings.relaunch();
    EXPECT_EQ(Manager::textForKey(u"MASPreferences Frame Top Left"_s), u"{80, 640}"_s);
}

TEST_F(ZLSettingsManagerTest, RemovingAShortcutIsAnnouncedEvenWhenThereIsNone)
{
    Manager::removeKeyComboForKey(ZLKeyComboKey::NewChapter);
    EXPECT_EQ(m_shortcutChanges.size(), 1);
    Manager::setKeyCombo({ { u"keyCode"_s, 1 } }, ZLKeyComboKey::NewChapter);
    Manager::removeKeyComboForKey(ZLKeyComboKey::NewChapter);
    EXPECT_EQ(Manager::keyComboForKey(ZLKeyComboKey::NewChapter), std::nullopt);
    EXPECT_EQ(m_shortcutChanges.size(), 3);
}

TEST_F(ZLSettingsManagerTest, TheSixShortcutKeysComeInTheOrderOfTheMenuTags)
{
    EXPECT_EQ(Manager::allKeyComboKeys(),
        QStringList({ u"ZLToggleRecordingKeyCombo"_s, u"ZLNewChapterKeyCombo"_s, u"ZLRemoveSelectedChapterKeyCombo"_s,
            u"ZLRemoveLastChapterKeyCombo"_s, u"ZLSelectLastChapterKeyCombo"_s, u"ZLSelectNextChapterKeyCombo"_s }));
}

TEST_F(ZLSettingsManagerTest, ValuesThatSomebodyTypedIntoTheFileAreRead)
{
    QFile file(m_settings.path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[General]\nZLFontSizeSetting=14.5\nZLShowQuickEditSetting=1\nZLNewChapterKeyCombo=nonsense\n");
    file.close();
    m_settings.relaunch();
    EXPECT_EQ(Manager::fontSize(), 14.5F);
    EXPECT_TRUE(Manager::showQuickEdit());
    EXPECT_EQ(Manager::keyComboForKey(ZLKeyComboKey::NewChapter), std::nullopt) << "not the bare key of code 0";
}

TEST_F(ZLSettingsManagerTest, TruthValuesThatSomebodyTypedAreRead)
{
    const auto readAs = [this](const char* text) {
        QFile file(m_settings.path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(
            QByteArray("[General]\nZLNewChapterOnStartSetting=") + text + "\nZLShowQuickEditSetting=" + text + '\n');
        file.close();
        m_settings.relaunch();
        return std::pair(Manager::createNewChapterOnStart(), Manager::showQuickEdit());
    };
    for (const char* text : { "no", "off", "false", "0", "No", "OFF", "False", " no " })
        EXPECT_EQ(readAs(text), std::pair(false, false)) << text;
    for (const char* text : { "yes", "on", "true", "1", "Yes", "ON", "True" })
        EXPECT_EQ(readAs(text), std::pair(true, true)) << text;
    for (const char* text : { "", "perhaps", "2", "-1", "nonsense", "yes, no", "@Invalid()", "@Variant(\\0)" })
        EXPECT_EQ(readAs(text), std::pair(true, false)) << text << " is none, so the default holds";
}
