#pragma once

#include "lists/ZLListForm.h"

/// What people write below a show: a time at the beginning of a line, or else at its end, and a title.
namespace ZLSimpleList {

[[nodiscard]] ZLListForm form();

}
