#include "app/ZLApplication.h"

#include "commands/ZLRemoteActions.h"
#include "export/ZLExporter.h"
#include "platform/ZLBoundedFile.h"
#include "remote/ZLRecordingHotKeyCenter.h"
#include "settings/ZLSettingsManager.h"
#include "support/ZLChapterBuilders.h"
#include "support/ZLFakeHostClock.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLApplicationTest : public testing::Test {
protected:
    /// Writes down what is asked of the system.
    struct RecordingActivity final : ZLProcessActivity {
        explicit RecordingActivity(QStringList& log)
            : calls(log)
        {
        }
        void begin(const QString& reason) override { calls.append(u"begin "_s + reason); }
        void end() override { calls.append(u"end"_s); }
        void holdBackLogOut(const QString& reason) override { calls.append(u"hold back "_s + reason); }
        void allowLogOut() override { calls.append(u"allow"_s); }
        QStringList& calls;
    };

    ZLApplicationTest() { ZLSettingsManager::useFile(m_folder.filePath(u"zelta.conf"_s)); }

    [[nodiscard]] ZLDocumentControllerSetup setup()
    {
        ZLDocumentControllerSetup result;
        result.environment.hostClock = std::make_shared<ZLFakeHostClock>();
        result.machinery.executor = [](const std::function<void()>& task) { task(); };
        result.stateFolder = m_folder.path();
        result.sessionExecutor = [](const std::function<void()>& task) { task(); };
        return result;
    }

    QTemporaryDir m_folder;
};

TEST_F(ZLApplicationTest, TheDefaultsOfTheSettingsAreThere)
{
    const ZLApplication application(setup(), 13.5F);
    EXPECT_EQ(ZLSettingsManager::fontSize(), 13.5F);
}

TEST_F(ZLApplicationTest, TheExportFormatsAreThere)
{
    const ZLApplication application(setup());
    QStringList names;
    for (const ZLExporterClass& exporter : ZLExporter::allExporters())
        names.append(exporter.format().name);
    EXPECT_TRUE(names.contains(u"Podlove Simple Chapters"_s));
}

TEST_F(ZLApplicationTest, ItDoesNotEndWhileAnyClockRuns)
{
    ZLApplication application(setup());
    EXPECT_TRUE(application.applicationShouldTerminate());
    application.documentController().newDocument();
    ZLChapterDocument* recording = application.documentController().newDocument();
    recording->recordButtonPressed();
    EXPECT_FALSE(application.applicationShouldTerminate());
    recording->recordButtonPressed();
    EXPECT_TRUE(application.applicationShouldTerminate());
}

TEST_F(ZLApplicationTest, TheSystemStaysAwakeFromStartToEndAndARunningClockHoldsBackALogOut)
{
    QStringList calls;
    {
        ZLApplication application(
            setup(), ZLApplication::StandardFontSize, { .activity = std::make_unique<RecordingActivity>(calls) });
        EXPECT_EQ(calls, (QStringList { u"begin receiving OSC messages"_s }));
        calls.clear();
        ZLChapterDocument* first = application.documentController().newDocument();
        ZLChapterDocument* second = application.documentController().newDocument();
        first->recordButtonPressed();
        EXPECT_EQ(calls.last(), u"hold back A recording is running."_s);
        second->recordButtonPressed();
        first->recordButtonPressed();
        EXPECT_EQ(calls.last(), u"hold back A recording is running."_s) << "the other clock runs";
        second->recordButtonPressed();
        EXPECT_EQ(calls.last(), u"allow"_s);
        second->undoManager().undo();
        EXPECT_EQ(calls.last(), u"hold back A recording is running."_s) << "its stop was undone";
    }
    EXPECT_EQ(calls.last(), u"end"_s);
}

TEST_F(ZLApplicationTest, EverythingIsSavedWhenTheSystemShutsDown)
{
    QStringList calls;
    auto activity = std::make_unique<RecordingActivity>(calls);
    RecordingActivity* system = activity.get();
    ZLApplication application(setup(), ZLApplication::StandardFontSize, { .activity = std::move(activity) });
    const QString path = m_folder.filePath(u"show.zelta"_s);
    const auto document = application.documentController().openDocument(path, ZLMissingFile::Create);
    ASSERT_TRUE(document);
    document.value()->recordButtonPressed();
    const QByteArray before = ZLBoundedFile::read(path, ZLFileBound::Document).value();
    document.value()->addChapterButtonPressed();
    Q_EMIT system->systemWillShutDown();
    EXPECT_NE(ZLBoundedFile::read(path, ZLFileBound::Document).value(), before);
    EXPECT_EQ(application.documentController().saverOf(document.value())->state(), ZLSavingState::Saved);
}

TEST_F(ZLApplicationTest, ARemoteActionReachesTheCurrentDocumentOrElseTheFirst)
{
    ZLApplication application(setup());
    ZLRemoteController& controller = application.oscController();
    application.remoteControllerReceivedAction(controller, ZLControllerToggleRecordingAction);
    ZLChapterDocument* first = application.documentController().newDocument();
    ZLChapterDocument* second = application.documentController().newDocument();
    application.documentController().setCurrentDocument(nullptr);
    application.remoteControllerReceivedAction(controller, ZLControllerToggleRecordingAction);
    EXPECT_TRUE(first->isRecording());
    EXPECT_FALSE(second->isRecording());
    application.documentController().setCurrentDocument(second);
    application.remoteControllerReceivedAction(controller, ZLControllerToggleRecordingAction);
    EXPECT_TRUE(second->isRecording());
}

TEST_F(ZLApplicationTest, ADocumentThatIsClosedFollowsNoRecorderAnyMore)
{
    ZLApplication application(setup(), ZLApplication::StandardFontSize, { .oscPort = 0 });
    ZLDocumentController& controller = application.documentController();
    ZLChapterDocument* document = controller.newDocument();
    controller.newDocument();
    EXPECT_FALSE(application.following().follow(*document, u"tape"_s));
    EXPECT_TRUE(application.following().follow(*document, u"osc"_s));
    EXPECT_EQ(application.following().document(), document);
    EXPECT_TRUE(controller.closeDocument(document, ZLClosing::Discard));
    EXPECT_EQ(application.following().document(), nullptr);
    EXPECT_EQ(application.following().state(), ZLFollowingState::Off);
}

TEST_F(ZLApplicationTest, SelectingThePreviousChapterGoesUpAndNeverToTheLastRow)
{
    ZLRecordingHotKeyCenter center;
    ZLSettingsManager::setGlobalHotkeys(true);
    ZLSettingsManager::setKeyCombo(
        { { u"keyCode"_s, 9 }, { u"modifierFlags"_s, 0x100000U } }, u"ZLSelectLastChapterKeyCombo"_s);
    ZLApplication application(setup(), ZLApplication::StandardFontSize, { .hotKeyCenter = &center });
    ZLChapterDocument* document = application.documentController().newDocument();
    for (const double seconds : { 1.0, 2.0, 3.0 })
        document->addChapter(ZLTestChapters::chapterAt(seconds));
    ASSERT_EQ(document->selectedRow(), 2);
    const ZLOSCMessage message(u"/zl/selectPreviousChapter"_s, { 1.0F });
    EXPECT_EQ(application.oscController().performMessage(message, u"a surface"_s), u"selected chapter 2"_s);
    EXPECT_EQ(document->selectedRow(), 1);
    center.press({ 9, ZLHotKeyModifier::command });
    EXPECT_EQ(document->selectedRow(), 0);
    application.oscController().performMessage(message, u"a surface"_s);
    center.press({ 9, ZLHotKeyModifier::command });
    EXPECT_EQ(document->selectedRow(), 0) << "there is none before the first";
}

TEST_F(ZLApplicationTest, OnlyThePublishedConstantsAreRouted)
{
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        EXPECT_TRUE(ZLRemoteActions::operationForAction(action.identifier)) << qPrintable(action.identifier);
    EXPECT_EQ(ZLRemoteActions::operationForAction(QString::fromLatin1("ZLControllerNewChapterAction")), nullptr);
    EXPECT_EQ(ZLRemoteActions::operationForAction(u""_s), nullptr);
    EXPECT_EQ(ZLRemoteActions::operationForAction(ZLControllerSelectLastAction), &ZLChapterDocument::selectLastChapter);
}

TEST_F(ZLApplicationTest, AHotKeyDrivesTheDocumentOnlyWhileGlobalHotKeysAreOn)
{
    ZLRecordingHotKeyCenter center;
    ZLApplication application(setup(), ZLApplication::StandardFontSize, { .hotKeyCenter = &center });
    ZLSettingsManager::setGlobalHotkeys(false);
    ZLSettingsManager::setKeyCombo(
        { { u"keyCode"_s, 9 }, { u"modifierFlags"_s, 0x100000U } }, ZLKeyComboKey::ToggleRecording);
    const ZLChapterDocument* document = application.documentController().newDocument();
    const ZLKeyCombo combo { 9, ZLHotKeyModifier::command };
    EXPECT_EQ(application.hotkeyController(), nullptr);
    EXPECT_EQ(application.hotKeyForSettingsKey(ZLKeyComboKey::ToggleRecording), std::nullopt);
    const QSignalSpy changes(&application, &ZLApplication::hotKeysDidChange);
    ZLSettingsManager::setGlobalHotkeys(true);
    EXPECT_EQ(changes.size(), 1);
    const ZLHotkeyController* controller = application.hotkeyController();
    ASSERT_NE(controller, nullptr);
    ZLSettingsManager::setGlobalHotkeys(true);
    EXPECT_EQ(application.hotkeyController(), controller) << "the one that is there stays";
    center.press(combo);
    EXPECT_TRUE(document->isRecording());
    center.refuse(ZLControllerToggleRecordingAction, u"Taken back."_s);
    EXPECT_EQ(application.hotKeyForSettingsKey(ZLKeyComboKey::ToggleRecording).value().refusalReason, u"Taken back."_s);
    ZLHotKey foreign;
    foreign.identifier = u"foreign"_s;
    foreign.keyCombo = { 20, 0 };
    center.registerHotKey(foreign);
    ZLSettingsManager::setGlobalHotkeys(false);
    EXPECT_TRUE(center.allHotKeys().isEmpty()) << "those of others too";
    center.press(combo);
    EXPECT_TRUE(document->isRecording());
    ZLSettingsManager::setGlobalHotkeys(true);
    center.press(combo);
    EXPECT_FALSE(document->isRecording()) << "the current shortcuts are registered again";
}
