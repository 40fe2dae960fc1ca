#include "templates/ui/ZLReadableColors.h"

#include <QPalette>

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

namespace {

constexpr float shareOfTint = 0.16F;
constexpr float shareOfWeakSelection = 0.28F;
constexpr float stepTowardsReadable = 0.04F;
constexpr std::size_t mostKeptColors = 200;
/// By so much may a style on a dark desktop paint the ground of a button lighter, and a tick darker, than the palette
/// says.
/// @{
constexpr int percentOfShadedButton = 155;
constexpr int percentOfShadedTick = 130;
/// @}

double linearComponent(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linearComponent(color.redF()) + 0.7152 * linearComponent(color.greenF())
        + 0.0722 * linearComponent(color.blueF());
}

double leastContrast(const QColor& color, const QList<QColor>& grounds)
{
    double least = 21.0;
    for (const QColor& ground : grounds)
        least = std::min(least, ZLReadableColors::contrast(color, ground));
    return least;
}

/// The colour mixed with `pole` step by step, until it has the contrast.
QColor movedTowards(const QColor& pole, const QColor& color, const QList<QColor>& grounds, double least)
{
    QColor moved = color;
    for (float share = stepTowardsReadable; leastContrast(moved, grounds) < least && share <= 1.0F;
        share += stepTowardsReadable)
        moved = ZLReadableColors::mixed(pole, color, share);
    return moved;
}

/// The darker or lighter colour that can be read on all the grounds.
QColor foundOnGrounds(const QColor& color, const QList<QColor>& grounds, double least)
{
    const QColor darker = movedTowards(Qt::black, color, grounds, least);
    const QColor lighter = movedTowards(Qt::white, color, grounds, least);
    const double darkerContrast = leastContrast(darker, grounds);
    const double lighterContrast = leastContrast(lighter, grounds);
    // Where both will do, the one that had to move less.
    if (std::min(darkerContrast, lighterContrast) >= least)
        return ZLReadableColors::contrast(darker, color) <= ZLReadableColors::contrast(lighter, color) ? darker
                                                                                                       : lighter;
    return darkerContrast >= lighterContrast ? darker : lighter;
}

bool isDark(const QColor& ground)
{
    return ZLReadableColors::contrast(ground, Qt::white) > ZLReadableColors::contrast(ground, Qt::black);
}

void improveGroup(QPalette& palette, QPalette::ColorGroup group)
{
    using namespace ZLReadableColors;
    const auto improve = [&](QPalette::ColorRole role, const QList<QColor>& grounds) {
        const QColor color = palette.color(group, role);
        // Placeholders are often the text's colour, half transparent.
        const QColor opaque = mixed(color, grounds.first(), color.alphaF());
        if (leastContrast(opaque, grounds) < LeastForText)
            palette.setColor(group, role, onGrounds(opaque, grounds));
    };
    const QColor base = palette.color(group, QPalette::Base);
    const QColor window = palette.color(group, QPalette::Window);
    improve(QPalette::Highlight, { palette.color(group, QPalette::HighlightedText) });
    improve(QPalette::PlaceholderText, { base });
    improve(QPalette::Link, { base, window });
    improve(QPalette::LinkVisited, { base, window });
    improve(QPalette::ToolTipText, { palette.color(group, QPalette::ToolTipBase) });
    if (group != QPalette::Disabled)
        return;
    const bool hasDarkWindow = isDark(window);
    // The less light a button's ground, the less light is a text that can be read on it, and looks disabled.
    const QColor button = hasDarkWindow ? window.darker(percentOfShadedButton) : window;
    palette.setColor(group, QPalette::Button, button);
    improve(QPalette::WindowText, { window });
    improve(QPalette::Text, { base, hasDarkWindow ? window.lighter(percentOfShadedTick) : window });
    improve(QPalette::ButtonText, { window, button });
}

}

double ZLReadableColors::contrast(const QColor& first, const QColor& second)
{
    const double darker = std::min(luminance(first), luminance(second));
    const double lighter = std::max(luminance(first), luminance(second));
    return (lighter + 0.05) / (darker + 0.05);
}

QColor ZLReadableColors::mixed(const QColor& first, const QColor& second, float share)
{
    const auto mix = [share](float one, float other) { return share * one + (1.0F - share) * other; };
    return QColor::fromRgbF(
        mix(first.redF(), second.redF()), mix(first.greenF(), second.greenF()), mix(first.blueF(), second.blueF()));
}

QColor ZLReadableColors::tinted(const QColor& ground, const QColor& tint)
{
    return mixed(tint, ground, shareOfTint);
}

QColor ZLReadableColors::onGrounds(const QColor& color, const QList<QColor>& grounds, double least)
{
    // A table asks again for each of its cells, and a palette has few colours.
    using Question = std::tuple<quint64, std::vector<quint64>, double>;
    static thread_local std::map<Question, QColor> found;
    Question question { color.rgba64(), {}, least };
    for (const QColor& ground : grounds)
        std::get<1>(question).push_back(ground.rgba64());
    if (const auto known = found.find(question); known != found.end())
        return known->second;
    if (found.size() >= mostKeptColors)
        found.clear();
    const QColor answer = foundOnGrounds(color, grounds, least);
    found.emplace(std::move(question), answer);
    return answer;
}

QColor ZLReadableColors::weakSelection(const QPalette& palette)
{
    const QColor strong = palette.color(QPalette::Active, QPalette::Highlight);
    const QColor mild = mixed(strong, palette.color(QPalette::Base), shareOfWeakSelection);
    return onGrounds(mild, { palette.color(QPalette::Text) });
}

QPalette ZLReadableColors::improved(const QPalette& palette)
{
    QPalette better = palette;
    for (const QPalette::ColorGroup group : { QPalette::Active, QPalette::Inactive, QPalette::Disabled })
        improveGroup(better, group);
    return better;
}
