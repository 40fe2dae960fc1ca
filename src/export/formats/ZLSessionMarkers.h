#pragma once

#include <QByteArrayView>
#include <QSet>
#include <QString>

/// A marker of a session, as far as two are the same.
struct ZLSessionMarker {
    qint64 milliseconds = 0;
    QString name {};

    bool operator==(const ZLSessionMarker&) const = default;
};

[[nodiscard]] size_t qHash(const ZLSessionMarker& marker, size_t seed = 0);

/// Reads the markers that a Hindenburg session holds.
namespace ZLSessionMarkers {

/// Every marker with a name and a time, its entities resolved. What is no session has none. Takes time in proportion to
/// the size of the session, whatever that holds.
[[nodiscard]] QSet<ZLSessionMarker> in(QByteArrayView session);

}
