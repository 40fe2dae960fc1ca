#pragma once

#include "lists/ZLListForm.h"

/// A WebVTT chapter track: a cue a chapter.
namespace ZLWebVTTChapters {

[[nodiscard]] ZLListForm form();

}
