#include "app/ZLOutsideCommands.h"

#include "app/ZLApplication.h"
#include "remote/ZLRecordingHotKeyCenter.h"
#include "settings/ZLSettingsManager.h"
#include "support/ZLChapterBuilders.h"
#include "support/ZLFakeHostClock.h"
#include "support/ZLTemporarySettings.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int codeOfM = 46;
constexpr quint32 storedControl = 0x40000;
constexpr quint32 storedOption = 0x80000;

}

/// The program with two open documents, of which the second records.
class ZLOutsideCommandsTest : public testing::Test {
protected:
    ZLOutsideCommandsTest()
    {
        ZLSettingsManager::setCreateNewChapterOnStart(false);
        ZLSettingsManager::setGlobalHotkeys(true);
        m_application = std::make_unique<ZLApplication>(
            setup(), ZLApplication::StandardFontSize, ZLRemoteSetup { .hotKeyCenter = &m_center });
        m_first = controller().newDocument();
        m_first->setDisplayName(u"Old"_s);
        m_second = controller().newDocument();
        m_second->setDisplayName(u"Show"_s);
        m_second->recordButtonPressed();
    }

    [[nodiscard]] ZLDocumentControllerSetup setup()
    {
        ZLDocumentControllerSetup result;
        result.environment.hostClock = m_clock;
        result.environment.isOptionKeyHeld = [this] { return m_isOptionKeyHeld; };
        result.machinery.executor = [](const std::function<void()>& task) { task(); };
        result.stateFolder = m_folder.path();
        result.sessionExecutor = [](const std::function<void()>& task) { task(); };
        return result;
    }

    [[nodiscard]] ZLDocumentController& controller() { return m_application->documentController(); }
    [[nodiscard]] ZLOutsideCommands& commands() { return m_application->outsideCommands(); }
    /// What `zelta send` prints.
    QString send(const QString& word)
    {
        return m_application->oscController().performMessage(
            ZLOSCMessage(ZLRemoteActions::withCommandWord(word)->oscAddress, { 1.0F }), u"zelta send"_s);
    }
    void record(const QString& settingsKey, quint32 flags)
    {
        ZLSettingsManager::setKeyCombo({ { u"keyCode"_s, codeOfM }, { u"modifierFlags"_s, flags } }, settingsKey);
    }
    void pressKeys(quint32 flags) { m_center.press({ codeOfM, ZLKeyCombo::modifiersFromStoredFlags(flags) }); }
    static void addTemplates(ZLChapterDocument* document)
    {
        for (const QString& title : { u"One"_s, u"Two"_s })
            document->templateViewController().chapterManager().addChapter(ZLTestChapters::titled(title));
    }
    [[nodiscard]] static QStringList titles(ZLChapterDocument* document)
    {
        return ZLTestChapters::titles(document->chapterManager().allChapters());
    }

    ZLTemporarySettings m_settings;
    std::shared_ptr<ZLFakeHostClock> m_clock = std::make_shared<ZLFakeHostClock>();
    QTemporaryDir m_folder;
    ZLRecordingHotKeyCenter m_center;
    bool m_isOptionKeyHeld = false;
    std::unique_ptr<ZLApplication> m_application;
    ZLChapterDocument* m_first = nullptr;
    ZLChapterDocument* m_second = nullptr;
};

TEST_F(ZLOutsideCommandsTest, TheyReachTheCurrentOrElseTheFirstDocumentUnlessTheyArePinned)
{
    EXPECT_EQ(commands().target(), m_first);
    controller().setCurrentDocument(m_second);
    EXPECT_EQ(commands().target(), m_second);
    commands().pinTo(m_first);
    EXPECT_EQ(commands().target(), m_first);
    EXPECT_EQ(controller().currentOrLastDocument(), m_second) << "menus, keys in front and exports follow the window";
    commands().pinTo(nullptr);
    EXPECT_EQ(commands().target(), m_second);
}

TEST_F(ZLOutsideCommandsTest, APinHoldsForAllThreeWaysUntilTheDocumentIsClosed)
{
    record(ZLKeyComboKey::NewChapter, storedControl);
    controller().setCurrentDocument(m_first);
    commands().pinTo(m_second);
    EXPECT_EQ(send(u"newChapter"_s), u"added a chapter"_s);
    m_application->oscController().receivedOSCMessage(
        { ZLOSCMessage(u"/zl/newChapter"_s, { 1.0F }), { QHostAddress::LocalHost, 9 }, 0 });
    pressKeys(storedControl);
    EXPECT_EQ(m_second->chapterManager().count(), 3);
    m_second->recordButtonPressed();
    ASSERT_TRUE(controller().closeDocument(m_second, ZLClosing::Discard));
    EXPECT_EQ(commands().pinnedDocument(), nullptr);
    EXPECT_EQ(commands().target(), m_first);
}

TEST_F(ZLOutsideCommandsTest, WhatCouldDoNothingNamesItsDocumentWhileAnotherOneRecords)
{
    QSignalSpy nothing(&commands(), &ZLOutsideCommands::didNothing);
    EXPECT_EQ(send(u"newChapter"_s), u"did nothing in “Old”: the clock is not running; “Show” is recording"_s);
    ASSERT_EQ(nothing.size(), 1);
    EXPECT_EQ(nothing.first().at(0).value<ZLChapterDocument*>(), m_first);
    EXPECT_EQ(commands().recordingBesideTarget(), QList<ZLChapterDocument*> { m_second });
    commands().pinTo(m_second);
    EXPECT_EQ(send(u"selectNextChapter"_s), u"did nothing: there is no chapter after"_s);
    EXPECT_TRUE(commands().recordingBesideTarget().isEmpty());
}

TEST_F(ZLOutsideCommandsTest, AChapterThatComesIsToldWithItsWay)
{
    QStringList ways;
    QObject::connect(&commands(), &ZLOutsideCommands::didAddChapter, &commands(),
        [&](ZLChapterDocument* document, const ZLRemoteSource& source) {
            ways.append(document->displayName() + u' ' + source.name());
        });
    record(ZLKeyComboKey::NewChapter, storedControl);
    controller().setCurrentDocument(m_second);
    send(u"newChapter"_s);
    m_application->oscController().receivedOSCMessage(
        { ZLOSCMessage(u"/zl/newChapter"_s, { 1.0F }), { QHostAddress::LocalHost, 9 }, 0 });
    pressKeys(storedControl);
    send(u"selectPreviousChapter"_s);
    EXPECT_EQ(ways, (QStringList { u"Show zelta send"_s, u"Show OSC"_s, u"Show a global shortcut"_s }));
}

TEST_F(ZLOutsideCommandsTest, AShortcutThatContainsAltActsAsWithAltHeldAndNoOther)
{
    controller().setCurrentDocument(m_second);
    addTemplates(m_second);
    record(ZLKeyComboKey::NewChapter, storedControl | storedOption);
    pressKeys(storedControl | storedOption);
    EXPECT_EQ(titles(m_second), QStringList { u""_s });
    EXPECT_EQ(m_second->addButtonFace(), ZLAddButtonFace::Next) << "only while it is carried out";
    record(ZLKeyComboKey::NewChapter, storedControl);
    m_isOptionKeyHeld = true;
    pressKeys(storedControl);
    EXPECT_EQ(titles(m_second), (QStringList { u""_s, u"One"_s })) << "whatever else seems to be held";
    EXPECT_EQ(send(u"newChapter"_s), u"added a chapter"_s);
    EXPECT_EQ(titles(m_second), (QStringList { u""_s, u"One"_s, u""_s })) << "no keys: the keyboard tells";
}

TEST_F(ZLOutsideCommandsTest, AShortcutForTheStartThatContainsAltBeginsWithABlankChapter)
{
    ZLSettingsManager::setCreateNewChapterOnStart(true);
    addTemplates(m_first);
    record(ZLKeyComboKey::ToggleRecording, storedControl | storedOption);
    pressKeys(storedControl | storedOption);
    EXPECT_TRUE(m_first->isRecording());
    EXPECT_EQ(titles(m_first), QStringList { u""_s });
    EXPECT_EQ(m_first->templateViewController().chapterManager().count(), 2);
}

TEST_F(ZLOutsideCommandsTest, AllThreeWaysCarryTheTimeOfThePressToTheClock)
{
    record(ZLKeyComboKey::NewChapter, storedControl);
    commands().pinTo(m_second);
    const double start = m_clock->now();
    m_clock->advance(60.0);
    m_application->oscController().receivedOSCMessage(
        { ZLOSCMessage(u"/zl/newChapter"_s, { 1.0F }), { QHostAddress::LocalHost, 9 }, 0, ZLPressStamp(start + 10.0) });
    m_center.pressTime = start + 20.0;
    pressKeys(storedControl);
    m_application->oscController().performMessage(
        ZLOSCMessage(u"/zl/newChapter"_s, { 1.0F }), u"zelta send"_s, ZLPressStamp(start + 30.0));
    m_second->addChapterButtonPressed();
    EXPECT_EQ(
        ZLTestChapters::times(m_second->chapterManager().allChapters()), (QList<double> { 10.0, 20.0, 30.0, 60.0 }))
        << "and what comes after is not of that time any more";
}
