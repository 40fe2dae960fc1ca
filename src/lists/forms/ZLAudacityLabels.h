#pragma once

#include "lists/ZLListForm.h"

/// Audacity label tracks: a line a label with start and end in seconds and the title, separated by tabs. A line that
/// begins with a backslash belongs to the label before and holds its frequencies.
namespace ZLAudacityLabels {

[[nodiscard]] ZLListForm form();

}
