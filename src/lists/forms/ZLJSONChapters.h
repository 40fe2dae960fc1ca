#pragma once

#include "lists/ZLListForm.h"

/// An array of objects with "start-time" in seconds and "titles" in several languages: the JSON export, and the chapter
/// lists of HTTP Live Streaming.
namespace ZLJSONChapters {

[[nodiscard]] ZLListForm form();

}
