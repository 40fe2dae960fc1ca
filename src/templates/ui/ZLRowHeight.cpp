#include "templates/ui/ZLRowHeight.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace {

constexpr double pointsPerInch = 72.0;
constexpr double rowExtraPoints = 4.0;

}

int ZLRowHeight::forFontOf(const QWidget& widget)
{
    const QFont& font = widget.font();
    // A font that is set in pixels has no size in points of its own.
    const double points = font.pointSizeF() > 0.0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
    const int wanted = int(std::lround((points + rowExtraPoints) * widget.logicalDpiY() / pointsPerInch));
    return std::max(wanted, widget.fontMetrics().height());
}
