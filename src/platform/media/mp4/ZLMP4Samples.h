#pragma once

#include "platform/media/mp4/ZLMP4Atoms.h"

/// One sample of a track: where its bytes are, and when it is shown.
struct ZLMP4Sample {
    qint64 offset = 0;
    qint64 size = 0;
    /// In the units of the track.
    qint64 start = 0;
    qint64 duration = 0;
};

namespace ZLMP4Samples {

/// The samples that the atom `stbl` describes, up to a bound that is far beyond any list of chapters.
[[nodiscard]] QList<ZLMP4Sample> read(const ZLMediaSource& source, const ZLMP4Atom& table);

}
