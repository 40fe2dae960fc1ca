#pragma once

#include "alignment/ZLSoundFingerprint.h"
#include "document/shared/ZLRecorderFiles.h"
#include "listening/ZLListeningData.h"
#include "platform/ZLResult.h"
#include "platform/ZLWorkProgress.h"

#include <QString>

/// How media files sound, and shows that were heard along, for comparing them.
namespace ZLHeardSound {

/// The fingerprint of the sound in a file; what was heard so far when it is cancelled. The error names the file.
/// The progress stays at 0 while it is not known how long the sound is.
[[nodiscard]] ZLResult<ZLSoundFingerprint> fingerprintOf(const QString& path, ZLWorkProgress& progress);

/// The show as the files of the recorder have it, each in its place. The error names the file that cannot be heard.
[[nodiscard]] ZLResult<ZLHeardShow> recorded(const QList<ZLRecorderFile>& files, ZLWorkProgress& progress);

/// What a document has of listening along, from its root key ZLListeningData::Key. An error when that is nothing.
[[nodiscard]] ZLResult<ZLHeardShow> heardAlong(const QVariant& stored);

}
