#include "document/saving/SavingFixture.h"
#include "support/ZLProcessorTime.h"

#include <QEventLoop>

using namespace Qt::StringLiterals;

/// What saving a long document costs the thread of the event loop, beside what its bytes cost.
class ZLMainThreadTimeTest : public SavingFixture {
protected:
    ZLMainThreadTimeTest()
    {
        machinery.executor = {};
        ZLChapterSequence chapters;
        for (int number = 0; number < 20'000; ++number) {
            chapters.append(std::make_shared<ZLChapter>());
            chapters.last()->setTimeStamp(number);
            chapters.last()->setTitle(QString::number(number));
        }
        document.chapterManager().setChapters(chapters);
    }

    void SetUp() override
    {
        saver = titledSaver(filePath("show.zelta"));
        const double before = ZLProcessorTime::seconds();
        (void)document.dataOfType();
        costOfBytes = ZLProcessorTime::seconds() - before;
        addChapter("New");
    }

    /// Of `begin`, and of all that the event loop does until it is over.
    double costOf(const std::function<void(const std::function<void()>& end)>& begin)
    {
        QEventLoop loop;
        const double before = ZLProcessorTime::seconds();
        begin([&loop] { QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection); });
        loop.exec();
        return ZLProcessorTime::seconds() - before;
    }

    double costOfAsking(const std::function<void(const ZLWhenDone&)>& ask)
    {
        return costOf([&ask](const std::function<void()>& end) {
            ask([end](const ZLStatus& status) {
                EXPECT_TRUE(status) << qPrintable(status.error().message);
                end();
            });
        });
    }

    static constexpr double LargestShare = 0.25;

    std::unique_ptr<ZLDocumentSaver> saver;
    double costOfBytes = 0.0;
};

TEST_F(ZLMainThreadTimeTest, TheAutomaticSaveMakesNoBytesThere)
{
    const double cost = costOf([this](const std::function<void()>& end) {
        QObject::connect(saver.get(), &ZLDocumentSaver::stateDidChange, saver.get(), [this, end] {
            if (saver->state() == ZLSavingState::Saved)
                end();
        });
        saver->writeNewestState();
    });
    EXPECT_LT(cost, LargestShare * costOfBytes);
}

TEST_F(ZLMainThreadTimeTest, ASaveThatAPersonAsksForMakesNoBytesThere)
{
    EXPECT_LT(costOfAsking([this](const ZLWhenDone& whenDone) { saver->save(whenDone); }), LargestShare * costOfBytes);
    addChapter("Newer");
    const QString path = filePath("other.zelta");
    EXPECT_LT(
        costOfAsking([&](const ZLWhenDone& whenDone) { saver->saveAs(path, whenDone); }), LargestShare * costOfBytes);
    EXPECT_EQ(titlesIn(path).size(), 20'002);
}

TEST_F(ZLMainThreadTimeTest, LookingWhetherThereIsAnythingToRevertMakesNoBytes)
{
    const double before = ZLProcessorTime::seconds();
    EXPECT_TRUE(saver->canRevert());
    document.undoManager().undo();
    EXPECT_FALSE(saver->canRevert());
    EXPECT_LT(ZLProcessorTime::seconds() - before, LargestShare * costOfBytes);
}
