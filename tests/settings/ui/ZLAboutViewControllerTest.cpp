#include "settings/ui/ZLAboutViewController.h"

#include <QLabel>
#include <QTextBrowser>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLAboutViewControllerTest : public testing::Test {
protected:
    static QTextBrowser& readme(const QWidget& pane) { return *pane.findChild<QTextBrowser*>(u"readmeView"_s); }
};

TEST_F(ZLAboutViewControllerTest, SaysWhatItIs)
{
    const ZLAboutViewController pane({ u"1.2"_s, u"345"_s });
    EXPECT_EQ(pane.identifier(), u"About"_s);
    EXPECT_EQ(pane.toolbarItemLabel(), u"About"_s);
    EXPECT_EQ(pane.toolbarItemImage().name(), u"Info"_s);
    EXPECT_TRUE(pane.hasResizableWidth());
    EXPECT_TRUE(pane.hasResizableHeight());
}

TEST_F(ZLAboutViewControllerTest, ShowsVersionAndBuild)
{
    const ZLAboutViewController pane({ u"1.2"_s, u"345"_s });
    EXPECT_EQ(pane.findChild<QLabel*>(u"versionLabel"_s)->text(), u"1.2 (345)"_s);
}

TEST_F(ZLAboutViewControllerTest, ShowsTheCreditsAsRichText)
{
    const ZLAboutViewController pane({ u"1.2"_s, u"345"_s });
    const QString text = readme(pane).toPlainText();
    EXPECT_TRUE(text.contains(u"Thanks"_s));
    EXPECT_FALSE(text.contains(u"<h3>"_s));
    EXPECT_TRUE(readme(pane).openExternalLinks());
}

TEST_F(ZLAboutViewControllerTest, LinksCanBeReadOnALightAndOnADarkDesktop)
{
    ZLAboutViewController pane({ u"1.2"_s, u"345"_s });
    for (const QColor& color : { QColor(0xf0f0f0), QColor(0x101010) }) {
        QPalette palette = pane.palette();
        palette.setColor(QPalette::Text, color);
        pane.setPalette(palette);
        const QTextCursor link = readme(pane).document()->find(u"Avahi"_s);
        EXPECT_TRUE(link.charFormat().isAnchor());
        EXPECT_EQ(link.charFormat().foreground().color(), color);
    }
}

TEST_F(ZLAboutViewControllerTest, MissingCreditsLeaveTheirPlaceEmpty)
{
    const ZLAboutViewController pane({ u"1.2"_s, u"345"_s }, nullptr, u":/NoSuchCredits.html"_s);
    EXPECT_TRUE(readme(pane).toPlainText().isEmpty());
    EXPECT_EQ(pane.findChild<QLabel*>(u"versionLabel"_s)->text(), u"1.2 (345)"_s);
}
