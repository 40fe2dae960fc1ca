#include "templates/ui/ZLQuietColor.h"

#include "templates/ui/ZLReadableColors.h"

#include <QPalette>

namespace {

constexpr float shareOfText = 0.65F;

QColor between(const QColor& text, const QColor& ground)
{
    return ZLReadableColors::onGrounds(ZLReadableColors::mixed(text, ground, shareOfText), { ground });
}

}

QColor ZLQuietColor::onBase(const QPalette& palette)
{
    const QColor ground = palette.color(QPalette::Base);
    const QColor quiet = between(palette.color(QPalette::Text), ground);
    return ZLReadableColors::onGrounds(quiet, { ground, palette.color(QPalette::AlternateBase) });
}

QColor ZLQuietColor::onHighlight(const QPalette& palette)
{
    return between(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight));
}
