#include "document/ui/ZLRecordingColors.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

namespace {

constexpr QRgb deepRed = 0xffc01c28;
constexpr QRgb brightRed = 0xffef5350;

double linearComponent(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linearComponent(color.redF()) + 0.7152 * linearComponent(color.greenF())
        + 0.0722 * linearComponent(color.blueF());
}

}

QColor ZLRecordingColors::red(const QPalette& palette)
{
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const QColor deep(deepRed);
    const QColor bright(brightRed);
    return contrast(deep, window) >= contrast(bright, window) ? deep : bright;
}

double ZLRecordingColors::contrast(const QColor& first, const QColor& second)
{
    const double darker = std::min(luminance(first), luminance(second));
    const double lighter = std::max(luminance(first), luminance(second));
    return (lighter + 0.05) / (darker + 0.05);
}
