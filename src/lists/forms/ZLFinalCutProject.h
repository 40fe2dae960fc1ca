#pragma once

#include "lists/ZLListForm.h"

/// The markers and chapter markers in an FCPXML document.
namespace ZLFinalCutProject {

[[nodiscard]] ZLListForm form();

}
