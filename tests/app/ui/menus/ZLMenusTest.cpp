#include "app/ui/ZLDesktopFixture.h"
#include "export/formats/ZLRegisterExporters.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

/// All menus of a window together.
class ZLMenusTest : public ZLDesktopFixture {
protected:
    void SetUp() override
    {
        ZLDesktopFixture::SetUp();
        m_document = openFile(storedFile(u"show.zelta"_s));
    }

    static QList<QAction*> itemsBelow(const QList<QAction*>& actions)
    {
        QList<QAction*> items;
        for (QAction* action : actions) {
            if (action->menu())
                items += itemsBelow(action->menu()->actions());
            else if (!action->isSeparator())
                items.append(action);
        }
        return items;
    }
    static QList<QMenu*> menusBelow(const QList<QAction*>& actions)
    {
        QList<QMenu*> menus;
        for (const QAction* action : actions) {
            if (action->menu())
                menus += QList<QMenu*> { action->menu() } + menusBelow(action->menu()->actions());
        }
        return menus;
    }
    [[nodiscard]] QList<QAction*> items() { return itemsBelow(windowOf(m_document).menuBar()->actions()); }

    ZLChapterDocument* m_document = nullptr;
};

TEST_F(ZLMenusTest, TheMenusStandInTheirUsualOrder)
{
    QStringList titles;
    for (const QAction* menu : windowOf(m_document).menuBar()->actions())
        titles.append(menu->text().remove(u'&'));
    EXPECT_EQ(titles, (QStringList { u"File"_s, u"Edit"_s, u"Recording"_s, u"View"_s, u"Window"_s, u"Help"_s }));
}

TEST_F(ZLMenusTest, EveryActionHasATextANameAndAToolTip)
{
    EXPECT_GE(items().size(), 30);
    for (const QAction* item : items()) {
        EXPECT_FALSE(item->text().isEmpty());
        EXPECT_FALSE(item->objectName().isEmpty()) << qPrintable(item->text());
        EXPECT_FALSE(item->toolTip().isEmpty()) << qPrintable(item->text());
        const QString key = item->shortcut().toString(QKeySequence::NativeText);
        EXPECT_TRUE(item->toolTip().contains(key)) << qPrintable(item->toolTip());
    }
}

TEST_F(ZLMenusTest, TheToolTipsOfAllMenusAreShown)
{
    const auto menus = menusBelow(windowOf(m_document).menuBar()->actions());
    EXPECT_GE(menus.size(), 7);
    for (const QMenu* menu : menus)
        EXPECT_TRUE(menu->toolTipsVisible()) << qPrintable(menu->objectName());
}

TEST_F(ZLMenusTest, NoTwoActionsShareAKey)
{
    QHash<QKeySequence, QString> owners;
    for (const QAction* item : items()) {
        for (const QKeySequence& key : item->shortcuts()) {
            EXPECT_FALSE(owners.contains(key)) << qPrintable(item->text() + u" and "_s + owners.value(key));
            owners.insert(key, item->text());
        }
    }
    EXPECT_GE(owners.size(), 20);
}

TEST_F(ZLMenusTest, NoTwoItemsOfAMenuShareALetter)
{
    QList<QList<QAction*>> levels { windowOf(m_document).menuBar()->actions() };
    while (!levels.isEmpty()) {
        QHash<QChar, QString> owners;
        const auto level = levels.takeFirst();
        for (const QAction* item : level) {
            if (item->menu())
                levels.append(item->menu()->actions());
            const QString text = item->text().remove(u"&&"_s);
            const qsizetype mark = text.indexOf(u'&');
            if (mark < 0)
                continue;
            const QChar letter = text.at(mark + 1).toLower();
            EXPECT_FALSE(owners.contains(letter)) << qPrintable(text + u" and "_s + owners.value(letter));
            owners.insert(letter, text);
        }
    }
}

TEST_F(ZLMenusTest, AboutAsksWhoeverOwnsTheWindows)
{
    const QSignalSpy requests(m_windows.get(), &ZLDocumentWindows::aboutRequested);
    trigger(m_document, u"showAbout"_s);
    EXPECT_EQ(requests.size(), 1);
}
