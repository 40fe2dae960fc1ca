#pragma once

#include "delivery/fit/ZLFit.h"

#include <QPolygonF>
#include <QRectF>

/// Where everything of a fit lies in its picture: the show in a bar above, the finished file in a bar below, both on
/// one scale, so that equal lengths look equal.
class ZLFitPictureLayout {
public:
    /// Nobody means to hit what is farther away from the pointer.
    static constexpr double Reach = 8.0;

    /// `area` has the bars and what lies between them.
    ZLFitPictureLayout(const ZLFit& fit, const QRectF& area);

    [[nodiscard]] QRectF showBar() const;
    [[nodiscard]] QRectF fileBar() const;
    /// What both have of a piece, joined.
    [[nodiscard]] QPolygonF band(const ZLSoundPiece& piece) const;
    [[nodiscard]] QRectF inShow(const ZLSoundPiece& piece) const;
    [[nodiscard]] QRectF inFile(const ZLSoundPiece& piece) const;
    /// From the upper edge of the show to the lower edge of the file; of a mark that was not found, through the show
    /// alone.
    [[nodiscard]] QPolygonF line(const ZLFittedChapter& mark) const;
    /// Of the mark nearest to `point`; -1 when there is none within Reach.
    [[nodiscard]] int markAt(const QPointF& point) const;

private:
    [[nodiscard]] double x(double seconds) const;
    [[nodiscard]] double distance(const ZLFittedChapter& mark, const QPointF& point) const;

    const ZLFit& m_fit;
    QRectF m_area;
    double m_pointsPerSecond;
};
