#pragma once

#include "lists/ZLListForm.h"

/// Podcasting 2.0 chapters, `application/json+chapters`: an object with "version" and "chapters", each with "startTime"
/// in seconds, "title" and "url". A chapter with "toc": false is hidden. The form is described at
/// https://github.com/Podcastindex-org/podcast-namespace.
namespace ZLPodcastChapters {

[[nodiscard]] ZLListForm form();

}
