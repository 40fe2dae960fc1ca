#include "document/shared/ZLDocumentExtras.h"

#include "document/ZLChapterDocument.h"
#include "support/ZLChapterBuilders.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLDocumentExtrasTest : public testing::Test {
protected:
    ZLDocumentExtras& extras() { return document.extras(); }
    ZLUndoManager& undo() { return document.undoManager(); }

    QVariantMap written()
    {
        const auto contents = ZLDocumentFile::decode(document.dataOfType());
        EXPECT_TRUE(contents);
        return contents ? contents.value().extras : QVariantMap();
    }

    ZLChapterDocument document { ZLDocumentEnvironment() };
};

TEST_F(ZLDocumentExtrasTest, AValueIsInTheFileUntilItIsTakenAway)
{
    const QByteArray before = document.dataOfType();
    extras().keep(u"Sound"_s, QByteArray("\0\1", 2));
    EXPECT_NE(document.dataOfType(), before);
    EXPECT_EQ(written(), QVariantMap({ { u"Sound"_s, QByteArray("\0\1", 2) } }));
    extras().keep(u"Sound"_s, {});
    EXPECT_EQ(document.dataOfType(), before);
}

TEST_F(ZLDocumentExtrasTest, OnlyAChangeIsAStep)
{
    extras().keep(u"Kept"_s, 1);
    EXPECT_FALSE(undo().canUndo());
    extras().change(u"Changed"_s, 1);
    extras().change(u"Changed"_s, 1);
    extras().change(u"Changed"_s, 2);
    undo().undo();
    EXPECT_EQ(extras().value(u"Changed"_s), 1);
    undo().undo();
    EXPECT_FALSE(extras().value(u"Changed"_s).isValid());
    EXPECT_FALSE(undo().canUndo());
    EXPECT_EQ(extras().value(u"Kept"_s), 1);
    undo().redo();
    undo().redo();
    EXPECT_EQ(extras().value(u"Changed"_s), 2);
}

TEST_F(ZLDocumentExtrasTest, NotesGoWithTheirChapterAndComeBackWithIt)
{
    const auto chapter = ZLTestChapters::chapterAt(5.0, u"One"_s);
    chapter->setRealDate(QDateTime::currentDateTimeUtc());
    document.addChapter(chapter);
    extras().changeOfChapter(chapter->uuid(), u"Moved"_s, 2.5);
    const QVariantMap withNotes { { ZLDocumentExtras::ChapterNotesKey,
        QVariantMap { { chapter->uuid(), QVariantMap { { u"Moved"_s, 2.5 } } } } } };
    EXPECT_EQ(written(), withNotes);
    document.removeChapter(chapter);
    EXPECT_EQ(written(), QVariantMap()) << "no notes of a chapter that is not in the file";
    undo().undo();
    EXPECT_EQ(written(), withNotes);
    undo().undo();
    EXPECT_EQ(written(), QVariantMap());
    EXPECT_FALSE(extras().ofChapter(chapter->uuid(), u"Moved"_s).isValid());
}

TEST_F(ZLDocumentExtrasTest, TheDifferenceLeadsFromTheFormerStateToThisOne)
{
    extras().load({ { u"A"_s, 1 }, { u"B"_s, 2 },
        { ZLDocumentExtras::ChapterNotesKey,
            QVariantMap { { u"X"_s, QVariantMap { { u"N"_s, 1 } } }, { u"Y"_s, QVariantMap { { u"N"_s, 2 } } } } } });
    EXPECT_TRUE(extras().takeDifference());
    EXPECT_FALSE(extras().takeDifference()) << "nothing changed since";
    QVariantMap state = extras().values();
    const auto expectFollowed = [&](const char* what) {
        SCOPED_TRACE(what);
        const auto difference = extras().takeDifference();
        ASSERT_TRUE(difference);
        difference->applyTo(state);
        EXPECT_EQ(state, extras().values());
    };
    extras().keep(u"A"_s, {});
    extras().keep(u"C"_s, 3);
    expectFollowed("values");
    extras().keepOfChapter(u"X"_s, u"N"_s, {});
    extras().keepOfChapter(u"Y"_s, u"M"_s, u"text"_s);
    expectFollowed("notes");
    extras().replace({ { u"D"_s, 4 } });
    expectFollowed("everything replaced");
    undo().undo();
    expectFollowed("everything back");
}

TEST_F(ZLDocumentExtrasTest, ALostStateIsWhollyReplacedByTheOneThatIsReverted)
{
    const ZLDocumentContents other { {}, 0.0, {}, { { u"Theirs"_s, 1 } } };
    extras().keep(u"Mine"_s, 1);
    document.adoptContents(other);
    EXPECT_EQ(written(), other.extras);
    undo().undo();
    EXPECT_EQ(written(), QVariantMap({ { u"Mine"_s, 1 } }));
}
