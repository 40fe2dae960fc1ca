#include "document/ui/ZLMessageBar.h"

#include <QAccessible>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLMessageBarTest, ShowsASentenceAndItsButtons)
{
    ZLMessageBar bar;
    EXPECT_TRUE(bar.isHidden());
    bar.showMessage(u"The file changed on disk."_s, { { u"Reload"_s, {} }, { u"Keep Mine"_s, {} } });
    EXPECT_FALSE(bar.isHidden());
    EXPECT_EQ(bar.text(), u"The file changed on disk."_s);
    EXPECT_EQ(bar.findChildren<QPushButton*>().size(), 2);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&bar)->text(QAccessible::Name), bar.text());
}

TEST(ZLMessageBarTest, ShowsAtMostThreeButtons)
{
    ZLMessageBar bar;
    bar.showMessage(u"Choose."_s, { { u"1"_s, {} }, { u"2"_s, {} }, { u"3"_s, {} }, { u"4"_s, {} } });
    EXPECT_EQ(bar.findChildren<QPushButton*>().size(), 3);
}

TEST(ZLMessageBarTest, AButtonHidesTheBarAndMayShowTheNextMessage)
{
    ZLMessageBar bar;
    int calls = 0;
    bar.showMessage(u"First."_s, { { u"Go"_s, [&] {
                                        ++calls;
                                        EXPECT_TRUE(bar.isHidden());
                                        bar.showMessage(u"Second."_s, {});
                                    } } });
    QTest::mouseClick(bar.findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(bar.text(), u"Second."_s);
    EXPECT_EQ(bar.findChildren<QPushButton*>().size(), 0);
    bar.hideMessage();
    EXPECT_TRUE(bar.isHidden());
    EXPECT_EQ(bar.text(), QString());
}
