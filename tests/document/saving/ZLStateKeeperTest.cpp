#include "document/saving/ZLStateKeeper.h"

#include "SavingFixture.h"
#include "platform/ZLUtcTime.h"

#include <semaphore>

class ZLStateKeeperTest : public SavingFixture {
protected:
    ZLFormerState state() const
    {
        return { .history = ZLDocumentHistory::ofFile(recoveryFolder, filePath("show.zelta")),
            .bytes = bytesWithAChapter(),
            .time = ZLUtcTime::fromMilliseconds(1'700'000'000'000) };
    }
    static QByteArray bytesWithAChapter()
    {
        return ZLDocumentFile::encode({ .chapters = { ZLChapter().dictionaryRepresentation() }, .templates = {} });
    }
};

TEST_F(ZLStateKeeperTest, AStateIsKept)
{
    ZLStateKeeper keeper({}, std::chrono::minutes(1));
    EXPECT_EQ(keeper.keep(state(), ZLDocumentFile::encode({})), ZLStateKeeping::Kept);
    EXPECT_EQ(state().history.states().size(), 1);
}

TEST_F(ZLStateKeeperTest, AFolderThatHangsIsWaitedForOnceAndAskedAgainWhenItAnswers)
{
    // Shared with a thread that may outlive the test.
    const auto disk = std::make_shared<std::binary_semaphore>(0);
    const auto asked = std::make_shared<std::atomic<int>>(0);
    const auto answered = std::make_shared<std::atomic<bool>>(false);
    ZLStateKeeper keeper(
        [=](const ZLFormerState&, const QByteArray&) {
            if (++*asked == 1)
                disk->acquire();
            *answered = true;
            return ZLStateKeeping::Kept;
        },
        std::chrono::milliseconds(1));
    // Were it to wait for the disk, the test would stand here for ever.
    EXPECT_EQ(keeper.keep(state(), {}), ZLStateKeeping::Failed);
    EXPECT_EQ(keeper.keep(state(), {}), ZLStateKeeping::Failed);
    EXPECT_LE(*asked, 1) << "its thread may not run yet";
    disk->release();
    ZLStateKeeping keeping = ZLStateKeeping::Failed;
    for (int attempt = 0; attempt < 100'000 && keeping == ZLStateKeeping::Failed; ++attempt)
        keeping = keeper.keep(state(), {});
    EXPECT_EQ(keeping, ZLStateKeeping::Kept);
}
