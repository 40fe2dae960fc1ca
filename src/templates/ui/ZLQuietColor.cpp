#include "templates/ui/ZLQuietColor.h"

#include <QPalette>

namespace {

constexpr float shareOfText = 0.65F;

QColor mixed(const QColor& text, const QColor& ground)
{
    const auto mix = [](float first, float second) { return shareOfText * first + (1.0F - shareOfText) * second; };
    return QColor::fromRgbF(
        mix(text.redF(), ground.redF()), mix(text.greenF(), ground.greenF()), mix(text.blueF(), ground.blueF()));
}

}

QColor ZLQuietColor::onBase(const QPalette& palette)
{
    return mixed(palette.color(QPalette::Text), palette.color(QPalette::Base));
}

QColor ZLQuietColor::onHighlight(const QPalette& palette)
{
    return mixed(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight));
}
