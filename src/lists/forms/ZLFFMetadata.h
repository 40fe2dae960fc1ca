#pragma once

#include "lists/ZLListForm.h"

/// FFmpeg's metadata file: sections [CHAPTER] with TIMEBASE, START, END and title.
namespace ZLFFMetadata {

[[nodiscard]] ZLListForm form();

}
