#include "settings/ui/ZLGeneralPrefsViewController.h"

#include "settings/ZLSettingsManager.h"
#include "support/ZLTemporarySettings.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Manager = ZLSettingsManager;

class ZLGeneralPrefsViewControllerTest : public testing::Test {
protected:
    template <typename Control>
    [[nodiscard]] Control& control(const QString& name)
    {
        return *m_pane.findChild<Control*>(name);
    }
    [[nodiscard]] QCheckBox& box(const QString& name) { return control<QCheckBox>(name); }
    [[nodiscard]] QComboBox& selector() { return control<QComboBox>(u"outputSelector"_s); }
    [[nodiscard]] QDoubleSpinBox& fontsizeField() { return control<QDoubleSpinBox>(u"fontsizeField"_s); }
    /// As the user does from the open list.
    void choose(int index)
    {
        selector().setCurrentIndex(index);
        Q_EMIT selector().activated(index);
    }
    [[nodiscard]] QStringList shownOutputs()
    {
        QStringList names;
        for (int i = 0; i < selector().count(); ++i)
            names.append(selector().itemText(i));
        return names;
    }

    ZLTemporarySettings m_settings;
    std::optional<QList<ZLOutputDevice>> m_devices { QList<ZLOutputDevice> {
        { u"left"_s, u"Left Card"_s }, { u"right"_s, u"Right Card"_s }, { u"usb"_s, u"USB Headset"_s } } };
    ZLGeneralPrefsViewController m_pane { [this] { return m_devices; } };
};

TEST_F(ZLGeneralPrefsViewControllerTest, SaysWhatItIs)
{
    EXPECT_EQ(m_pane.identifier(), u"GeneralPreferences"_s);
    EXPECT_EQ(m_pane.toolbarItemLabel(), u"General"_s);
    EXPECT_EQ(m_pane.toolbarItemImage().name(), u"PreferencesGeneral"_s);
    EXPECT_FALSE(m_pane.hasResizableWidth());
    EXPECT_FALSE(m_pane.hasResizableHeight());
}

TEST_F(ZLGeneralPrefsViewControllerTest, ShowsTheSettingsEachTimeItAppears)
{
    m_pane.viewWillAppear();
    EXPECT_TRUE(box(u"automaticChapterButton"_s).isChecked());
    EXPECT_FALSE(box(u"automaticPauseButton"_s).isChecked());
    EXPECT_FALSE(box(u"playSoundButton"_s).isChecked());
    EXPECT_FALSE(box(u"quickEditButton"_s).isChecked());
    EXPECT_EQ(fontsizeField().value(), 10.0);

    Manager::setCreateNewChapterOnStart(false);
    Manager::setCreateNewChapterAfterPause(true);
    Manager::setPlaySoundBeforeRecording(true);
    Manager::setShowQuickEdit(true);
    Manager::setFontSize(13.5F);
    m_pane.viewWillAppear();
    EXPECT_FALSE(box(u"automaticChapterButton"_s).isChecked());
    EXPECT_TRUE(box(u"automaticPauseButton"_s).isChecked());
    EXPECT_TRUE(box(u"playSoundButton"_s).isChecked());
    EXPECT_TRUE(box(u"quickEditButton"_s).isChecked());
    EXPECT_EQ(fontsizeField().value(), 13.5);
}

TEST_F(ZLGeneralPrefsViewControllerTest, ShowingSettingsStoresNothing)
{
    const QSignalSpy fontChanges(&Manager::notifications(), &ZLSettingsNotifications::ZLFontSizeSettingDidChange);
    Manager::registerDefaults(18.0F);
    m_pane.viewWillAppear();
    EXPECT_EQ(fontsizeField().value(), 18.0);
    EXPECT_EQ(fontChanges.size(), 0);
    Manager::registerDefaults(11.0F);
    EXPECT_EQ(Manager::fontSize(), 11.0F);
}

TEST_F(ZLGeneralPrefsViewControllerTest, AClickTurnsTheSettingOverAtOnce)
{
    m_pane.viewWillAppear();
    box(u"automaticChapterButton"_s).click();
    EXPECT_FALSE(Manager::createNewChapterOnStart());
    box(u"automaticPauseButton"_s).click();
    EXPECT_TRUE(Manager::createNewChapterAfterPause());
    box(u"playSoundButton"_s).click();
    EXPECT_TRUE(Manager::playSoundBeforeRecording());
    box(u"quickEditButton"_s).click();
    EXPECT_TRUE(Manager::showQuickEdit());
    box(u"quickEditButton"_s).click();
    EXPECT_FALSE(Manager::showQuickEdit());
}

TEST_F(ZLGeneralPrefsViewControllerTest, AClickTurnsOverWhatIsStoredAndNotWhatIsShown)
{
    m_pane.viewWillAppear();
    Manager::setPlaySoundBeforeRecording(true);
    box(u"playSoundButton"_s).click();
    EXPECT_TRUE(box(u"playSoundButton"_s).isChecked());
    EXPECT_FALSE(Manager::playSoundBeforeRecording());
}

TEST_F(ZLGeneralPrefsViewControllerTest, AScreenReaderTurnsTheSettingOverAsWell)
{
    m_pane.viewWillAppear();
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&box(u"playSoundButton"_s));
    reader->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(Manager::playSoundBeforeRecording());
    m_pane.viewWillAppear();
    EXPECT_TRUE(Manager::playSoundBeforeRecording());
}

TEST_F(ZLGeneralPrefsViewControllerTest, AnotherFontSizeIsStoredAndAnnounced)
{
    m_pane.viewWillAppear();
    const QSignalSpy fontChanges(&Manager::notifications(), &ZLSettingsNotifications::ZLFontSizeSettingDidChange);
    fontsizeField().stepUp();
    EXPECT_EQ(Manager::fontSize(), 11.0F);
    EXPECT_EQ(fontChanges.size(), 1);
}

TEST_F(ZLGeneralPrefsViewControllerTest, ATypedFontSizeCountsWhenThePaneIsLeft)
{
    m_pane.viewWillAppear();
    m_pane.show();
    auto* edit = fontsizeField().findChild<QLineEdit*>();
    edit->selectAll();
    QTest::keyClicks(edit, u"24"_s);
    EXPECT_EQ(Manager::fontSize(), 10.0F);
    EXPECT_TRUE(m_pane.commitEditing());
    EXPECT_EQ(Manager::fontSize(), 24.0F);
}

TEST_F(ZLGeneralPrefsViewControllerTest, TheFontSizeShowsAFractionOnlyWhenItHasOne)
{
    m_pane.viewWillAppear();
    EXPECT_EQ(fontsizeField().text(), u"10 pt"_s);
    Manager::setFontSize(10.5F);
    m_pane.viewWillAppear();
    EXPECT_EQ(fontsizeField().text(), u"10.5 pt"_s);
}

TEST_F(ZLGeneralPrefsViewControllerTest, WithoutAStoredOutputTheFirstIsSelected)
{
    m_pane.viewWillAppear();
    EXPECT_EQ(shownOutputs(), (QStringList { u"Left Card"_s, u"Right Card"_s, u"USB Headset"_s }));
    EXPECT_EQ(selector().currentIndex(), 0);
    EXPECT_TRUE(Manager::audioOutputDevice().isNull());
}

TEST_F(ZLGeneralPrefsViewControllerTest, TheStoredOutputIsSelected)
{
    Manager::setAudioOutputDevice(u"right"_s);
    m_pane.viewWillAppear();
    EXPECT_EQ(selector().currentText(), u"Right Card"_s);
    Manager::setAudioOutputDevice(u"unplugged"_s);
    m_pane.viewWillAppear();
    EXPECT_EQ(selector().currentIndex(), 0);
    EXPECT_EQ(Manager::audioOutputDevice(), u"unplugged"_s);
}

TEST_F(ZLGeneralPrefsViewControllerTest, OfTwoOutputsWithTheStoredIdentifierTheLastIsSelected)
{
    m_devices->append({ u"left"_s, u"Left Card again"_s });
    Manager::setAudioOutputDevice(u"left"_s);
    m_pane.viewWillAppear();
    EXPECT_EQ(selector().currentText(), u"Left Card again"_s);
}

TEST_F(ZLGeneralPrefsViewControllerTest, AChosenOutputIsStored)
{
    m_pane.viewWillAppear();
    choose(2);
    EXPECT_EQ(Manager::audioOutputDevice(), u"usb"_s);
    choose(0);
    EXPECT_EQ(Manager::audioOutputDevice(), u"left"_s);
}

TEST_F(ZLGeneralPrefsViewControllerTest, TheListCountsAsItIsWhenOneIsChosen)
{
    m_pane.viewWillAppear();
    m_devices->removeFirst();
    choose(1);
    EXPECT_EQ(Manager::audioOutputDevice(), u"usb"_s);
}

TEST_F(ZLGeneralPrefsViewControllerTest, AnOutputThatHasGoneIsNotStored)
{
    m_pane.viewWillAppear();
    m_devices->resize(1);
    choose(2);
    EXPECT_TRUE(Manager::audioOutputDevice().isNull());
    EXPECT_EQ(shownOutputs(), QStringList { u"Left Card"_s });
}

TEST_F(ZLGeneralPrefsViewControllerTest, AMissingSoundServerIsSaid)
{
    m_devices.reset();
    m_pane.viewWillAppear();
    EXPECT_EQ(shownOutputs(), QStringList { u"No sound server found"_s });
    EXPECT_FALSE(selector().isEnabled());
    choose(0);
    EXPECT_TRUE(Manager::audioOutputDevice().isNull());

    m_devices = QList<ZLOutputDevice>();
    m_pane.fillOutputSelector();
    EXPECT_EQ(shownOutputs(), QStringList { u"No sound output found"_s });

    m_devices->append({ u"left"_s, u"Left Card"_s });
    m_pane.fillOutputSelector();
    EXPECT_TRUE(selector().isEnabled());
}

TEST_F(ZLGeneralPrefsViewControllerTest, EveryControlHasANameForAScreenReader)
{
    for (const QString& name :
        { u"automaticChapterButton"_s, u"automaticPauseButton"_s, u"quickEditButton"_s, u"playSoundButton"_s })
        EXPECT_FALSE(box(name).text().isEmpty());
    EXPECT_EQ(selector().accessibleName(), u"Sound output"_s);
    EXPECT_EQ(fontsizeField().accessibleName(), u"Font size of the chapter table"_s);
}

TEST_F(ZLGeneralPrefsViewControllerTest, AFontSizeWithAFractionIsShownWhole)
{
    ZLSettingsManager::setFontSize(28.88F);
    m_pane.viewWillAppear();
    m_pane.show();
    const auto* edit = fontsizeField().findChild<QLineEdit*>();
    ASSERT_EQ(edit->text(), u"28.88 pt"_s);
    EXPECT_GE(edit->width(), edit->fontMetrics().horizontalAdvance(edit->text()));
}

TEST_F(ZLGeneralPrefsViewControllerTest, WhatComesOfTheQuestionForTitlesStandsBelowIt)
{
    m_pane.setQuickEditNotice(u"There is no notification server: a small panel asks instead."_s);
    EXPECT_EQ(control<QLabel>(u"quickEditNotice"_s).text(),
        u"There is no notification server: a small panel asks instead."_s);
    EXPECT_EQ(box(u"quickEditButton"_s).accessibleDescription(), control<QLabel>(u"quickEditNotice"_s).text());
}
