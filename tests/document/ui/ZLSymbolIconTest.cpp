#include "resources/ZLSymbolIcon.h"

#include <QApplication>
#include <QPalette>
#include <QPixmap>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The colour of the most opaque pixel.
QColor symbolColor(const QImage& image)
{
    QColor color = Qt::transparent;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > color.alpha())
                color = image.pixelColor(x, y);
        }
    }
    return color;
}

QImage symbolImage(const QIcon& icon, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(24, mode).toImage();
}

}

TEST(ZLSymbolIconTest, EverySymbolPaintsSomethingUnderItsName)
{
    for (const QString& name :
        { u"StartButton"_s, u"StopButton"_s, u"AddButton"_s, u"NextChapter"_s, u"DeleteButton"_s, u"DrawerButton"_s }) {
        const QIcon icon = ZLSymbolIcon::named(name);
        EXPECT_EQ(icon.name(), name);
        EXPECT_EQ(symbolColor(symbolImage(icon)).alpha(), 255) << name.toStdString();
    }
    EXPECT_TRUE(ZLSymbolIcon::named(u"Nothing"_s).isNull());
}

TEST(ZLSymbolIconTest, FollowsThePaletteAfterItWasMade)
{
    const QPalette before = QApplication::palette();
    const QIcon icon = ZLSymbolIcon::named(u"StopButton"_s);
    QPalette palette = before;
    palette.setColor(QPalette::Active, QPalette::ButtonText, QColor(0x123456));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x999999));
    QApplication::setPalette(palette);
    EXPECT_EQ(symbolColor(symbolImage(icon)), QColor(0x123456));
    EXPECT_EQ(symbolColor(symbolImage(icon, QIcon::Disabled)), QColor(0x999999));
    const QIcon red = ZLSymbolIcon::named(u"StopButton"_s, QColor(0xc01c28));
    EXPECT_EQ(symbolColor(symbolImage(red)), QColor(0xc01c28));
    EXPECT_EQ(symbolColor(symbolImage(red, QIcon::Disabled)), QColor(0x999999));
    QApplication::setPalette(before);
}

TEST(ZLSymbolIconTest, IsDrawnAnewForTwiceTheResolution)
{
    const QIcon icon = ZLSymbolIcon::named(u"AddButton"_s);
    const QImage sharp = icon.pixmap(QSize(24, 24), 2.0).toImage();
    EXPECT_EQ(sharp.size(), QSize(48, 48));
    EXPECT_NE(sharp, symbolImage(icon).scaled(48, 48));
}
