#pragma once

#include "lists/ZLListForm.h"

/// The lists of mp4chaps and Auphonic: a line a chapter, "00:01:02.500 Title <link>".
namespace ZLMP4ChapsText {

[[nodiscard]] ZLListForm form();

}
