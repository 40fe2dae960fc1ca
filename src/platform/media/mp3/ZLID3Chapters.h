#pragma once

#include "platform/media/ZLMediaChapter.h"
#include "platform/media/mp3/ZLID3Tag.h"

/// The chapters in an ID3v2 tag: a CHAP frame each, and a CTOC frame that lists them.
namespace ZLID3Chapters {

struct Found {
    /// Rising by their start.
    ZLMediaChapters chapters {};
    /// Starts of those that have a picture or other frames of their own, in milliseconds.
    QList<qint64> pictures {};
};

[[nodiscard]] Found read(const ZLID3Tag& tag);

/// Puts the chapters in place of those in the tag. A chapter at the time of a former one takes over what that has
/// beside its title and its link.
void replace(ZLID3Tag& tag, const ZLMediaChapters& chapters);

}
