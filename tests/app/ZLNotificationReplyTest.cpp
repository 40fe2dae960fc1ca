#include "app/ZLApplication.h"

#include "settings/ZLSettingsManager.h"
#include "support/ZLChangeSpy.h"
#include "support/ZLChapterBuilders.h"
#include "support/ZLFakeHostClock.h"
#include "support/ZLRecordingNotificationCenter.h"
#include "support/ZLTemporarySettings.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Type = ZLUserNotificationActivationType;

/// Two open documents, of which the second has made a chapter and notified of it while another program was in front.
class ZLNotificationReplyTest : public testing::Test {
protected:
    ZLNotificationReplyTest()
    {
        ZLSettingsManager::setCreateNewChapterOnStart(false);
        ZLSettingsManager::setShowQuickEdit(true);
        application = std::make_unique<ZLApplication>(setup());
        first = application->documentController().newDocument();
        second = application->documentController().newDocument();
        second->recordButtonPressed();
        second->addChapterButtonPressed();
    }

    [[nodiscard]] ZLDocumentControllerSetup setup()
    {
        const auto runAtOnce = [](const std::function<void()>& task) { task(); };
        ZLDocumentControllerSetup result;
        result.environment.hostClock = std::make_shared<ZLFakeHostClock>();
        result.environment.notificationCenter = center;
        result.machinery.executor = runAtOnce;
        result.stateFolder = folder.path();
        result.sessionExecutor = runAtOnce;
        return result;
    }

    [[nodiscard]] ZLUserNotification notification() const { return center->delivered().constLast(); }
    [[nodiscard]] QString title() const { return second->chapterManager().chapterAtIndex(0)->title(); }

    ZLTemporarySettings settings;
    QTemporaryDir folder;
    std::shared_ptr<ZLRecordingNotificationCenter> center = std::make_shared<ZLRecordingNotificationCenter>();
    std::unique_ptr<ZLApplication> application;
    ZLChapterDocument* first = nullptr;
    ZLChapterDocument* second = nullptr;
};

TEST_F(ZLNotificationReplyTest, TheReplyBecomesTheTitleAsOneUndoableStep)
{
    ASSERT_EQ(center->delivered().size(), 1);
    center->reply(notification(), u"Grüße <b>"_s);
    EXPECT_EQ(title(), u"Grüße <b>"_s);
    EXPECT_EQ(second->undoManager().undoActionName(), u"Change Title"_s);
    second->undoManager().undo();
    EXPECT_EQ(title(), u""_s);
}

TEST_F(ZLNotificationReplyTest, TheReplyIsToldToSurfacesOnce)
{
    const ZLChangeSpy told(*second, ZLDocumentChange::concerningControllers);
    center->reply(notification(), u"Interview"_s);
    EXPECT_EQ(told.size(), 1);
}

TEST_F(ZLNotificationReplyTest, OfTwoDocumentsWithTheChapterTheFirstTakesIt)
{
    const auto copy = ZLTestChapters::titled(u"Copy"_s);
    copy->setUuid(second->chapterManager().chapterAtIndex(0)->uuid());
    first->addChapter(copy);
    center->reply(notification(), u"Interview"_s);
    EXPECT_EQ(copy->title(), u"Interview"_s);
    EXPECT_EQ(title(), u""_s);
}

TEST_F(ZLNotificationReplyTest, ClicksOnTheNotificationAndItsButtonsChangeNothing)
{
    for (const Type type : { Type::ContentsClicked, Type::ActionButtonClicked, Type::ReplyButtonClicked })
        center->activate(notification(), { type, u"Interview"_s });
    EXPECT_EQ(title(), u""_s);
}

TEST_F(ZLNotificationReplyTest, AReplyForADeletedChapterChangesNothing)
{
    const auto chapter = second->chapterManager().chapterAtIndex(0);
    second->removeChapter(chapter);
    const QString step = second->undoManager().undoActionName();
    center->reply(notification(), u"Interview"_s);
    EXPECT_EQ(chapter->title(), u""_s);
    EXPECT_EQ(second->undoManager().undoActionName(), step);
}

TEST_F(ZLNotificationReplyTest, AReplyForAClosedDocumentChangesNothing)
{
    second->recordButtonPressed();
    ASSERT_TRUE(application->documentController().closeDocument(second, ZLClosing::Discard));
    first->addChapter(ZLTestChapters::titled(u"Other"_s));
    center->reply(notification(), u"Interview"_s);
    EXPECT_EQ(first->chapterManager().chapterAtIndex(0)->title(), u"Other"_s);
}

TEST_F(ZLNotificationReplyTest, WithoutAnyOpenDocumentAReplyIsDropped)
{
    second->recordButtonPressed();
    ASSERT_TRUE(application->documentController().closeDocument(second, ZLClosing::Discard));
    ASSERT_TRUE(application->documentController().closeDocument(first, ZLClosing::Discard));
    center->reply(notification(), u"Interview"_s);
    EXPECT_TRUE(application->documentController().documents().isEmpty());
}

TEST_F(ZLNotificationReplyTest, ANotificationOfNoChapterIsForNoChapter)
{
    const auto nameless = ZLTestChapters::titled(u"Nameless"_s);
    nameless->setUuid(u""_s);
    second->addChapter(nameless);
    ZLUserNotification other = notification();
    other.userInfo.clear();
    center->reply(other, u"Interview"_s);
    EXPECT_EQ(nameless->title(), u"Nameless"_s);
    EXPECT_EQ(title(), u""_s);
}
