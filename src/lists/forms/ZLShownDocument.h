#pragma once

#include "lists/ZLListForm.h"

/// What "zelta show --json" prints: an object with "chapters", each with "timeStamp" in seconds and its other fields.
namespace ZLShownDocument {

[[nodiscard]] ZLListForm form();

}
