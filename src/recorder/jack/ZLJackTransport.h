#pragma once

#include <QtGlobal>

/// The transport of a JACK server, at one moment.
struct ZLJackTransport {
    bool isRolling = false;
    qint64 frame = 0;
    double framesPerSecond = 0.0;
    /// When it was there: microseconds of the server's own clock.
    quint64 microseconds = 0;

    bool operator==(const ZLJackTransport&) const = default;
};
