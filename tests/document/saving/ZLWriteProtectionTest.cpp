#include "document/saving/ZLWriteProtection.h"

#include "SavingFixture.h"
#include "document/saving/ZLOpenFileList.h"
#include "platform/ZLStateFolder.h"

#include <unistd.h>

using namespace Qt::StringLiterals;

class ZLWriteProtectionTest : public SavingFixture {
protected:
    ZLWriteProtectionTest()
    {
        EXPECT_TRUE(QDir().mkpath(ZLStateFolder::path()));
        EXPECT_TRUE(ZLAtomicFile::write(path, "a document"));
    }

    /// What the list of another process says, which runs as long as the lock is held.
    static std::unique_ptr<ZLFileLock> otherProcessWith(const QString& openPath)
    {
        EXPECT_TRUE(QDir().mkpath(ZLStateFolder::path() + u"/open"_s));
        auto list = ZLFileLock::tryLock(otherListPath());
        EXPECT_TRUE(list && list.value());
        list.value()->write(QFile::encodeName(u"/elsewhere/other.zelta"_s) + '\0' + QFile::encodeName(openPath) + '\0');
        return std::move(list).value();
    }
    static QString otherListPath() { return ZLStateFolder::path() + u"/open/other.open"_s; }

    static void expectRefusal(const QString& target)
    {
        const ZLStatus status = ZLWriteProtection::check(target);
        ASSERT_FALSE(status) << qPrintable(target);
        EXPECT_EQ(status.error().message, target + u" is in use by Zelta. Choose another name."_s);
    }

    static void expectAllowed(const QString& target)
    {
        EXPECT_TRUE(ZLWriteProtection::check(target)) << qPrintable(target);
    }

    void expectRefusalByWhateverPath() const
    {
        ASSERT_TRUE(QFile::link(path, filePath("link")));
        ASSERT_EQ(link(QFile::encodeName(path).constData(), QFile::encodeName(filePath("hard")).constData()), 0);
        ASSERT_TRUE(QDir().mkdir(filePath("folder")));
        ASSERT_TRUE(QFile::link(temporary.path(), filePath("folder/up")));
        expectRefusal(path);
        expectRefusal(filePath("link"));
        expectRefusal(filePath("hard"));
        expectRefusal(filePath("folder/../show.zelta"));
        expectRefusal(filePath("folder/up/show.zelta"));
        expectAllowed(filePath("other.zelta"));
        ASSERT_TRUE(ZLAtomicFile::write(filePath("other.zelta"), "a document"));
        expectAllowed(filePath("other.zelta"));
    }

    const QString path = filePath("show.zelta");
};

TEST_F(ZLWriteProtectionTest, ADocumentThatIsOpenHereIsProtectedByWhateverPath)
{
    expectAllowed(path);
    {
        const ZLDocumentLock lock(path);
        expectRefusalByWhateverPath();
        EXPECT_TRUE(ZLWriteProtection::check(path, &lock.note())) << "to itself it may be written";
        EXPECT_TRUE(ZLWriteProtection::check(filePath("hard"), &lock.note()));
    }
    expectAllowed(path);
}

TEST_F(ZLWriteProtectionTest, ADocumentThatIsOpenInAnotherProcessIsProtectedByWhateverPath)
{
    const auto other = otherProcessWith(path);
    expectRefusalByWhateverPath();
}

TEST_F(ZLWriteProtectionTest, WhatADeadProcessHadOpenIsFree)
{
    ASSERT_TRUE(QDir().mkpath(ZLStateFolder::path() + u"/open"_s));
    ASSERT_TRUE(ZLAtomicFile::write(otherListPath(), QFile::encodeName(path) + '\0'));
    expectAllowed(path);
    EXPECT_FALSE(QFile::exists(otherListPath())) << "and its list is cleared away";
}

TEST_F(ZLWriteProtectionTest, AnOpenDocumentWhoseFileIsAwayKeepsItsPlace)
{
    const ZLDocumentLock lock(path);
    ASSERT_TRUE(QFile::remove(path));
    expectRefusal(path);
    ASSERT_TRUE(QFile::link(u"show.zelta"_s, filePath("link")));
    expectRefusal(filePath("link"));
}

TEST_F(ZLWriteProtectionTest, TheLockBesideADocumentIsProtectedAndTellsOfAProcessWithAnotherStateFolder)
{
    const auto other = otherProcessWith(path);
    ASSERT_TRUE(ZLAtomicFile::write(ZLDocumentLock::lockPath(path), "studio\n1\n"));
    expectRefusal(ZLDocumentLock::lockPath(path));

    const QString elsewhere = filePath("elsewhere.zelta");
    ASSERT_TRUE(ZLAtomicFile::write(elsewhere, "a document"));
    const auto lock = ZLFileLock::tryLock(ZLDocumentLock::lockPath(elsewhere));
    expectRefusal(elsewhere);
}

TEST_F(ZLWriteProtectionTest, WhatTheProgramKeepsForItselfIsProtected)
{
    const QString journal = ZLStateFolder::path() + u"/recovery/a.zelta.journal"_s;
    ASSERT_TRUE(QDir().mkpath(ZLStateFolder::path() + u"/recovery"_s));
    ASSERT_TRUE(ZLAtomicFile::write(journal, "a journal"));
    ASSERT_TRUE(QFile::link(journal, filePath("link")));
    ASSERT_EQ(link(QFile::encodeName(journal).constData(), QFile::encodeName(filePath("hard")).constData()), 0);
    ASSERT_TRUE(QFile::link(ZLStateFolder::path(), filePath("folder")));
    expectRefusal(journal);
    expectRefusal(filePath("link"));
    expectRefusal(filePath("hard"));
    expectRefusal(filePath("folder/recovery/new.zelta"));
    expectRefusal(ZLStateFolder::path() + u"/session.json"_s);
    ASSERT_TRUE(QFile::remove(journal));
}

TEST_F(ZLWriteProtectionTest, SaveAsAsksAndAFailureChangesNothing)
{
    const QString other = filePath("other.zelta");
    ASSERT_TRUE(ZLAtomicFile::write(other, "theirs"));
    const auto process = otherProcessWith(other);
    const auto saver = titledSaver(path);
    addChapter("Mine");
    const ZLStatus saved = savedAs(*saver, other);
    ASSERT_FALSE(saved);
    EXPECT_TRUE(saved.error().message.startsWith(other));
    EXPECT_EQ(ZLBoundedFile::read(other, ZLFileBound::List).value(), "theirs");
    EXPECT_EQ(saver->path(), path);
    EXPECT_TRUE(savedAs(*saver, path)) << "its own file is no other's";
    EXPECT_EQ(titlesIn(path), QStringList { u"Mine"_s });
}
