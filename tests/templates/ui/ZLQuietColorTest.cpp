#include "templates/ui/ZLQuietColor.h"

#include <QPalette>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

double quietLuminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double quietContrast(const QColor& first, const QColor& second)
{
    const auto [darker, lighter] = std::minmax({ quietLuminance(first), quietLuminance(second) });
    return (lighter + 0.05) / (darker + 0.05);
}

QPalette paletteOf(const QColor& text, const QColor& base)
{
    QPalette palette;
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, base);
    palette.setColor(QPalette::HighlightedText, text);
    palette.setColor(QPalette::Highlight, base);
    // As dark desktops leave it.
    palette.setColor(QPalette::PlaceholderText, Qt::black);
    return palette;
}

}

TEST(ZLQuietColorTest, ItIsReadableAndStandsBackInLightAndDark)
{
    for (const QPalette& palette :
        { paletteOf(Qt::black, Qt::white), paletteOf(QColor(239, 240, 241), QColor(35, 38, 41)) }) {
        const QColor base = palette.color(QPalette::Base);
        for (const QColor& quiet : { ZLQuietColor::onBase(palette), ZLQuietColor::onHighlight(palette) }) {
            EXPECT_GE(quietContrast(quiet, base), 4.5);
            EXPECT_LT(quietContrast(quiet, base), 0.7 * quietContrast(palette.color(QPalette::Text), base));
        }
    }
}
