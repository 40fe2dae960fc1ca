#pragma once

#include "lists/ZLListForm.h"

/// Matroska's chapter XML, as mkvpropedit and mkvmerge take it.
namespace ZLMatroskaChapters {

[[nodiscard]] ZLListForm form();

}
