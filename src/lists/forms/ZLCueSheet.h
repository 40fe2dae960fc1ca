#pragma once

#include "lists/ZLListForm.h"

/// A CUE sheet: tracks with a title and the time of INDEX 01 as minutes, seconds and 75ths of a second.
namespace ZLCueSheet {

[[nodiscard]] ZLListForm form();

}
