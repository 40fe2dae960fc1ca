#pragma once

#include "delivery/fit/ZLFitJob.h"

#include <QByteArray>
#include <QString>

/// Finds where in the recording of a show the recording clock started, in seconds. The errors name the recording.
namespace ZLClockStart {

/// By the beep before the start, whose end is the start. `beep` has the bytes of its sound file.
[[nodiscard]] ZLResult<double> byBeep(const QString& recordingPath, const QByteArray& beep, ZLWorkProgress& progress);

/// By what was heard along of the show, of which a part will do.
[[nodiscard]] ZLResult<double> byHeard(
    const QString& recordingPath, const ZLShowSound& heard, ZLWorkProgress& progress);

}
