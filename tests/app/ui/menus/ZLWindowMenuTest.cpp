#include "app/ui/menus/ZLWindowMenu.h"

#include "app/ui/ZLDesktopFixture.h"

#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

class ZLWindowMenuTest : public ZLDesktopFixture {
protected:
    /// The items of the documents in the window's menu, as they are when the menu opens.
    [[nodiscard]] QList<QAction*> documentItems(ZLChapterDocument* document)
    {
        auto* menu = windowOf(document).findChild<QMenu*>(u"windowMenu"_s);
        Q_EMIT menu->aboutToShow();
        QList<QAction*> items;
        for (QAction* item : menu->actions()) {
            if (item->objectName().startsWith("showWindow"_L1))
                items.append(item);
        }
        return items;
    }
    [[nodiscard]] QStringList documentTitles(ZLChapterDocument* document)
    {
        QStringList titles;
        for (const QAction* item : documentItems(document))
            titles.append(item->text() + (item->isChecked() ? u" ✓"_s : QString()));
        return titles;
    }
    [[nodiscard]] bool isInFront(ZLChapterDocument* document)
    {
        return QTest::qWaitForWindowActive(&windowOf(document)) && m_controller.currentDocument() == document;
    }
};

TEST_F(ZLWindowMenuTest, TheOpenDocumentsAreListedWithATickAtOnesOwn)
{
    ZLChapterDocument* first = openFile(storedFile(u"Q&A.zelta"_s));
    EXPECT_EQ(documentTitles(first), QStringList { u"&1 Q&&A.zelta ✓"_s });
    ZLChapterDocument* second = newDocument();
    EXPECT_EQ(documentTitles(first), (QStringList { u"&1 Q&&A.zelta ✓"_s, u"&2 Untitled"_s }));
    EXPECT_EQ(documentTitles(second), (QStringList { u"&1 Q&&A.zelta"_s, u"&2 Untitled ✓"_s }));
    windowOf(first).close();
    EXPECT_EQ(documentTitles(second), QStringList { u"&1 Untitled ✓"_s });
}

TEST_F(ZLWindowMenuTest, ARunningClockIsNamed)
{
    ZLChapterDocument* first = newDocument();
    ZLChapterDocument* second = newDocument();
    first->recordButtonPressed();
    EXPECT_EQ(documentTitles(second), (QStringList { u"&1 Untitled (recording)"_s, u"&2 Untitled 2 ✓"_s }));
    first->recordButtonPressed();
}

TEST_F(ZLWindowMenuTest, OnlyNineHaveADigit)
{
    ZLChapterDocument* first = newDocument();
    for (int count = 0; count < 9; ++count)
        newDocument();
    EXPECT_EQ(documentTitles(first).at(8), u"&9 Untitled 9"_s);
    EXPECT_EQ(documentTitles(first).at(9), u"Untitled 10"_s);
}

TEST_F(ZLWindowMenuTest, AnItemBringsItsWindowToTheFront)
{
    ZLChapterDocument* first = newDocument();
    ZLChapterDocument* second = newDocument();
    makeCurrent(second);
    windowOf(first).showMinimized();
    documentItems(second).first()->trigger();
    EXPECT_TRUE(isInFront(first));
    EXPECT_FALSE(windowOf(first).isMinimized());
}

TEST_F(ZLWindowMenuTest, NextAndPreviousGoRound)
{
    const QList<ZLChapterDocument*> documents { newDocument(), newDocument(), newDocument() };
    makeCurrent(documents.at(1));
    trigger(documents.at(1), u"nextWindow"_s);
    EXPECT_TRUE(isInFront(documents.at(2)));
    trigger(documents.at(2), u"nextWindow"_s);
    EXPECT_TRUE(isInFront(documents.at(0)));
    trigger(documents.at(0), u"previousWindow"_s);
    EXPECT_TRUE(isInFront(documents.at(2)));
}

TEST_F(ZLWindowMenuTest, AWindowCanBePutAway)
{
    ZLChapterDocument* document = newDocument();
    trigger(document, u"minimize"_s);
    EXPECT_TRUE(windowOf(document).isMinimized());
}
