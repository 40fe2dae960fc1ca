#pragma once

#include <QString>

/// One output that a sound can be played on.
struct ZLOutputDevice {
    /// Stays the same over restarts; this is what is stored and handed to ZLSound.
    QString id;
    /// What people know the device by; only to be shown.
    QString name;

    bool operator==(const ZLOutputDevice&) const = default;
};
