#pragma once

#include "alignment/ZLSoundFingerprint.h"
#include "platform/ZLResult.h"
#include "platform/ZLWorkProgress.h"

#include <QString>

/// How media files sound, for comparing them.
namespace ZLHeardSound {

/// The fingerprint of the sound in a file; what was heard so far when it is cancelled. The error names the file.
/// The progress stays at 0 while it is not known how long the sound is.
[[nodiscard]] ZLResult<ZLSoundFingerprint> fingerprintOf(const QString& path, ZLWorkProgress& progress);

}
