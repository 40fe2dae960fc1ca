#pragma once

#include "delivery/ZLDeliveryPlan.h"
#include "platform/ZLWorkProgress.h"

/// Carries out a plan: writes, reads the file again, and compares.
namespace ZLDelivery {

/// Writes to `output`, which may be the audio file itself. Says "12 of 12 chapters are in episode.mp3"; the error says
/// why nothing was written, or that not all of them are there. May run on any thread.
[[nodiscard]] ZLResult<QString> write(const ZLDeliveryPlan& plan, const QString& output, ZLWorkProgress& progress);

/// How many of the chapters to come stand in `found`, in their order, with title and link and within a millisecond.
[[nodiscard]] qsizetype countWritten(const ZLMediaChapters& toCome, const ZLMediaContents& found);

}
