#pragma once

#include "lists/ZLListForm.h"

/// Lines for show notes after a pattern with the place marks {time}, {title}, {link} and {number}. It is only written.
namespace ZLShowNotes {

[[nodiscard]] ZLListForm form();

/// The pattern of a list that brings none: "({time}) {title} {link}".
[[nodiscard]] QString usualPattern();

}
