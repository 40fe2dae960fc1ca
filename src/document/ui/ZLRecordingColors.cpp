#include "document/ui/ZLRecordingColors.h"

#include "templates/ui/ZLReadableColors.h"

#include <QPalette>

namespace {

constexpr QRgb deepRed = 0xffc01c28;
constexpr QRgb brightRed = 0xffff5a55;

}

QColor ZLRecordingColors::red(const QPalette& palette)
{
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const QColor button = palette.color(QPalette::Active, QPalette::Button);
    const bool isLight = ZLReadableColors::contrast(deepRed, window) >= ZLReadableColors::contrast(brightRed, window);
    const QColor readable = ZLReadableColors::onGrounds(isLight ? deepRed : brightRed, { window });
    // Styles shade buttons around their colour; only signs stand on them.
    return ZLReadableColors::onGrounds(readable, { button, button.lighter(120) }, ZLReadableColors::LeastForSigns);
}
