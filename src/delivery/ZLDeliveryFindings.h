#pragma once

#include "platform/media/ZLMediaContents.h"

/// What of a list of chapters does not fit into an audio file, and what is done about it.
namespace ZLDeliveryFindings {

/// Takes out of `chapters`, which rise by their start, what cannot be written. Says that and everything else that a
/// person should know before, one sentence each.
[[nodiscard]] QStringList applied(const ZLMediaContents& file, ZLMediaChapters& chapters);

}
