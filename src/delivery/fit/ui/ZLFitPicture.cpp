#include "delivery/fit/ui/ZLFitPicture.h"

#include "lists/ZLListTime.h"
#include "templates/ui/ZLReadableColors.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace {

constexpr int linesHigh = 7;
constexpr int leastLinesHigh = 5;
constexpr int charactersWide = 40;
constexpr double margin = 4.0;
constexpr float shareOfPieces = 0.7F;
constexpr float shareOfBands = 0.38F;
constexpr float shareOfHatching = 0.4F;
constexpr double widthOfMark = 1.5;
constexpr double widthOfSelectedMark = 3.5;

/// A share of `color` on the ground of a list, told apart from it.
QColor sign(const QPalette& palette, QPalette::ColorRole color, float share)
{
    const QColor ground = palette.color(QPalette::Base);
    return ZLReadableColors::onGrounds(
        ZLReadableColors::mixed(palette.color(color), ground, share), { ground }, ZLReadableColors::LeastForSigns);
}

QColor pieceColor(const QPalette& palette)
{
    return sign(palette, QPalette::Highlight, shareOfPieces);
}

QColor bandColor(const QPalette& palette)
{
    return ZLReadableColors::mixed(palette.color(QPalette::Highlight), palette.color(QPalette::Base), shareOfBands);
}

/// What one side has alone: cut out of the show, or brought into the file.
QBrush hatching(const QPalette& palette, Qt::BrushStyle style)
{
    return { sign(palette, QPalette::Text, shareOfHatching), style };
}

struct LegendEntry {
    QString text;
    QBrush brush;
};

QList<LegendEntry> legendOf(const ZLFit& fit, const QPalette& palette)
{
    QList<LegendEntry> entries { { ZLFitPicture::tr("in both"), pieceColor(palette) },
        { ZLFitPicture::tr("cut out"), hatching(palette, Qt::BDiagPattern) },
        { ZLFitPicture::tr("came in"), hatching(palette, Qt::Dense6Pattern) } };
    if (!fit.alignment.movedPieces.empty())
        entries.append({ ZLFitPicture::tr("played elsewhere too"), hatching(palette, Qt::VerPattern) });
    return entries;
}

}

ZLFitPicture::ZLFitPicture(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Picture of the fit"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void ZLFitPicture::setFit(const std::optional<ZLFit>& fit)
{
    m_fit = fit;
    m_selected = std::min(m_selected, fit ? int(fit->chapters.size()) - 1 : -1);
    describe();
    update();
}

void ZLFitPicture::setSelectedMark(int index)
{
    if (std::exchange(m_selected, index) != index)
        update();
}

QPoint ZLFitPicture::pointOf(int index) const
{
    return m_fit ? layoutOfFit().line(m_fit->chapters.value(index)).first().toPoint() + QPoint(0, int(margin))
                 : QPoint();
}

QSize ZLFitPicture::sizeHint() const
{
    return { fontMetrics().averageCharWidth() * charactersWide, fontMetrics().height() * linesHigh };
}

QSize ZLFitPicture::minimumSizeHint() const
{
    return { fontMetrics().averageCharWidth() * charactersWide, fontMetrics().height() * leastLinesHigh };
}

void ZLFitPicture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().brush(QPalette::Base));
    if (m_fit) {
        const ZLFitPictureLayout layout = layoutOfFit();
        drawBars(painter, layout);
        drawPieces(painter, layout);
        drawMarks(painter, layout);
        drawNames(painter);
        drawLegend(painter);
    }
    const QColor frame = palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid);
    painter.setPen(QPen(frame, hasFocus() ? 2.0 : 1.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void ZLFitPicture::mousePressEvent(QMouseEvent* event)
{
    const int index = m_fit ? layoutOfFit().markAt(event->position()) : -1;
    if (event->button() != Qt::LeftButton || index < 0)
        return;
    select(index);
    Q_EMIT playRequested();
}

void ZLFitPicture::keyPressEvent(QKeyEvent* event)
{
    const int last = m_fit ? int(m_fit->chapters.size()) - 1 : -1;
    switch (event->key()) {
    case Qt::Key_Left:
        return select(std::max(m_selected - 1, std::min(0, last)));
    case Qt::Key_Right:
        return select(std::min(m_selected + 1, last));
    case Qt::Key_Home:
        return select(std::min(0, last));
    case Qt::Key_End:
        return select(last);
    case Qt::Key_Space:
        return Q_EMIT playRequested();
    default:
        QWidget::keyPressEvent(event);
    }
}

/// Between the names of both sides, above the legend.
QRectF ZLFitPicture::area() const
{
    const double line = fontMetrics().height();
    return QRectF(rect()).adjusted(2.0 * margin, line + margin, -2.0 * margin, -2.0 * line - margin);
}

void ZLFitPicture::select(int index)
{
    if (index < 0 || index == m_selected)
        return;
    setSelectedMark(index);
    Q_EMIT markSelected(index);
}

void ZLFitPicture::describe()
{
    setAccessibleDescription(m_fit
            ? tr("Pieces of the show that are in the finished file: %1. The list below has every "
                 "mark.")
                  .arg(m_fit->alignment.pieces.size())
            : QString());
}

void ZLFitPicture::drawBars(QPainter& painter, const ZLFitPictureLayout& layout) const
{
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(hatching(palette(), Qt::BDiagPattern));
    painter.drawRect(layout.showBar());
    painter.setBrush(hatching(palette(), Qt::Dense6Pattern));
    painter.drawRect(layout.fileBar());
}

void ZLFitPicture::drawPieces(QPainter& painter, const ZLFitPictureLayout& layout) const
{
    painter.setPen(Qt::NoPen);
    for (const ZLSoundPiece& piece : m_fit->alignment.pieces) {
        painter.setBrush(bandColor(palette()));
        painter.drawPolygon(layout.band(piece));
        for (const QRectF& part : { layout.inShow(piece), layout.inFile(piece) }) {
            painter.setBrush(palette().brush(QPalette::Base));
            painter.drawRect(part);
            painter.setBrush(pieceColor(palette()));
            painter.drawRect(part);
        }
    }
    for (const ZLSoundPiece& piece : m_fit->alignment.movedPieces) {
        painter.setBrush(palette().brush(QPalette::Base));
        painter.drawRect(layout.inFile(piece));
        painter.setBrush(hatching(palette(), Qt::VerPattern));
        painter.drawRect(layout.inFile(piece));
    }
}

void ZLFitPicture::drawMarks(QPainter& painter, const ZLFitPictureLayout& layout) const
{
    for (int index = 0; index < int(m_fit->chapters.size()); ++index) {
        if (index != m_selected)
            drawMark(painter, layout, index);
    }
    // Above all others.
    if (m_selected >= 0 && m_selected < m_fit->chapters.size())
        drawMark(painter, layout, m_selected);
}

void ZLFitPicture::drawMark(QPainter& painter, const ZLFitPictureLayout& layout, int index) const
{
    const ZLFittedChapter& mark = m_fit->chapters.at(index);
    QPen pen(palette().color(QPalette::Text), index == m_selected ? widthOfSelectedMark : widthOfMark);
    if (mark.place.state != ZLMomentState::Kept)
        pen.setStyle(Qt::DotLine);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(layout.line(mark));
}

void ZLFitPicture::drawNames(QPainter& painter) const
{
    painter.setPen(palette().color(QPalette::Text));
    const QRectF area = this->area();
    const double line = fontMetrics().height();
    painter.drawText(QRectF(area.left(), area.top() - line, area.width(), line), Qt::AlignLeft | Qt::AlignVCenter,
        tr("The show, %1").arg(ZLListTime::shortClock(m_fit->alignment.showLength)));
    painter.drawText(QRectF(area.left(), area.bottom(), area.width(), line), Qt::AlignLeft | Qt::AlignVCenter,
        tr("The finished file, %1").arg(ZLListTime::shortClock(m_fit->alignment.fileLength)));
}

void ZLFitPicture::drawLegend(QPainter& painter) const
{
    const double line = fontMetrics().height();
    double x = area().left();
    const double top = area().bottom() + line;
    const QList<LegendEntry> entries = legendOf(*m_fit, palette());
    for (const LegendEntry& entry : entries) {
        const QRectF swatch(x, top + line * 0.15, line, line * 0.7);
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(entry.brush);
        painter.drawRect(swatch);
        painter.setPen(palette().color(QPalette::Text));
        const double width = fontMetrics().horizontalAdvance(entry.text);
        painter.drawText(QRectF(swatch.right() + margin, top, width + margin, line), Qt::AlignVCenter, entry.text);
        x = swatch.right() + width + line;
    }
}
