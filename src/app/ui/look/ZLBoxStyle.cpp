#include "app/ui/look/ZLBoxStyle.h"

#include "templates/ui/ZLReadableColors.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace {

constexpr float shareOfText = 0.45F;
constexpr double cornerRadius = 2.0;

QColor outlineOf(const QPalette& palette)
{
    const QColor base = palette.color(QPalette::Base);
    const QList<QColor> grounds { base, palette.color(QPalette::Window) };
    const QColor between = ZLReadableColors::mixed(palette.color(QPalette::Text), base, shareOfText);
    return ZLReadableColors::onGrounds(between, grounds, ZLReadableColors::LeastForSigns);
}

}

void ZLBoxStyle::install()
{
    if (QApplication::style()->name() == QLatin1StringView("fusion"))
        QApplication::setStyle(new ZLBoxStyle);
}

void ZLBoxStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_IndicatorCheckBox && element != PE_IndicatorItemViewItemCheck)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool isInSelection = element == PE_IndicatorItemViewItemCheck && option->state.testFlag(State_Selected);
    painter->setPen(isInSelection ? option->palette.color(QPalette::HighlightedText) : outlineOf(option->palette));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    painter->restore();
}
