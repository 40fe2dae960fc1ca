#include "platform/window/ZLWindowPlace.h"

#include <QMargins>

#include <algorithm>

namespace {

/// A title bar and borders, generously.
constexpr QMargins frame { 6, 38, 6, 6 };

bool isTaken(QPoint place, const QList<QPoint>& taken)
{
    return std::any_of(taken.cbegin(), taken.cend(), [place](QPoint other) {
        return (other - place).manhattanLength() < ZLWindowPlace::step.manhattanLength() / 2;
    });
}

bool hasRoom(QPoint place, QSize size, const QRect& available)
{
    const QSize room = ZLWindowPlace::roomAt(place, available);
    return available.contains(place) && room.width() >= size.width() && room.height() >= size.height();
}

}

QSize ZLWindowPlace::roomAt(QPoint place, const QRect& available)
{
    const QPoint corner = available.topLeft() + QPoint(available.width(), available.height());
    return QSize(corner.x() - place.x(), corner.y() - place.y()).shrunkBy(frame);
}

QRect ZLWindowPlace::fitted(QPoint place, QSize size, const QRect& available)
{
    const QSize fitting = size.boundedTo(roomAt(available.topLeft(), available));
    const QSize framed = fitting.grownBy(frame);
    const auto moved = [](int wanted, int first, int room, int length) {
        return std::clamp(wanted, first, std::max(first, first + room - length));
    };
    return { QPoint(moved(place.x(), available.x(), available.width(), framed.width()),
                 moved(place.y(), available.y(), available.height(), framed.height())),
        fitting };
}

QRect ZLWindowPlace::returned(const QRect& contents, const QRect& available)
{
    const QSize size = contents.size().boundedTo(roomAt(available.topLeft(), available));
    const auto moved = [](int wanted, int first, int lastStart, int border) {
        return wanted < first ? first + border : std::min(wanted, lastStart);
    };
    const QPoint lastStart = available.topLeft() + QPoint(frame.left(), frame.top())
        + QPoint(available.width(), available.height())
        - QPoint(size.grownBy(frame).width(), size.grownBy(frame).height());
    return { QPoint(moved(contents.x(), available.x(), lastStart.x(), frame.left()),
                 moved(contents.y(), available.y(), lastStart.y(), frame.top())),
        size };
}

QRect ZLWindowPlace::cascaded(QPoint front, QSize size, QSize least, const QList<QPoint>& taken, const QRect& available)
{
    QPoint place = front + step;
    int rows = 0;
    for (qsizetype tries = 0; tries < 2 * taken.size() + 2; ++tries) {
        // A row of windows that reaches the edge of the screen goes on beside its beginning.
        if (!hasRoom(place, least, available))
            place = available.topLeft() + QPoint(rows++ * step.x(), 0);
        if (!isTaken(place, taken))
            break;
        place += step;
    }
    return fitted(place, size.boundedTo(roomAt(place, available)).expandedTo(least), available);
}
