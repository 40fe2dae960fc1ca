#include "app/ui/menus/ZLFileMenu.h"

#include "app/ui/ZLDesktopFixture.h"

#include <QDropEvent>
#include <QMenu>
#include <QMimeData>

using namespace Qt::StringLiterals;

class ZLFileMenuTest : public ZLDesktopFixture {
protected:
    [[nodiscard]] QStringList names()
    {
        QStringList names;
        for (const ZLChapterDocument* document : m_controller.documents())
            names.append(document->displayName());
        return names;
    }
    QMenu* fillRecentMenu(ZLChapterDocument* document)
    {
        auto* menu = windowOf(document).findChild<QMenu*>(u"recentMenu"_s);
        Q_EMIT menu->aboutToShow();
        return menu;
    }
    bool canRevert(ZLChapterDocument* document)
    {
        Q_EMIT windowOf(document).findChild<QMenu*>(u"fileMenu"_s)->aboutToShow();
        return action(document, u"revert"_s)->isEnabled();
    }
    static QStringList textsOf(const QMenu* menu)
    {
        QStringList texts;
        for (const QAction* item : menu->actions())
            texts.append(item->isSeparator() ? u"-"_s : item->text());
        return texts;
    }
};

TEST_F(ZLFileMenuTest, NewOpensAnotherWindow)
{
    ZLChapterDocument* document = newDocument();
    trigger(document, u"newDocument"_s);
    EXPECT_EQ(names(), (QStringList { u"Untitled"_s, u"Untitled 2"_s }));
    EXPECT_TRUE(windowOf(m_controller.documents().last()).isVisible());
}

TEST_F(ZLFileMenuTest, OpenAsksForFiles)
{
    ZLChapterDocument* document = newDocument();
    addChapter(document, u"Mine"_s);
    const QString path = storedFile(u"show.zelta"_s);
    trigger(document, u"openDocument"_s);
    choose(dialogOf(document), path);
    waitUntilRead();
    EXPECT_EQ(names(), (QStringList { u"Untitled"_s, u"show.zelta"_s }));
    EXPECT_EQ(titles(m_controller.documents().last()), QStringList { u"Stored"_s });
}

TEST_F(ZLFileMenuTest, AFileTakesThePlaceOfTheUntouchedWindowAndTheProgramGoesOn)
{
    ZLChapterDocument* untouched = newDocument();
    const QString path = storedFile(u"show.zelta"_s);
    const int status = ZLProgramRun::run({ [&] { openAndWait({ path }); } });
    EXPECT_EQ(status, ZLProgramRun::StillRunning);
    EXPECT_EQ(names(), QStringList { u"show.zelta"_s });
    EXPECT_EQ(m_windows->windowOf(untouched), nullptr);
    EXPECT_TRUE(windowOf(m_controller.documents().first()).isVisible());
}

TEST_F(ZLFileMenuTest, AnUnreadableFileIsToldInTheBarAndOpensNothing)
{
    ZLChapterDocument* document = newDocument();
    const QString path = filePath(u"broken.zelta"_s);
    ASSERT_TRUE(ZLAtomicFile::write(path, "no document"));
    openAndWait({ path, filePath(u"missing.zelta"_s) });
    EXPECT_EQ(names(), QStringList { u"Untitled"_s });
    EXPECT_TRUE(barText(document).contains("broken.zelta"_L1));
    EXPECT_TRUE(barText(document).contains("missing.zelta"_L1));
    EXPECT_EQ(barButtons(document), QStringList { u"Dismiss"_s });
    EXPECT_TRUE(m_controller.recentDocuments().paths().isEmpty());
}

TEST_F(ZLFileMenuTest, OpeningAnOpenFileBringsItsWindowToTheFront)
{
    const QString path = storedFile(u"show.zelta"_s);
    ZLChapterDocument* document = openFile(path);
    ZLChapterDocument* other = newDocument();
    makeCurrent(other);
    m_windows->open({ path });
    ASSERT_TRUE(QTest::qWaitForWindowActive(&windowOf(document)));
    EXPECT_EQ(m_controller.currentDocument(), document);
    EXPECT_EQ(m_controller.documents().size(), 2);
}

TEST_F(ZLFileMenuTest, RecentFilesAreListedOpenedAndCleared)
{
    ZLChapterDocument* document = newDocument();
    EXPECT_EQ(textsOf(fillRecentMenu(document)), (QStringList { u"-"_s, u"&Clear This List"_s }));
    EXPECT_FALSE(fillRecentMenu(document)->actions().last()->isEnabled());
    addChapter(document, u"Mine"_s);
    const QString path = storedFile(u"this & that.zelta"_s);
    ASSERT_TRUE(m_controller.closeDocument(openFile(path), ZLClosing::Keep));

    QMenu* menu = fillRecentMenu(document);
    EXPECT_EQ(textsOf(menu), (QStringList { u"this && that.zelta"_s, u"-"_s, u"&Clear This List"_s }));
    EXPECT_EQ(menu->actions().first()->toolTip(), path);
    menu->actions().first()->trigger();
    waitUntilRead();
    EXPECT_EQ(names(), (QStringList { u"Untitled"_s, u"this & that.zelta"_s }));

    fillRecentMenu(document)->actions().last()->trigger();
    EXPECT_EQ(textsOf(fillRecentMenu(document)), (QStringList { u"-"_s, u"&Clear This List"_s }));
}

TEST_F(ZLFileMenuTest, DroppedFilesAreOpened)
{
    ZLChapterDocument* document = newDocument();
    addChapter(document, u"Mine"_s);
    QMimeData data;
    data.setUrls({ QUrl::fromLocalFile(storedFile(u"one.zelta"_s)), QUrl::fromLocalFile(storedFile(u"two.zelta"_s)) });
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&windowOf(document), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&windowOf(document), &drop);
    EXPECT_TRUE(drop.isAccepted());
    const QStringList all { u"Untitled"_s, u"one.zelta"_s, u"two.zelta"_s };
    EXPECT_TRUE(QTest::qWaitFor([&] { return names() == all; }, 30'000)) << qPrintable(names().join(u' '));
}

TEST_F(ZLFileMenuTest, RevertGoesBackToTheLastSaveAndCanBeUndone)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    addChapter(document, u"Kept"_s);
    trigger(document, u"save"_s);
    addChapter(document, u"Regretted"_s);
    writeNow(document);
    trigger(document, u"revert"_s);
    EXPECT_EQ(titles(document), (QStringList { u"Stored"_s, u"Kept"_s }));
    trigger(document, u"undo"_s);
    EXPECT_EQ(titles(document), (QStringList { u"Stored"_s, u"Kept"_s, u"Regretted"_s }));
}

TEST_F(ZLFileMenuTest, RevertRestsWhileTheClockRuns)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    addChapter(document, u"Mine"_s);
    EXPECT_TRUE(canRevert(document));
    document->recordButtonPressed();
    EXPECT_FALSE(canRevert(document));
    document->recordButtonPressed();
    EXPECT_TRUE(canRevert(document));
}

TEST_F(ZLFileMenuTest, RevertRestsWhereThereIsNothingToGoBackTo)
{
    ZLChapterDocument* untitled = newDocument();
    addChapter(untitled, u"Mine"_s);
    EXPECT_FALSE(canRevert(untitled));
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    EXPECT_FALSE(canRevert(document));
    addChapter(document, u"Mine"_s);
    writeNow(document);
    EXPECT_TRUE(canRevert(document));
    trigger(document, u"revert"_s);
    EXPECT_FALSE(canRevert(document));
}

TEST_F(ZLFileMenuTest, EachFileThatCannotBeOpenedIsTold)
{
    ZLChapterDocument* document = newDocument();
    for (const QString& name : { u"one.zelta"_s, u"two.zelta"_s, u"one.zelta"_s }) {
        const QStringList problems = openLater({ .files = { filePath(name) } });
        ASSERT_EQ(problems.size(), 1);
        EXPECT_TRUE(problems.first().startsWith(filePath(name)));
    }
    EXPECT_EQ(barText(document).count(u'\n'), 1) << qPrintable(barText(document));
    EXPECT_TRUE(barText(document).contains("one.zelta"_L1));
    EXPECT_TRUE(barText(document).contains("two.zelta"_L1));
}

TEST_F(ZLFileMenuTest, CloseClosesTheWindow)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    newDocument();
    trigger(document, u"close"_s);
    EXPECT_EQ(names(), QStringList { u"Untitled"_s });
}

TEST_F(ZLFileMenuTest, QuitEndsTheProgram)
{
    ZLChapterDocument* document = newDocument();
    EXPECT_EQ(ZLProgramRun::run({ [&] { trigger(document, u"quit"_s); } }), 0);
}
