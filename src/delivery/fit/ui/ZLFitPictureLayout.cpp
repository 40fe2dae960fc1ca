#include "delivery/fit/ui/ZLFitPictureLayout.h"

#include <QLineF>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double shareOfBar = 0.24;
constexpr double leastSeconds = 1.0;

/// Of `point` to the part of a line between both ends.
double distanceToLine(const QPointF& point, const QPointF& from, const QPointF& to)
{
    const QPointF way = to - from;
    const double length = QPointF::dotProduct(way, way);
    const double share = length > 0.0 ? std::clamp(QPointF::dotProduct(point - from, way) / length, 0.0, 1.0) : 0.0;
    return QLineF(point, from + share * way).length();
}

}

ZLFitPictureLayout::ZLFitPictureLayout(const ZLFit& fit, const QRectF& area)
    : m_fit(fit)
    , m_area(area)
    , m_pointsPerSecond(area.width() / std::max({ fit.alignment.showLength, fit.alignment.fileLength, leastSeconds }))
{
}

QRectF ZLFitPictureLayout::showBar() const
{
    return { x(0.0), m_area.top(), m_fit.alignment.showLength * m_pointsPerSecond, m_area.height() * shareOfBar };
}

QRectF ZLFitPictureLayout::fileBar() const
{
    const double height = m_area.height() * shareOfBar;
    return { x(0.0), m_area.bottom() - height, m_fit.alignment.fileLength * m_pointsPerSecond, height };
}

QPolygonF ZLFitPictureLayout::band(const ZLSoundPiece& piece) const
{
    const QRectF above = inShow(piece);
    const QRectF below = inFile(piece);
    return QPolygonF({ above.bottomLeft(), above.bottomRight(), below.topRight(), below.topLeft() });
}

QRectF ZLFitPictureLayout::inShow(const ZLSoundPiece& piece) const
{
    const QRectF bar = showBar();
    return { QPointF(x(piece.showStart), bar.top()), QPointF(x(piece.showEnd()), bar.bottom()) };
}

QRectF ZLFitPictureLayout::inFile(const ZLSoundPiece& piece) const
{
    const QRectF bar = fileBar();
    return { QPointF(x(piece.fileStart), bar.top()), QPointF(x(piece.fileEnd()), bar.bottom()) };
}

QPolygonF ZLFitPictureLayout::line(const ZLFittedChapter& mark) const
{
    const double above = x(mark.mark.showTime + m_fit.zero);
    QPolygonF line({ QPointF(above, showBar().top()), QPointF(above, showBar().bottom()) });
    if (mark.isFound()) {
        const double below = x(mark.place.fileTime);
        line << QPointF(below, fileBar().top()) << QPointF(below, fileBar().bottom());
    }
    return line;
}

int ZLFitPictureLayout::markAt(const QPointF& point) const
{
    int nearest = -1;
    double least = Reach;
    for (int index = 0; index < int(m_fit.chapters.size()); ++index) {
        const double away = distance(m_fit.chapters.at(index), point);
        if (away < least) {
            least = away;
            nearest = index;
        }
    }
    return nearest;
}

double ZLFitPictureLayout::x(double seconds) const
{
    // Times that were typed may lie anywhere.
    return m_area.left() + std::clamp(seconds * m_pointsPerSecond, 0.0, m_area.width());
}

double ZLFitPictureLayout::distance(const ZLFittedChapter& mark, const QPointF& point) const
{
    const QPolygonF points = line(mark);
    double least = std::numeric_limits<double>::infinity();
    for (qsizetype index = 1; index < points.size(); ++index)
        least = std::min(least, distanceToLine(point, points.at(index - 1), points.at(index)));
    return least;
}
