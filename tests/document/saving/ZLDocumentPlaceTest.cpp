#include "document/saving/ZLDocumentPlace.h"

#include "SavingFixture.h"

using namespace Qt::StringLiterals;

namespace {

class ZLDocumentPlaceTest : public SavingFixture {
protected:
    ZLDocumentPlaceTest()
    {
        addChapter("One");
        bytes = document.dataOfType();
    }

    QList<ZLDocumentState> keepState(const ZLDocumentPlace& place)
    {
        EXPECT_EQ(place.history()->keep(bytes, QDateTime::currentDateTimeUtc(), {}), ZLStateKeeping::Kept);
        return place.history()->states();
    }

    QByteArray bytes;
};

TEST_F(ZLDocumentPlaceTest, AnUntitledDocumentHoldsNothingUntilItTakesARecoveryFile)
{
    ZLDocumentPlace place(recoveryFolder, {}, nullptr);
    int tellings = 0;
    QObject::connect(&place, &ZLDocumentPlace::recoveryPathDidChange, &place, [&tellings] { ++tellings; });
    EXPECT_TRUE(place.isUntitled());
    EXPECT_EQ(place.recoveryPath(), QString());
    EXPECT_EQ(place.history(), std::nullopt);
    EXPECT_EQ(place.nameForMessages(), recoveryFolder.path());
    ASSERT_TRUE(place.takeRecoveryFile());
    EXPECT_TRUE(place.recoveryPath().startsWith(recoveryFolder.path()));
    EXPECT_TRUE(place.recoveryFile()->isStillHeld());
    EXPECT_TRUE(place.history());
    EXPECT_EQ(tellings, 1);
    place.removeRecoveryFile();
    EXPECT_EQ(place.recoveryPath(), QString());
    EXPECT_EQ(tellings, 2);
}

TEST_F(ZLDocumentPlaceTest, ATitledDocumentIsLockedAndKeepsOnlyItsJournalInTheRecoveryFolder)
{
    const QString path = filePath("show.zelta");
    ASSERT_TRUE(ZLAtomicFile::write(path, bytes));
    ZLDocumentPlace place(recoveryFolder, path, nullptr);
    EXPECT_EQ(place.path(), path);
    EXPECT_EQ(place.nameForMessages(), path);
    EXPECT_EQ(place.openFileNote()->path(), path);
    EXPECT_NE(ZLDocumentLock(path).otherHolder(), QString()) << "held";
    ASSERT_TRUE(place.takeRecoveryFile());
    EXPECT_EQ(place.recoveryPath(), QString());
    EXPECT_NE(place.recoveryFile(), nullptr);
}

TEST_F(ZLDocumentPlaceTest, ADocumentThatGetsAFileTakesItsStatesAlong)
{
    const QString path = filePath("show.zelta");
    ZLDocumentPlace place(recoveryFolder, {}, nullptr);
    ASSERT_TRUE(place.takeRecoveryFile());
    EXPECT_EQ(keepState(place).size(), 1);
    const ZLDocumentHistory former = *place.history();
    ASSERT_TRUE(ZLAtomicFile::write(path, bytes));
    place.moveTo(path);
    EXPECT_FALSE(place.isUntitled());
    place.settle(QDeadlineTimer(QDeadlineTimer::Forever));
    EXPECT_EQ(place.history()->states().size(), 1);
    EXPECT_TRUE(former.states().isEmpty()) << "nothing is left of the untitled one";
}

TEST_F(ZLDocumentPlaceTest, OnlyTheStatesOfAnUntitledDocumentAreForgottenWithIt)
{
    ZLDocumentPlace untitled(recoveryFolder, {}, nullptr);
    ASSERT_TRUE(untitled.takeRecoveryFile());
    EXPECT_EQ(keepState(untitled).size(), 1);
    untitled.forgetUntitledHistory();
    EXPECT_TRUE(untitled.history()->states().isEmpty());
    ZLDocumentPlace titled(recoveryFolder, filePath("show.zelta"), nullptr);
    EXPECT_EQ(keepState(titled).size(), 1);
    titled.forgetUntitledHistory();
    EXPECT_EQ(titled.history()->states().size(), 1);
}

TEST_F(ZLDocumentPlaceTest, AFileIsAsItIsSinceItWasWrittenAndNeverSinceLaterThanNow)
{
    const QString path = filePath("show.zelta");
    ASSERT_TRUE(ZLAtomicFile::write(path, bytes));
    const ZLDocumentPlace place(recoveryFolder, path, nullptr);
    const QDateTime written = QFileInfo(path).lastModified();
    EXPECT_EQ(place.timeOfFile(written.addSecs(60)), written);
    EXPECT_EQ(place.timeOfFile(written.addSecs(-60)), written.addSecs(-60)) << "the clock was set back";
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_EQ(place.timeOfFile(written.addSecs(60)), written.addSecs(60));
}

TEST_F(ZLDocumentPlaceTest, AnExtensionOfTheUsersIsKept)
{
    EXPECT_EQ(ZLDocumentPlace::pathWithExtension(u"/a/Episode 1.5"_s), u"/a/Episode 1.5.zelta"_s);
    EXPECT_EQ(ZLDocumentPlace::pathWithExtension(u"/a/b.Zelta"_s), u"/a/b.Zelta"_s);
    EXPECT_EQ(ZLDocumentPlace::pathWithExtension(u"/a.d/b"_s), u"/a.d/b.zelta"_s);
    EXPECT_EQ(ZLDocumentPlace::pathWithExtension(u"b"_s), QDir::currentPath() + u"/b.zelta"_s);
}

}
