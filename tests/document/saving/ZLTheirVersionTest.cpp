#include "document/saving/ZLTheirVersion.h"

#include "SavingFixture.h"

using namespace Qt::StringLiterals;

namespace {

class ZLTheirVersionTest : public SavingFixture {
protected:
    const QString path = filePath("show.zelta");
    const QDateTime time = QDateTime::currentDateTimeUtc();
};

TEST_F(ZLTheirVersionTest, ADocumentIsReadAndMayBeReplacedAsItIs)
{
    addChapter("Theirs");
    ASSERT_TRUE(ZLAtomicFile::write(path, document.dataOfType()));
    const auto theirs = ZLTheirVersion::read(path);
    ASSERT_TRUE(theirs);
    EXPECT_EQ(theirs.value().parts().chapters.size(), 1);
    EXPECT_EQ(theirs.value().bytes(), document.dataOfType());
    const ZLKnownFile known = theirs.value().asKnownFile();
    EXPECT_EQ(known.versions(), ZLTheirVersion::toBeReplaced(path, time).versions());
    EXPECT_TRUE(known.bytes().isEmpty()) << "the next write happens whatever the document is then";
    EXPECT_EQ(ZLTheirVersion::toBeReplaced(path, time).bytes(), document.dataOfType()) << "a state to go back to";
}

TEST_F(ZLTheirVersionTest, WhatIsNoDocumentIsNamedAndMayBeReplacedAllTheSame)
{
    ASSERT_TRUE(ZLAtomicFile::write(path, "no document"));
    const auto theirs = ZLTheirVersion::read(path);
    ASSERT_FALSE(theirs);
    EXPECT_TRUE(theirs.error().message.startsWith(path)) << qPrintable(theirs.error().message);
    EXPECT_TRUE(ZLTheirVersion::toBeReplaced(path, time).versions());
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_FALSE(ZLTheirVersion::read(path));
    EXPECT_EQ(ZLTheirVersion::toBeReplaced(path, time).versions(), std::nullopt) << "whatever it is";
}

TEST_F(ZLTheirVersionTest, AFreeNameBesideItIsCountedUp)
{
    EXPECT_EQ(ZLTheirVersion::freePathBeside(path), filePath("show 2.zelta"));
    ASSERT_TRUE(ZLAtomicFile::write(filePath("show 2.zelta"), "taken"));
    EXPECT_EQ(ZLTheirVersion::freePathBeside(path), filePath("show 3.zelta"));
    ASSERT_TRUE(ZLAtomicFile::write(filePath("notes 2.txt.zelta"), "taken"));
    EXPECT_EQ(ZLTheirVersion::freePathBeside(filePath("notes.txt")), filePath("notes 3.txt.zelta"));
}

}
