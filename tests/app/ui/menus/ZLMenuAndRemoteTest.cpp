#include "app/ui/ZLDesktopFixture.h"
#include "commands/ZLRemoteActions.h"
#include "document/ui/menus/ZLRecordingMenu.h"

using namespace Qt::StringLiterals;

/// What a command leaves behind, as far as a user sees it.
struct ZLCommandEffect {
    bool isRecording = false;
    double reading = 0.0;
    QStringList titles {};
    QList<double> times {};
    int selectedRow = -1;
    QString undoTitle;

    static ZLCommandEffect of(ZLChapterDocument& document)
    {
        ZLCommandEffect effect { .isRecording = document.isRecording(),
            .reading = document.currentDuration(),
            .selectedRow = document.selectedRow(),
            .undoTitle = document.undoManager().undoActionName() };
        for (const ZLChapterPointer& chapter : document.chapterManager().allChapters()) {
            effect.titles.append(chapter->title());
            effect.times.append(chapter->timeStamp());
        }
        return effect;
    }

    bool operator==(const ZLCommandEffect&) const = default;
};

/// The menu and the remote controllers are two ways to one command.
class ZLMenuAndRemoteTest : public ZLDesktopFixture, public testing::WithParamInterface<int> {
protected:
    /// The clock runs, and the middle one of three chapters is selected.
    ZLChapterDocument* preparedDocument()
    {
        ZLChapterDocument* document = newDocument();
        for (const double seconds : { 1.0, 2.0, 3.0 }) {
            const ZLChapterPointer chapter = ZLTestChapters::titled(u"at %1"_s.arg(seconds));
            chapter->setTimeStamp(seconds);
            document->addChapter(chapter);
        }
        document->recordButtonPressed();
        document->selectLastChapter();
        return document;
    }
};

TEST_P(ZLMenuAndRemoteTest, AMenuItemDoesWhatTheRemoteActionDoes)
{
    const ZLRemoteAction& action = ZLRemoteActions::all()[std::size_t(GetParam() - 1)];
    ZLSettingsManager::setPlaySoundBeforeRecording(false);
    ZLChapterDocument* byMenu = preparedDocument();
    ZLChapterDocument* byRemote = preparedDocument();
    m_clock->advance(60.0);
    const ZLCommandEffect before = ZLCommandEffect::of(*byMenu);
    ASSERT_EQ(before, ZLCommandEffect::of(*byRemote));
    ASSERT_EQ(before.selectedRow, 1);

    windowOf(byMenu).recordingMenu().validate();
    windowOf(byMenu).recordingMenu().actionWithTag(GetParam())->trigger();
    (byRemote->*ZLRemoteActions::operationForAction(action.identifier))();
    EXPECT_NE(ZLCommandEffect::of(*byMenu), before) << "the item did nothing";
    EXPECT_EQ(ZLCommandEffect::of(*byMenu), ZLCommandEffect::of(*byRemote)) << qPrintable(action.identifier);
}

INSTANTIATE_TEST_SUITE_P(AllSix, ZLMenuAndRemoteTest, testing::Range(1, 7));

class ZLTaggedItemsTest : public ZLDesktopFixture { };

TEST_F(ZLTaggedItemsTest, ThereAreAsManyTaggedItemsAsActions)
{
    const ZLRecordingMenu& menu = windowOf(newDocument()).recordingMenu();
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        EXPECT_NE(menu.actionWithTag(action.menuTag()), nullptr) << qPrintable(action.identifier);
    EXPECT_EQ(menu.actionWithTag(int(ZLRemoteActions::all().size()) + 1), nullptr);
}
