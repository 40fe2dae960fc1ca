#pragma once

#include <QString>

/// Where the program keeps what it needs to go on where it stopped.
namespace ZLStateFolder {

/// `$XDG_STATE_HOME/zelta`, by default `~/.local/state/zelta`, as the XDG base directory rules say.
[[nodiscard]] QString path();

}
