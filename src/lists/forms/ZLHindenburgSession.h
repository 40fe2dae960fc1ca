#pragma once

#include "lists/ZLListForm.h"

/// The markers of the type "Chapter" in a Hindenburg session.
namespace ZLHindenburgSession {

[[nodiscard]] ZLListForm form();

}
