#pragma once

#include "lists/ZLListForm.h"

/// Markers and regions of REAPER as comma-separated values, under the headings "#,Name,Start,End,Length".
namespace ZLReaperMarkers {

[[nodiscard]] ZLListForm form();

}
