#pragma once

#include "lists/ZLListForm.h"

/// Podlove Simple Chapters, alone or in the items of a feed. The form is described at
/// https://podlove.org/simple-chapters/.
namespace ZLPodloveChapters {

[[nodiscard]] ZLListForm form();

}
