#include "app/ui/quickedit/ZLQuickEdits.h"

#include "app/ZLApplication.h"
#include "support/ZLFakeHostClock.h"
#include "support/ZLFakeTimers.h"
#include "support/ZLRecordingNotificationCenter.h"
#include "support/ZLTemporarySettings.h"

#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Type = ZLUserNotificationActivationType;

/// A recording document that has notified of two chapters.
class ZLQuickEditsTest : public testing::Test {
protected:
    ZLQuickEditsTest()
    {
        ZLSettingsManager::setCreateNewChapterOnStart(false);
        ZLSettingsManager::setShowQuickEdit(true);
        application = std::make_unique<ZLApplication>(setup());
        quickEdits = std::make_unique<ZLQuickEdits>(*application, timers.starter());
        document = application->documentController().newDocument();
        document->recordButtonPressed();
        document->addChapterButtonPressed();
        clock->advance(1.0);
        document->addChapterButtonPressed();
    }

    [[nodiscard]] ZLDocumentControllerSetup setup()
    {
        const auto runAtOnce = [](const std::function<void()>& task) { task(); };
        ZLDocumentControllerSetup result;
        result.environment.hostClock = clock;
        result.environment.notificationCenter = center;
        result.machinery.executor = runAtOnce;
        result.stateFolder = folder.path();
        result.sessionExecutor = runAtOnce;
        return result;
    }

    void press(int notification, Type type = Type::ReplyButtonClicked)
    {
        center->activate(center->delivered().at(notification), { type });
    }
    static void typeTitle(ZLQuickEditWindowController* panel, const QString& text)
    {
        QTest::keyClicks(panel->window().findChild<QLineEdit*>(u"titleField"_s), text);
    }
    [[nodiscard]] QString titleOfRow(int row) const { return document->chapterManager().chapterAtIndex(row)->title(); }

    ZLTemporarySettings settings;
    QTemporaryDir folder;
    ZLFakeTimers timers;
    std::shared_ptr<ZLFakeHostClock> clock = std::make_shared<ZLFakeHostClock>();
    std::shared_ptr<ZLRecordingNotificationCenter> center = std::make_shared<ZLRecordingNotificationCenter>();
    std::unique_ptr<ZLApplication> application;
    std::unique_ptr<ZLQuickEdits> quickEdits;
    ZLChapterDocument* document = nullptr;
};

TEST_F(ZLQuickEditsTest, TheReplyButtonOpensAPanelForItsChapter)
{
    press(0);
    ASSERT_EQ(quickEdits->panels().size(), 1);
    ZLQuickEditWindowController* panel = quickEdits->panels().constFirst();
    EXPECT_TRUE(panel->window().isVisible());
    typeTitle(panel, u"Welcome"_s);
    panel->saveButtonPressed();
    EXPECT_EQ(titleOfRow(0), u"Welcome"_s);
    EXPECT_EQ(titleOfRow(1), u""_s);
    panel->window().close();
    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(quickEdits->panels().isEmpty());
}

TEST_F(ZLQuickEditsTest, WhereNothingShowsNotificationsThePanelComesAtOnceAndGoesByItself)
{
    center->refuse(center->delivered().at(1));
    ASSERT_EQ(quickEdits->panels().size(), 1);
    ZLQuickEditWindowController* panel = quickEdits->panels().constFirst();
    EXPECT_EQ(panel->chapter(), document->chapterManager().chapterAtIndex(1));
    EXPECT_TRUE(panel->window().isVisible());
    EXPECT_TRUE(panel->hasHideTimer());
}

TEST_F(ZLQuickEditsTest, OfManyPanelsThatComeByThemselvesTheLastStay)
{
    const auto addAndRefuse = [this] {
        clock->advance(1.0);
        document->addChapterButtonPressed();
        center->refuse(center->delivered().constLast());
        return quickEdits->panels().constLast();
    };
    ZLQuickEditWindowController* used = addAndRefuse();
    QEvent click(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&used->window(), &click);
    ZLQuickEditWindowController* oldest = addAndRefuse();
    for (int i = 0; i < 2; ++i)
        addAndRefuse();
    EXPECT_FALSE(oldest->isGoing());
    ZLQuickEditWindowController* newest = addAndRefuse();
    EXPECT_TRUE(oldest->isGoing());
    EXPECT_FALSE(newest->isGoing());
    EXPECT_FALSE(used->isGoing());
}

TEST_F(ZLQuickEditsTest, WhatIsBeingTypedForOneChapterIsNotLostToTheNext)
{
    press(0);
    typeTitle(quickEdits->panels().at(0), u"Wel"_s);
    press(1);
    press(0);
    ASSERT_EQ(quickEdits->panels().size(), 2);
    typeTitle(quickEdits->panels().at(0), u"come"_s);
    quickEdits->panels().at(0)->saveButtonPressed();
    EXPECT_EQ(titleOfRow(0), u"Welcome"_s);
}

TEST_F(ZLQuickEditsTest, OtherClicksOpenNothing)
{
    for (const Type type : { Type::ContentsClicked, Type::ActionButtonClicked, Type::Replied })
        press(0, type);
    EXPECT_TRUE(quickEdits->panels().isEmpty());
}

TEST_F(ZLQuickEditsTest, ForAChapterThatIsGoneNothingOpens)
{
    document->removeChapter(document->chapterManager().chapterAtIndex(0));
    press(0);
    EXPECT_TRUE(quickEdits->panels().isEmpty());
}

TEST_F(ZLQuickEditsTest, PanelsStandBesideEachOther)
{
    press(0);
    press(1);
    ASSERT_EQ(quickEdits->panels().size(), 2);
    EXPECT_FALSE(
        quickEdits->panels().at(0)->window().geometry().intersects(quickEdits->panels().at(1)->window().geometry()));
}
