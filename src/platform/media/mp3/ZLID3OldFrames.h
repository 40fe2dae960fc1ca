#pragma once

#include "platform/media/mp3/ZLID3Tag.h"

/// Frames of version 2.2, which have names of three letters, as frames of version 2.3.
namespace ZLID3OldFrames {

/// No more than `most` are looked at. `lost` becomes the number of those that version 2.3 has no name for.
[[nodiscard]] QList<ZLID3Frame> converted(const QByteArray& body, qsizetype most, int& lost);

}
