#include "app/ui/look/ZLBoxStyle.h"

#include "templates/ui/ZLReadableColors.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace {

constexpr float shareOfText = 0.45F;
constexpr double cornerRadius = 2.0;
/// A round line is softer than a straight one, and paler with it.
constexpr double widthOfRoundLine = 1.5;

QColor outlineOf(const QPalette& palette)
{
    const QColor base = palette.color(QPalette::Base);
    const QList<QColor> grounds { base, palette.color(QPalette::Window) };
    const QColor between = ZLReadableColors::mixed(palette.color(QPalette::Text), base, shareOfText);
    return ZLReadableColors::onGrounds(between, grounds, ZLReadableColors::LeastForSigns);
}

/// Only a frame: the style would also paint over the text in it.
void drawCellFrame(const QStyleOption& option, QPainter& painter)
{
    const bool isInSelection = option.state.testFlag(QStyle::State_Selected);
    painter.save();
    painter.setPen(isInSelection ? option.palette.color(QPalette::HighlightedText) : outlineOf(option.palette));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
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
    if (element == PE_FrameFocusRect && qobject_cast<const QAbstractItemView*>(widget)) {
        drawCellFrame(*option, *painter);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isRound = element == PE_IndicatorRadioButton;
    const bool isInSelection = element == PE_IndicatorItemViewItemCheck && option->state.testFlag(State_Selected);
    // The style draws the box of a cell as any other box, so that it has its outline already.
    if (!isRound && element != PE_IndicatorCheckBox && !isInSelection)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const double width = isRound ? widthOfRoundLine : 1.0;
    const QColor color = isInSelection ? option->palette.color(QPalette::HighlightedText) : outlineOf(option->palette);
    painter->setPen(QPen(color, width));
    painter->setBrush(Qt::NoBrush);
    const QRectF outline = QRectF(option->rect).adjusted(width / 2.0, width / 2.0, -width / 2.0, -width / 2.0);
    if (isRound)
        painter->drawEllipse(outline);
    else
        painter->drawRoundedRect(outline, cornerRadius, cornerRadius);
    painter->restore();
}
