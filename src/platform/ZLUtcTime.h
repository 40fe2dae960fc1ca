#pragma once

#include <QDateTime>

/// Moments on the world's clock.
namespace ZLUtcTime {

/// `milliseconds` since the beginning of 1970.
[[nodiscard]] QDateTime fromMilliseconds(qint64 milliseconds);

}
