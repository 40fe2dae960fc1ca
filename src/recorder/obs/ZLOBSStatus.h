#pragma once

#include <QtGlobal>

/// What OBS Studio says of its recording when it is asked once.
struct ZLOBSStatus {
    /// Between these moments, in seconds of the host clock, it was so.
    double asked = 0.0;
    double answered = 0.0;
    bool isActive = false;
    bool isPaused = false;
    /// Frames that have left the encoder for the file, as seconds. An encoder that looks ahead gives them late.
    double duration = 0.0;
    /// Frames that went into the encoders since the first of all outputs started, also while the recording is paused.
    qint64 frames = 0;
};
