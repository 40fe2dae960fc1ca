#include "app/ui/listening/ZLListeningLamp.h"

#include "templates/ui/ZLReadableColors.h"

#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <algorithm>
#include <cmath>

namespace {

constexpr QRgb hearingGreen = 0xff2e7d32;
constexpr QRgb silentAmber = 0xffb26a00;
constexpr QRgb missingRed = 0xffc01c28;
/// For screens of any density.
constexpr qreal sharpness = 3.0;
constexpr qreal lampSize = 9.0;
constexpr qreal firstBar = 15.5;
constexpr qreal barWidth = 2.5;
constexpr qreal barStep = 4.0;

QColor lampColor(ZLListeningState state, const QPalette& palette)
{
    const QColor ground = palette.color(QPalette::Active, QPalette::Window);
    QColor color = palette.color(QPalette::Active, QPalette::WindowText);
    if (state == ZLListeningState::Hearing)
        color = hearingGreen;
    else if (state == ZLListeningState::Silent)
        color = silentAmber;
    else if (state == ZLListeningState::Missing || state == ZLListeningState::NoServer)
        color = missingRed;
    return ZLReadableColors::onGrounds(color, { ground }, ZLReadableColors::LeastForSigns);
}

void drawLamp(QPainter& painter, ZLListeningState state, const QColor& color)
{
    const QRectF lamp(1.0, (ZLListeningLamp::Size.height() - lampSize) / 2.0, lampSize, lampSize);
    painter.setPen(QPen(color, 1.5));
    painter.setBrush(state == ZLListeningState::Hearing ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawEllipse(lamp);
    if (state != ZLListeningState::Silent)
        return;
    painter.setBrush(color);
    painter.drawPie(lamp, 180 * 16, 180 * 16);
}

void drawBars(QPainter& painter, int litCount, const QColor& lit, const QColor& unlit)
{
    painter.setPen(Qt::NoPen);
    for (int bar = 0; bar < ZLListeningLamp::BarCount; ++bar) {
        const qreal height = 3.0 + 1.5 * bar;
        painter.setBrush(bar < litCount ? lit : unlit);
        painter.drawRect(
            QRectF(firstBar + barStep * bar, ZLListeningLamp::Size.height() - 1.5 - height, barWidth, height));
    }
}

}

int ZLListeningLamp::litBars(double level)
{
    return std::clamp(int(std::ceil(level * BarCount)), 0, BarCount);
}

QIcon ZLListeningLamp::icon(ZLListeningState state, int bars, const QPalette& palette)
{
    QPixmap pixmap(Size * sharpness);
    pixmap.setDevicePixelRatio(sharpness);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = lampColor(state, palette);
    const QColor unlit = ZLReadableColors::mixed(palette.color(QPalette::Active, QPalette::WindowText),
        palette.color(QPalette::Active, QPalette::Window), 0.25F);
    drawLamp(painter, state, color);
    drawBars(painter, bars, color, unlit);
    return QIcon(pixmap);
}
