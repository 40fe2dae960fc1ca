#include "document/ZLNewIdentifiers.h"

#include "SavingFixture.h"

using namespace Qt::StringLiterals;

/// Chapters that are stored without a UUID, and when they get one in the file.
class ZLNewIdentifiersTest : public SavingFixture {
protected:
    static QVariantMap wholeChapter()
    {
        QVariantMap chapter = ZLChapter().dictionaryRepresentation();
        chapter.insert(ZLChapterKey::Title, u"News"_s);
        return chapter;
    }
    static QVariantMap without(const QString& key)
    {
        QVariantMap chapter = wholeChapter();
        chapter.remove(key);
        return chapter;
    }
    static QByteArray fileWith(const QVariantList& chapters, const QVariantList& templates = {})
    {
        return ZLDocumentFile::encode({ .chapters = chapters, .duration = 0.0, .templates = templates });
    }

    /// Of a document that is opened from a file with `bytes`.
    std::unique_ptr<ZLDocumentSaver> saverOfFileWith(const QByteArray& bytes)
    {
        const QString path = filePath("show.zelta");
        EXPECT_TRUE(ZLAtomicFile::write(path, bytes));
        const auto read = ZLReadDocument::read(path);
        EXPECT_TRUE(read);
        document.load(read.value().parts);
        return std::make_unique<ZLDocumentSaver>(document, recoveryFolder, machinery, path, read.value());
    }

    QVariantMap chapterInFile() const
    {
        const auto bytes = ZLBoundedFile::read(filePath("show.zelta"), ZLFileBound::Document);
        const auto contents = ZLDocumentFile::decode(bytes ? bytes.value() : QByteArray());
        return contents ? contents.value().chapters.value(0).toMap() : QVariantMap();
    }
};

TEST_F(ZLNewIdentifiersTest, AChapterOrATemplateWithoutOneIsNoticed)
{
    const QVariantMap anonymous = without(ZLChapterKey::UUID);
    EXPECT_TRUE(ZLNewIdentifiers::areMissingIn(fileWith({ wholeChapter(), anonymous })));
    EXPECT_TRUE(ZLNewIdentifiers::areMissingIn(fileWith({ wholeChapter() }, { anonymous })));
    EXPECT_FALSE(ZLNewIdentifiers::areMissingIn(fileWith({ wholeChapter() }, { wholeChapter() })));
    EXPECT_FALSE(ZLNewIdentifiers::areMissingIn("no document"));
}

TEST_F(ZLNewIdentifiersTest, AChapterThatIsWrittenWithoutItsLaterEntriesGivesNoReason)
{
    for (const QString& key : { ZLChapterKey::Title, ZLChapterKey::Link, ZLChapterKey::Tags, ZLChapterKey::Date }) {
        QVariantMap cut = without(ZLChapterKey::UUID);
        cut.remove(key);
        EXPECT_FALSE(ZLNewIdentifiers::areMissingIn(fileWith({ cut }))) << qPrintable(key);
        EXPECT_FALSE(ZLNewIdentifiers::areMissingIn(fileWith({ without(key) }))) << qPrintable(key);
    }
    EXPECT_FALSE(ZLNewIdentifiers::areMissingIn(fileWith({ u"no chapter"_s })));
}

TEST_F(ZLNewIdentifiersTest, TheUsersSaveWritesThemAlthoughNothingWasEdited)
{
    const QByteArray bytes = fileWith({ without(ZLChapterKey::UUID) });
    const auto saver = saverOfFileWith(bytes);
    const QString uuid = document.chapterManager().chapterAtIndex(0)->uuid();
    ASSERT_TRUE(saved(*saver));
    EXPECT_EQ(chapterInFile().value(ZLChapterKey::UUID).toString(), uuid);
    EXPECT_EQ(writeCount, 1);
    ASSERT_TRUE(saved(*saver));
    EXPECT_EQ(writeCount, 1) << "once";
    EXPECT_FALSE(document.isDocumentEdited());
}

TEST_F(ZLNewIdentifiersTest, OpeningAndClosingAloneWriteNothing)
{
    const auto saver = saverOfFileWith(fileWith({ without(ZLChapterKey::UUID) }));
    writeAndSettle(*saver);
    EXPECT_TRUE(saver->saveNow());
    EXPECT_EQ(writeCount, 0);
    EXPECT_FALSE(chapterInFile().contains(ZLChapterKey::UUID));
}

TEST_F(ZLNewIdentifiersTest, TheUsersSaveOfAWholeFileWritesNothing)
{
    const auto saver = saverOfFileWith(fileWith({ wholeChapter(), without(ZLChapterKey::Link) }));
    EXPECT_TRUE(saved(*saver));
    EXPECT_EQ(writeCount, 0);
}
